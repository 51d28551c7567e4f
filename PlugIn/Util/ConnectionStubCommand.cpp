#include "Util/ConnectionStubCommand.h"

#include <algorithm>
#include <numeric>
#include <string_view>

#include "Util/ServerCommand.h"

namespace {

// Elements that a kind of stub may have. kLimits: flow and pressure drop are clamped first.
enum : unsigned { kFlow = 1, kDrop = 2, kLimits = 4, kCurve = 8, kPower = 16, kGeneration = 32, kAttenuation = 64 };

struct StubKind {
    std::string_view name;
    unsigned elements;
};

constexpr StubKind kStubKinds[] = {
    {"TerminalDevice", kFlow | kDrop | kLimits},
    {"Radiator", kFlow | kDrop | kLimits | kPower},
    {"HeatingDevice", kFlow | kDrop | kLimits},
    {"WaterDevice", kFlow | kDrop},
    {"DuctworkRoot", kDrop | kCurve | kGeneration},
    {"Fan", kDrop | kCurve | kGeneration},
    {"PipeworkRoot", kDrop | kCurve},
    {"Pump", kDrop | kCurve},
    {"HotColdWaterJoint", kDrop | kCurve},
    {"HotCircWaterJoint", kDrop | kCurve},
    {"Nbranch", kDrop | kCurve | kGeneration | kAttenuation},
    {"Component", kDrop | kCurve | kGeneration | kAttenuation},
};

// Case-sensitive; an unknown kind has none of them.
constexpr unsigned ElementsOf(std::string_view kind) {
    for (const StubKind& known : kStubKinds) {
        if (known.name == kind) return known.elements;
    }
    return 0;
}

// Limits of the values that the server accepts.
constexpr double kMinFlow = 1e-5;
constexpr double kMaxFlow = 99999;
constexpr double kMinPressureDrop = 1;
constexpr double kMaxPressureDrop = 99999;
constexpr double kMinPower = 1e-5;
constexpr double kMaxPower = 999999;
constexpr double kMinHeight = 1e-6;

double ClampedFlow(double flow) {
    return std::clamp(flow, kMinFlow, kMaxFlow);
}

double ClampedPressureDrop(double pressureDrop) {
    return std::clamp(pressureDrop, kMinPressureDrop, kMaxPressureDrop);
}

bool IsAudible(const std::optional<SoundBands>& bands) {
    return bands && std::accumulate(bands->begin(), bands->end(), 0.0) > 0;
}

void AppendConnection(ServerCommand& command, const StubConnection& connection) {
    const bool rectangular = connection.height >= kMinHeight;
    const int width = ToWholeNumber(connection.widthOrDiameter);
    command.Open("Connection").Placement(connection.placement).Element("Shape/ID", rectangular ? 1 : 0);
    if (rectangular)
        command.Element("Width", width).Element("Height", ToWholeNumber(connection.height));
    else
        command.Element("Diameter", width);
    command.Close("Connection");
}

}  // namespace

std::string ConnectionStubCommand(const ConnectionStub& stub) {
    const unsigned elements = ElementsOf(stub.kind);
    const double flow = elements & kLimits ? ClampedFlow(stub.flow) : stub.flow;
    const double pressureDrop = elements & kLimits ? ClampedPressureDrop(stub.pressureDrop) : stub.pressureDrop;

    ServerCommand command("CreateConnectionStub");
    command.Element("Function/Name", stub.kind);
    if (!stub.parentPart.empty()) command.Verbatim("ParentPart", stub.parentPart);
    command.Open("System").Element("ID", stub.system.id).Element("Type/ID", stub.system.typeId).Close("System");
    if (!stub.customPartType.empty()) command.Element("CustomPartType", stub.customPartType);
    if (elements & kFlow && flow >= kMinFlow) command.Element("Qv_Set/ls", flow);
    if (elements & kDrop && pressureDrop > kMinPressureDrop) command.Element("dp_Set/Pa", pressureDrop);
    if (elements & kCurve && stub.curveFlow > kMinFlow && stub.curvePressureDrop > kMinPressureDrop)
        command.Open("DpCurve")
            .Element("Qv/ls", ClampedFlow(stub.curveFlow))
            .Element("dp/Pa", ClampedPressureDrop(stub.curvePressureDrop))
            .Close("DpCurve");
    if (elements & kPower && stub.heatingPower > kMinPower)
        command.Element("P_Heating/W", std::clamp(stub.heatingPower, kMinPower, kMaxPower));
    if (elements & kGeneration && IsAudible(stub.generation)) command.Element("Sound/Generation/dB", *stub.generation);
    if (elements & kAttenuation && IsAudible(stub.attenuation))
        command.Element("Sound/Attenuation/dB", *stub.attenuation);
    command.Open("Connections");
    for (const StubConnection& connection : stub.connections)
        AppendConnection(command, connection);
    return command.Close("CreateConnectionStub/Connections").Text();
}
