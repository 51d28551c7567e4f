// The values of a duct that the configurator needs: the attribute of the session document's `duct` element, the part
// attribute that it is read from, and its key in the configurator's address. The order is that of all three.
#pragma once

// Klimora's numbers of the shapes.
enum DuctShape { kRoundDuct = 0, kRectangularDuct = 1 };

struct DuctAttribute {
    const char* name;
    const char* path;
    const char* addressKey;
    bool round;  // ducts of which shape have it
    bool rectangular;
    bool isAirflow = false;
};

inline constexpr DuctAttribute kDuctAttributes[] = {
    {"diameter_mm", "/part/diameter", "&diameter=", true, false},
    {"width_mm", "/part/width", "&width=", false, true},
    {"height_mm", "/part/height", "&height=", false, true},
    {"airflow_ls", "/part/qv_sizingflow/ls", "&airflow=", true, true, true},
};
