#include "KL_Conn.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "DuctAttributes.h"
#include "Lib/CommandLine.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Numbers.h"
#include "Util/KLUtils.h"
#include "Util/XmlElements.h"

namespace {

// Klimora's type of a duct, and those of parts that sit on one: picking such a part selects the duct that it is
// connected to.
constexpr int kDuctTypeId = 68;
constexpr int kTypeIdsOnDucts[] = {69, 82};

// Klimora's types of the systems that have air ducts.
constexpr int kFirstDuctSystemType = 0;
constexpr int kLastDuctSystemType = 3;

bool IsDuctSystemType(int type) {
    return type >= kFirstDuctSystemType && type <= kLastDuctSystemType;
}

bool SitsOnDuct(int typeId) {
    return std::find(std::begin(kTypeIdsOnDucts), std::end(kTypeIdsOnDucts), typeId) != std::end(kTypeIdsOnDucts);
}

bool IsZero(const std::string& number) {
    const double value = ToReal(number.c_str());
    return std::isnan(value) || std::fabs(value) <= 1e-7;
}

// Thrown for a query with a negative result, which ends the selection.
struct FailedQuery {
    const char* path;
    int result;
};

// Returns the value; an empty one after a positive result, which does not end the selection.
std::string Query(KLComUtils& klimora, const std::string& part, const char* path) {
    std::string value;
    const int result = klimora.GetPartAtt(part, path, value, false);
    if (result < 0) throw FailedQuery{path, result};
    return value;
}

// Returns -1 for text that is not a number.
int QueryNumber(KLComUtils& klimora, const std::string& part, const char* path) {
    const std::string text = Query(klimora, part, path);
    char* end = nullptr;
    const long number = std::strtol(text.c_str(), &end, 10);
    return end == text.c_str() ? -1 : static_cast<int>(number);
}

// Returns the duct that picking this part selects; an empty handle when there is none.
std::string DuctOf(KLComUtils& klimora, const std::string& part) {
    if (!IsDuctSystemType(klimora.GetPartAttOrDefault(part, "/part/system/type/id", -1))) return std::string();
    const int typeId = QueryNumber(klimora, part, "/Part/Type/ID");
    if (typeId == kDuctTypeId) return part;
    if (!SitsOnDuct(typeId)) return std::string();
    std::vector<std::string> connected;
    klimora.GetAllConnectedParts(part, connected, true);
    for (const std::string& candidate : connected) {
        if (klimora.IsPartTypeID(candidate, kDuctTypeId)) return candidate;
    }
    return std::string();
}

using DuctValues = std::vector<std::pair<const char*, std::string>>;

// Returns names and values of the attributes that a duct of its shape has; nothing for another shape, or when a value
// is missing.
std::optional<DuctValues> ReadDuct(KLComUtils& klimora, const std::string& duct) {
    const int shape = QueryNumber(klimora, duct, "/part/shape/id");
    if (shape != kRoundDuct && shape != kRectangularDuct) return {};
    DuctValues values;
    bool complete = true;
    for (const DuctAttribute& attribute : kDuctAttributes) {
        if (!(shape == kRoundDuct ? attribute.round : attribute.rectangular)) continue;
        // Both sizes of a rectangular duct are read even when one is missing, the airflow only of a complete duct.
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
    // Unsuitable picks are not errors, and print nothing.
    const TraceSwitchGuard silent(*this, kNoTrace);
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
