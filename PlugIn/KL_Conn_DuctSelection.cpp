#include <windows.h>

#include "KL_Conn.h"

#include <cmath>
#include <cstdlib>
#include <optional>
#include <utility>

#include "DuctAttributes.h"
#include "Lib/CommandLine.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Numbers.h"
#include "Util/KLUtils.h"
#include "Util/XmlElements.h"

namespace {

constexpr int kDuctTypeId = 68;

bool IsSelectableSystemType(int type) {
    return type >= 0 && type <= 3;
}

// Parts of these types sit on a duct: the duct that they are connected to is meant.
bool StandsForItsDuct(int typeId) {
    return typeId == 69 || typeId == 82;
}

bool IsZero(const std::string& number) {
    return !(std::fabs(ToReal(number.c_str())) > 1e-7);
}

// A query with a negative answer: the end of the selection.
struct FailedQuery {
    const char* path;
    int result;
};

// A positive answer gives no value, but is no reason to end the selection either.
std::string Query(KLComUtils& klimora, const std::string& part, const char* path) {
    std::string value;
    const int result = klimora.GetPartAtt(part, path, value, false);
    if (result < 0) throw FailedQuery{path, result};
    return value;
}

// -1 for what is no number.
int QueryNumber(KLComUtils& klimora, const std::string& part, const char* path) {
    const std::string text = Query(klimora, part, path);
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    return end == text.c_str() ? -1 : static_cast<int>(number);
}

// The duct that a pick of this part means; empty when there is none.
std::string DuctOf(KLComUtils& klimora, const std::string& part) {
    if (!IsSelectableSystemType(klimora.GetPartAttOrDefault(part, "/part/system/type/id", -1))) return std::string();
    const int typeId = QueryNumber(klimora, part, "/Part/Type/ID");
    if (typeId == kDuctTypeId) return part;
    if (!StandsForItsDuct(typeId)) return std::string();
    std::vector<std::string> connected;
    klimora.GetAllConnectedParts(part, connected, true);
    for (const std::string& candidate : connected) {
        if (klimora.IsPartTypeID(candidate, kDuctTypeId)) return candidate;
    }
    return std::string();
}

using DuctValues = std::vector<std::pair<const char*, std::string>>;

// Names and values of the attributes that a duct of its shape has; nothing when it has another shape or lacks one.
std::optional<DuctValues> ReadDuct(KLComUtils& klimora, const std::string& duct) {
    const int shape = QueryNumber(klimora, duct, "/part/shape/id");
    if (shape != 0 && shape != 1) return {};
    DuctValues values;
    bool complete = true;
    for (const DuctAttribute& attribute : kDuctAttributes) {
        if (!(attribute.shapes & 1 << shape)) continue;
        // Both sizes of a rectangular duct are read before one of them is missed; the airflow only of a complete duct.
        if (!complete && attribute.isAirflow) break;
        std::string value = Query(klimora, duct, attribute.path);
        complete = complete && !value.empty();
        values.emplace_back(attribute.name, std::move(value));
    }
    if (!complete) return {};
    return values;
}

void WriteDuct(ticpp::Element* root, const DuctValues& values) {
    ticpp::Element* duct = GetOrAddChildElement(root, "duct");
    for (const auto& [name, value] : values) {
        if (!IsZero(value)) duct->SetAttribute(name, value);
    }
}

}  // namespace

int KlConn::SelectDuct() {
    // Picks that do not suit are no errors to be told.
    const TraceSwitchGuard silent(*this, false, false, false);
    try {
        for (;;) {
            AcDbObjectId picked;
            if (!KLUtils::PickEntity(L"\nSorvik: Select a duct:", picked)) return -1;
            const std::string duct = DuctOf(*this, GetPartHandle(picked));
            if (duct.empty()) continue;
            const std::optional<DuctValues> values = ReadDuct(*this, duct);
            if (!values) continue;
            WriteDuct(Root(), *values);
            return 0;
        }
    } catch (const FailedQuery& query) {
        PrintCommandLine("\n%s: Can not read '%s' of the duct from Klimora (%d).\n", kDisplayName, query.path,
                         query.result);
        return query.result;
    }
}
