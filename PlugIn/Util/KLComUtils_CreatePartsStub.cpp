// The command for a connection stub: most of its elements depend on the stub's kind and on their values.
#include <algorithm>
#include <numeric>

#include "Util/KLComUtils_CreatePartsCommands.h"
#include "Util/KLComUtils_CreatePartsText.h"
#include "Util/StubKinds.h"

namespace {

// Smallest and largest values that the server takes.
constexpr double kLeastFlow = 1e-5;
constexpr double kMostFlow = 99999;
constexpr double kLeastPressureDrop = 1;
constexpr double kMostPressureDrop = 99999;
constexpr double kLeastPower = 1e-5;
constexpr double kMostPower = 999999;
constexpr double kLeastHeight = 1e-6;

double ClampedFlow(double flow) {
    return std::clamp(flow, kLeastFlow, kMostFlow);
}

double ClampedPressureDrop(double pressureDrop) {
    return std::clamp(pressureDrop, kLeastPressureDrop, kMostPressureDrop);
}

bool IsAudible(const std::optional<SoundBands>& bands) {
    return bands && std::accumulate(bands->begin(), bands->end(), 0.0) > 0;
}

void AppendFlow(PartCommandText& command, const ConnectionStub& stub) {
    if (!StubKindHas(stub.kind, StubElement::kFlow)) return;
    const double flow = StubKindHas(stub.kind, StubElement::kClampedFlow) ? ClampedFlow(stub.flow) : stub.flow;
    if (flow >= kLeastFlow) command.Real("<Qv_Set><ls>%f</ls></Qv_Set>", flow);
}

void AppendPressureDrop(PartCommandText& command, const ConnectionStub& stub) {
    if (!StubKindHas(stub.kind, StubElement::kPressureDrop)) return;
    const double pressureDrop = StubKindHas(stub.kind, StubElement::kClampedPressureDrop)
                                    ? ClampedPressureDrop(stub.pressureDrop)
                                    : stub.pressureDrop;
    if (pressureDrop > kLeastPressureDrop) command.Real("<dp_Set><Pa>%f</Pa></dp_Set>", pressureDrop);
}

void AppendCurve(PartCommandText& command, const ConnectionStub& stub) {
    if (!StubKindHas(stub.kind, StubElement::kCurve)) return;
    if (!(stub.curveFlow > kLeastFlow) || !(stub.curvePressureDrop > kLeastPressureDrop)) return;
    command.Literal("<DpCurve>")
        .Real("<Qv><ls>%f</ls></Qv>", ClampedFlow(stub.curveFlow))
        .Real("<dp><Pa>%f</Pa></dp>", ClampedPressureDrop(stub.curvePressureDrop))
        .Literal("</DpCurve>");
}

void AppendHeatingPower(PartCommandText& command, const ConnectionStub& stub) {
    if (!StubKindHas(stub.kind, StubElement::kHeatingPower) || !(stub.heatingPower > kLeastPower)) return;
    command.Real("<P_Heating><W>%f</W></P_Heating>", std::clamp(stub.heatingPower, kLeastPower, kMostPower));
}

void AppendSound(PartCommandText& command, const ConnectionStub& stub) {
    if (IsAudible(stub.generation) && StubKindHas(stub.kind, StubElement::kSoundGeneration))
        command.Bands("<Sound><Generation><dB>%f %f %f %f %f %f %f %f</dB></Generation></Sound>", *stub.generation);
    if (IsAudible(stub.attenuation) && StubKindHas(stub.kind, StubElement::kSoundAttenuation))
        command.Bands("<Sound><Attenuation><dB>%f %f %f %f %f %f %f %f</dB></Attenuation></Sound>", *stub.attenuation);
}

void AppendConnection(PartCommandText& command, const StubConnection& connection) {
    const bool rectangular = connection.height >= kLeastHeight;
    const int width = static_cast<int>(connection.widthOrDiameter);
    command.Literal("<Connection>")
        .Placement(connection.placement)
        .Integer("<Shape><ID>%d</ID></Shape>", rectangular ? 1 : 0);
    if (rectangular)
        command.Integer("<Width>%d</Width>", width).Integer("<Height>%d</Height>", static_cast<int>(connection.height));
    else
        command.Integer("<Diameter>%d</Diameter>", width);
    command.Literal("</Connection>");
}

}  // namespace

std::string ConnectionStubCommand(const ConnectionStub& stub) {
    PartCommandText command;
    command.Literal("<CreateConnectionStub>").Escaped("<Function><Name>%s</Name></Function>", stub.kind);
    if (!stub.parentPart.empty()) command.Verbatim("<ParentPart>%s</ParentPart>", stub.parentPart);
    command.Literal("<System>")
        .Integer("<ID>%d</ID>", stub.system.id)
        .Integer("<Type><ID>%d</ID></Type>", stub.system.typeId)
        .Literal("</System>");
    if (!stub.customPartType.empty()) command.Escaped("<CustomPartType>%s</CustomPartType>", stub.customPartType);
    AppendFlow(command, stub);
    AppendPressureDrop(command, stub);
    AppendCurve(command, stub);
    AppendHeatingPower(command, stub);
    AppendSound(command, stub);
    command.Literal("<Connections>");
    for (const StubConnection& connection : stub.connections)
        AppendConnection(command, connection);
    return command.Literal("</Connections>").Literal("</CreateConnectionStub>").Text();
}
