// What is taken from a duct for the configurator: the attribute of the session document's `duct` element, the part
// attribute from which it is read, and the key under which the configurator's address carries it; in the order of all
// three.
#pragma once

// Shapes of a duct in which an attribute is a size: bits, by Klimora's number of the shape.
inline constexpr int kRoundDuct = 1 << 0;
inline constexpr int kRectangularDuct = 1 << 1;

struct DuctAttribute {
    const char* name;
    const char* path;
    const char* addressKey;
    int shapes;
    bool isAirflow = false;
};

inline constexpr DuctAttribute kDuctAttributes[] = {
    {"diameter_mm", "/part/diameter", "&diameter=", kRoundDuct},
    {"width_mm", "/part/width", "&width=", kRectangularDuct},
    {"height_mm", "/part/height", "&height=", kRectangularDuct},
    {"airflow_ls", "/part/qv_sizingflow/ls", "&airflow=", kRoundDuct | kRectangularDuct, true},
};
