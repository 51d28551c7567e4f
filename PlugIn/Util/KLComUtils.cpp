#include "Util/KLComUtils.h"

#include <algorithm>
#include <array>
#include <locale>
#include <new>
#include <sstream>
#include <utility>

#include "dbhandle.h"

#include "Lib/ExceptionReport.h"
#include "Lib/FormatText.h"
#include "Lib/Text.h"
#include "Lib/WholeFile.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils";
constexpr int kChunkSize = 10240;

constexpr int kBadArgument = -4;
constexpr int kFileNotOpened = -6;
constexpr int kNoMemory = -7;
constexpr int kShortRead = -8;

// Numbers in the server's texts have a decimal point and no digit groups. A stream follows the process locale, which
// every plug-in in AutoCAD can change, unless it has its own.
std::istringstream NumbersIn(const std::string& text) {
    std::istringstream numbers(text);
    numbers.imbue(std::locale::classic());
    return numbers;
}

// Missing numbers are 0.
std::array<double, 3> ReadTriple(const std::string& text) {
    std::array<double, 3> triple = {};
    NumbersIn(text) >> triple[0] >> triple[1] >> triple[2];
    return triple;
}

}  // namespace

KLComUtils::KLComUtils() = default;

KLComUtils::~KLComUtils() {
    KLComUtils::Disconnect();
}

int KLComUtils::Connect() {
    try {
        server_ = KlimComSrvHandle();
        return 0;
    } catch (...) {
        return -1;
    }
}

int KLComUtils::Disconnect() {
    server_.reset();
    return 0;
}

void KLComUtils::SetTrace(bool keep, bool failures, bool all) {
    if (server_) Server()->setTrace({keep, failures, all});
}

void KLComUtils::GetTrace(bool* keep, bool* failures, bool* all) const {
    if (!server_) return;
    const TraceSwitches switches = Server()->getTrace();
    *keep = switches.keep;
    *failures = switches.failures;
    *all = switches.all;
}

std::string KLComUtils::GetLastError() const {
    if (!server_) return std::string();
    const std::string trace = Server()->lastTrace();
    return trace.empty() ? ServerErrorText() : trace;
}

int KLComUtils::SetPartAtt(const std::string& part, const std::string& attribute, int value, bool required) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    if (text) return SetPartAtt(part, attribute, text.str(), required);
    if (required) throw "Could not convert value to text";
    return -1;
}

int KLComUtils::SetPartAtt(const std::string& part, const std::string& attribute, const std::string& value,
                           bool required) {
    const int result = server_ ? Server()->setPartAtt(part.c_str(), attribute.c_str(), value.c_str()) : -1;
    if (result != 0 && required) throw "KLComUtils::SetPartAtt";
    return result;
}

int KLComUtils::ReadText(const std::string& part, const std::string& attribute, std::string& value) {
    return server_ ? Server()->getPartAtt(part.c_str(), attribute.c_str(), value) : -1;
}

int KLComUtils::GetPartAtt(const std::string& part, const std::string& attribute, std::string& value, bool required) {
    value.clear();
    const int result = ReadText(part, attribute, value);
    if (result == 0) return 0;
    value.clear();
    if (required) throw "KLComUtils::GetPartAtt";
    return result;
}

std::string KLComUtils::GetPartAtt(const std::string& part, const std::string& attribute, bool required) {
    std::string value;
    GetPartAtt(part, attribute, value, required);
    return value;
}

double KLComUtils::GetPartAttReal(const std::string& part, const std::string& attribute, bool required) {
    std::string text;
    if (GetPartAtt(part, attribute, text, required) != 0) return 0;
    double value = 0;
    if (NumbersIn(text) >> value) return value;
    // The blank after the opening quote is part of the message.
    if (required) throw "Could not convert \" " + text + "\" to target type";
    return 0;
}

AcGePoint3d KLComUtils::GetPartAttPoint(const std::string& part, const std::string& attribute, bool required) {
    const auto [x, y, z] = ReadTriple(GetPartAtt(part, attribute, required));
    return AcGePoint3d(x, y, z);
}

AcGeVector3d KLComUtils::GetPartAttVector(const std::string& part, const std::string& attribute, bool required) {
    const auto [x, y, z] = ReadTriple(GetPartAtt(part, attribute, required));
    return AcGeVector3d(x, y, z);
}

std::string KLComUtils::GetPartAttOrDefault(const std::string& part, const std::string& attribute,
                                            const std::string& defaultValue) {
    std::string value;
    return ReadText(part, attribute, value) == 0 ? value : defaultValue;
}

int KLComUtils::GetPartAttOrDefault(const std::string& part, const std::string& attribute, int defaultValue) {
    std::string text;
    if (ReadText(part, attribute, text) != 0) return defaultValue;
    int value = 0;
    return NumbersIn(text) >> value ? value : defaultValue;
}

int KLComUtils::GetCountOrDefault(const std::string& path, int defaultValue) {
    const int count = GetPartAttOrDefault("", "Count(" + path + ")", defaultValue);
    return count <= kMaxCount ? count : defaultValue;
}

bool KLComUtils::IsPartTypeID(const std::string& part, int id) {
    return GetPartAttOrDefault(part, "/Part/Type/ID", -1) == id;
}

bool KLComUtils::IsPartTypeDefine(const std::string& part, const std::string& define) {
    return GetPartAtt(part, "/Part/Type/Define", false) == define;
}

std::string ReplaceAll(const std::string& text, const std::string& search, const std::string& replacement) {
    if (search.empty()) return text;
    std::string result;
    size_t from = 0;
    for (size_t at = text.find(search); at != std::string::npos; at = text.find(search, from)) {
        result.append(text, from, at - from).append(replacement);
        from = at + search.size();
    }
    return result.append(text, from, std::string::npos);
}

int KLComUtils::GetAttributes(const std::string& /*part*/, const std::string& path,
                              const std::vector<std::string>& names, std::vector<Record>& records) {
    return ForEachRecord(path, names, [&](const Record& record) { records.push_back(record); });
}

int KLComUtils::ForEachRecord(const std::string& path, const std::vector<std::string>& names,
                              const std::function<void(const Record&)>& take) {
    if (!server_) return -1;
    return ReportOnThrow({"Failed to get attributes.", kSource, 280, "KLComUtils::GetAttributes"}, -1, [&] {
        if (path.find('/') == std::string::npos) throw "Can't find '/' in a parent path " + path;
        const int count = GetCountOrDefault(path, 0);
        Record record;
        std::vector<std::string*> values;
        values.reserve(names.size());
        for (const std::string& name : names)
            values.push_back(&record[ReplaceAll(name, "/", "_")]);
        std::string attribute = path + "[";
        const size_t start = attribute.size();
        for (int i = 0; i < count; ++i) {
            attribute.replace(start, std::string::npos, std::to_string(i)).append("]/");
            const size_t end = attribute.size();
            for (size_t k = 0; k < names.size(); ++k)
                GetPartAtt("", attribute.replace(end, std::string::npos, names[k]), *values[k], true);
            take(record);
        }
        return 0;
    });
}

int KLComUtils::BinVariableSetData(int variable, const void* data, int size) {
    if (!server_) return -1;
    if (!data || size < 1) return kBadArgument;
    if (Server()->setBinVariableSize(variable, size) != 0) throw kNoDetails;
    return SendBinVariableData(variable, data, size);
}

int KLComUtils::SendBinVariableData(int variable, const void* data, int size) {
    const char* bytes = static_cast<const char*>(data);
    for (int offset = 0; offset < size; offset += kChunkSize) {
        const std::string hex = HexText(bytes + offset, static_cast<size_t>(std::min(kChunkSize, size - offset)));
        const int result = Server()->setBinVariableData(variable, offset, hex.c_str());
        if (result != 0) return result;
    }
    return 0;
}

int KLComUtils::BinVariableSetData(int variable, const char* fileName) {
    if (IsNullOrEmpty(fileName)) return kBadArgument;
    int result = -1;
    const auto fail = [&](int code, const char* message) {
        result = code;
        throw std::string(message) + fileName;
    };
    ReportOnThrow({"Failed to set bin variable data.", kSource, 221, "KLComUtils::BinVariableSetData"}, [&] {
        std::string data;
        try {
            const WholeFile read = ReadWholeFile(fileName, data);
            if (read == WholeFile::kNotOpened) fail(kFileNotOpened, "Can't open file ");
            if (read == WholeFile::kNotRead) fail(kShortRead, "Can't read data from file ");
        } catch (const std::bad_alloc&) {
            fail(kNoMemory, "Can't allocate memory to load file ");
        }
        result = BinVariableSetData(variable, data.data(), static_cast<int>(data.size()));
    });
    return result;
}

int KLComUtils::BinVariableFree(int variable) {
    return server_ ? Server()->freeBinVariable(variable) : -1;
}

std::string KLComUtils::GetPartHandle(AcDbObjectId entity) {
    wchar_t text[32] = L"";
    return entity.handle().getIntoAsciiBuffer(text) ? Narrow(text) : std::string();
}

bool KLComUtils::IsValidPartHandle(const std::string& part) {
    return !part.empty() && part != "0";
}

TraceSwitchGuard::TraceSwitchGuard(KLComUtils& utils) : utils_(utils) {
    utils_.GetTrace(&saved_.keep, &saved_.failures, &saved_.all);
}

TraceSwitchGuard::TraceSwitchGuard(KLComUtils& utils, const TraceSwitches& switches) : TraceSwitchGuard(utils) {
    utils_.SetTrace(switches.keep, switches.failures, switches.all);
}

TraceSwitchGuard::~TraceSwitchGuard() {
    utils_.SetTrace(saved_.keep, saved_.failures, saved_.all);
}
