#include <windows.h>

#include "KL_Conn.h"

#include <cmath>
#include <cstdlib>

#include "Util/KLUtils.h"
#include "Util/XmlElements.h"

namespace {

constexpr int kDuctTypeId = 68;
constexpr int kRound = 0;
constexpr int kRectangular = 1;

bool IsSelectableSystemType(int type) {
    return type >= 0 && type <= 3;
}

// Parts of these types sit on a duct: the duct that they are connected to is meant.
bool StandsForItsDuct(int typeId) {
    return typeId == 69 || typeId == 82;
}

bool IsZero(const std::string& number) {
    return !(std::fabs(std::atof(number.c_str())) > 1e-7);
}

struct DuctAttribute {
    const char* name;
    const char* path;
    std::string value;
};

}  // namespace

int KlConn::SelectDuct() {
    // Picks that do not suit are no errors to be told.
    const TraceSwitchGuard silent(*this, false, false, false);
    for (;;) {
        AcDbObjectId picked;
        if (!KLUtils::PickEntity(L"\nSorvik: Select a duct:", picked)) return -1;
        int result = 0;
        if (TakeDuct(GetPartHandle(picked), result)) return result;
    }
}

// False when the part does not suit and the prompt is to return; otherwise `result` is the selection's.
bool KlConn::TakeDuct(std::string part, int& result) {
    if (!IsSelectableSystemType(GetPartAttOrDefault(part, "/part/system/type/id", -1))) return false;
    if (StandsForItsDuct(GetPartAttOrDefault(part, "/Part/Type/ID", -1))) {
        std::vector<std::string> connected;
        GetAllConnectedParts(part, connected, true);
        for (const std::string& candidate : connected) {
            if (!IsPartTypeID(candidate, kDuctTypeId)) continue;
            part = candidate;
            break;
        }
    }
    if (!IsPartTypeID(part, kDuctTypeId)) return false;

    std::vector<DuctAttribute> attributes;
    switch (GetPartAttOrDefault(part, "/part/shape/id", -1)) {
        case kRound:
            attributes = {{"diameter_mm", "/part/diameter", {}}};
            break;
        case kRectangular:
            attributes = {{"width_mm", "/part/width", {}}, {"height_mm", "/part/height", {}}};
            break;
        default:
            return false;
    }
    attributes.push_back({"airflow_ls", "/part/qv_sizingflow/ls", {}});
    for (DuctAttribute& attribute : attributes) {
        result = GetPartAtt(part, attribute.path, attribute.value, false);
        if (result < 0) return true;
        if (attribute.value.empty()) return false;
    }

    ticpp::Element* duct = GetOrAddChildElement(Root(), "duct");
    for (const DuctAttribute& attribute : attributes) {
        if (!IsZero(attribute.value)) duct->SetAttribute(attribute.name, attribute.value);
    }
    result = 0;
    return true;
}
