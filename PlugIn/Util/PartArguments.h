// Required library; nothing in this module calls it. Arguments of the operations that create Klimora parts.
// Points and vectors are in world coordinates. Identifiers of systems and system types and the units of integer sizes
// are the server's own. An empty text or optional means "not given".
#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "gepnt3d.h"
#include "gevec3d.h"

struct PartPlacement {
    AcGePoint3d position;
    AcGeVector3d direction;
    AcGeVector3d normal;
};

struct PartSystem {
    int id = 0;
    int typeId = 0;
};

struct PartProduct {
    std::string kpdClassName;
    std::string userCode;
    std::string familyKey;
    std::string productKey;
};

struct RadiatorData {
    int width = 0;
    int height = 0;
    double heatingPower = 0;  // W
    int connectionSize = 0;
    std::optional<int> filled;
    int inletId = 0;
    int outletId = 0;
};

// The valve of a radiator. It is created only if all three texts are given.
struct RadiatorValve {
    std::optional<int> draw;
    std::string userCode;
    std::string familyKey;
    std::string productKey;
};

struct AirTerminalData {
    std::string typeDefine;
    double airFlow = 0;    // l/s
    int grilleAngle = 0;   // sent if above 0
    int collarLength = 0;  // sent if above 0
};

struct StubConnection {
    PartPlacement placement;
    double widthOrDiameter = 0;
    double height = 0;  // below 1e-6 the connection is round
};

using SoundBands = std::array<double, 8>;  // dB, lowest band first

struct ConnectionStub {
    std::string kind;  // the server's function name: "TerminalDevice", "Pump", …
    std::string parentPart;
    PartSystem system;
    std::string customPartType;
    double flow = 0;               // l/s
    double pressureDrop = 0;       // Pa
    double curveFlow = 0;          // l/s
    double curvePressureDrop = 0;  // Pa
    double heatingPower = 0;       // W
    std::optional<SoundBands> generation;
    std::optional<SoundBands> attenuation;
    std::vector<StubConnection> connections;
};

// An end of a pipe: connected to a part, or free at a point.
using PipeEnd = std::variant<std::string, AcGePoint3d>;

struct PipeData {
    PartSystem system;
    AcGeVector3d normal;
    std::string series;
    double diameter = 0;
    double bendCoefficient = 0;  // 0: none
    bool lockSize = false;
};

struct CustomObjectData {
    int systemId = 0;
    std::string customPartType;  // "Special" when empty
    std::string productCode;     // also sent as the class type, then "Special" when empty
    std::string layer;
};
