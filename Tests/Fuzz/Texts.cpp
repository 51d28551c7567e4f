// Texts and codecs: fields, parameters of models, Base64, MD5, clipboard blocks. Buffers have exactly the required
// size.
#include <algorithm>
#include <cstring>
#include <vector>

#include "Fuzz.h"
#include "Lib/Base64.h"
#include "Lib/Diagnostics.h"
#include "Lib/FormatText.h"
#include "Lib/Md5.h"
#include "Util/ClipboardBlock.h"
#include "Util/DlgFunc_Text.h"
#include "Util/DrawModel.h"
#include "Util/KLUtils_Text.h"

bool VerifyOrReport(bool failed, const char*, const char*, const char*, int, const char*) noexcept {
    return failed;
}

namespace {

using Bytes = std::vector<uint8_t>;

void CheckFields(const std::string& text, size_t index, size_t size) {
    std::vector<std::string> fields = KLUtils::Split(text, ";");
    if (!fields.empty() && fields.back().empty()) fields.pop_back();
    std::vector<char> field(size, 'x');
    const char* const next =
        gwgetsubstring(field.data(), text.c_str(), ';', static_cast<int32_t>(index), static_cast<int32_t>(size));
    Require((next != nullptr) == (index < fields.size()), "gwgetsubstring finds exactly the existing fields");
    Require(field.data() == (next ? fields[index].substr(0, size - 1) : ""), "gwgetsubstring returns the field");
}

void CheckParameters(const std::string& given, const std::string& name, const std::string& value) {
    std::vector<char> buffer(1024);
    std::strncpy(buffer.data(), given.c_str(), buffer.size());
    if (name.find_first_of("=;") != std::string::npos || value.find(';') != std::string::npos) return;
    SetKModelParam(buffer.data(), 1024, name.c_str(), value.c_str());
    if (buffer.back() != '\0') return;  // truncated
    int found = 0;
    for (const std::string& pair : KLUtils::Split(buffer.data(), ";")) {
        if (pair.compare(0, name.size() + 1, name + "=") != 0) continue;
        Require(pair == name + "=" + value, "SetKModelParam sets the value of every pair with the name");
        ++found;
    }
    Require(found > 0 && RemoveKModelParam(buffer.data(), name.c_str()) == 0, "the pair exists and can be removed");
}

void CheckBase64(const Bytes& bytes, const std::string& text) {
    std::vector<char> encoded((bytes.size() + 2) / 3 * 4);
    Require(Base64Encode(encoded.data(), bytes.data(), bytes.size()) == static_cast<int>(encoded.size()),
            "Base64 returns the length");
    Bytes decoded(encoded.size() / 4 * 3);
    decoded.resize(Base64Decode(decoded.data(), std::string(encoded.begin(), encoded.end()).c_str()));
    Require(decoded == bytes, "Base64 reads what it wrote");
    Bytes any((text.size() + 3) / 4 * 3);
    Require(Base64Decode(any.data(), text.c_str()) <= static_cast<int>(any.size()),
            "Base64 does not exceed the buffer");
}

void CheckMd5(const Bytes& bytes, size_t cut) {
    Bytes digests[2] = {Bytes(16), Bytes(16)};
    for (const size_t first : {bytes.size(), cut % (bytes.size() + 1)}) {
        MD5Context context;
        MD5Init(&context);
        MD5Update(&context, bytes.data(), first);
        MD5Update(&context, bytes.data() + first, bytes.size() - first);
        MD5Final(digests[first == bytes.size() ? 0 : 1].data(), &context);
    }
    Require(cut % (bytes.size() + 1) == bytes.size() || digests[0] == digests[1],
            "MD5 of pieces equals MD5 of the whole");
}

void CheckClipboardBlock(const Bytes& bytes, const std::string& text) {
    const ClipboardBlockView any = ParseClipboardBlock(bytes.data(), bytes.size());
    Bytes(any.text.begin(), any.text.end());  // reads every byte
    if (any.data) Bytes(any.data, any.data + any.dataSize);
    const int32_t size = static_cast<int32_t>(bytes.size());
    Bytes block(ClipboardBlockSize(text, size));
    ComposeClipboardBlock(block.data(), text, bytes.data(), size);
    const ClipboardBlockView view = ParseClipboardBlock(block.data(), block.size());
    Require(view.text == text && view.dataSize == size && (size == 0 || Bytes(view.data, view.data + size) == bytes),
            "parsing a clipboard block returns what was composed");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    static const std::FILE* const silent = stderr = std::fopen("/dev/null", "w");  // hides the decoder's warnings
    (void)silent;
    FuzzedDataProvider input(data, size);
    const std::string text = Text(input, 1100), name = Text(input, 60), value = Text(input, 60);
    const size_t index = input.ConsumeIntegralInRange<size_t>(0, 20), space = input.ConsumeIntegralInRange(1, 30);
    const Bytes bytes = input.ConsumeRemainingBytes<uint8_t>();
    CheckFields(text, index, space);
    CheckParameters(text, name, value);
    CheckBase64(bytes, text);
    CheckMd5(bytes, index * space);
    CheckClipboardBlock(bytes, text);
    return 0;
}
