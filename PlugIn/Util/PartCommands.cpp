#include "Util/PartCommands.h"

#include "Util/ServerCommand.h"

namespace {

constexpr int kLengthCoefficientVersion = 20090300;

void AppendProduct(ServerCommand& command, const PartProduct& product) {
    command.Element("KPDClass/Name", product.kpdClassName)
        .Element("Usercode", product.userCode)
        .Element("Productfamilykey", product.familyKey)
        .Element("Productkey", product.productKey);
}

void AppendPipeEnd(ServerCommand& command, const PipeEnd& end) {
    command.Open("Connection");
    if (const std::string* part = std::get_if<std::string>(&end))
        command.Element("ConnectedTo", *part);
    else
        command.Element("Position/WCS", std::get<AcGePoint3d>(end));
    command.Close("Connection");
}

std::string OrSpecial(const std::string& text) {
    return text.empty() ? "Special" : text;
}

}  // namespace

std::string ManifoldCommand(const PartSystem& system, const PartPlacement& placement, const std::string& shape) {
    return ServerCommand("CreatePart/Part")
        .Element("Type/Define", "EWAPART_MANIFOLD")
        .Open("System")
        .Element("ID", system.id)
        .Element("Type/ID", system.typeId)
        .Close("System")
        .Placement(placement)
        .Verbatim("Geometry/Shape", shape)
        .Close("CreatePart/Part")
        .Text();
}

std::string ConnectedDeviceCommand(const PartProduct& product, const std::string& typeDefine,
                                   const PartPlacement& placement, const std::string& connectedPart) {
    // Unlike in the other commands, the user code is not escaped and the normal precedes the direction.
    return ServerCommand("CreatePart")
        .Element("KPDClass/Name", product.kpdClassName)
        .Verbatim("Usercode", product.userCode)
        .Element("Productfamilykey", product.familyKey)
        .Element("Productkey", product.productKey)
        .Open("Part")
        .Element("Type/Define", typeDefine)
        .Element("Position/WCS", placement.position)
        .Element("Normal/WCS", placement.normal)
        .Element("Direction/WCS", placement.direction)
        .Element("Connection/ConnectedTo", connectedPart)
        .Close("CreatePart/Part")
        .Text();
}

std::string RadiatorCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                            const RadiatorData& radiator, const RadiatorValve& valve) {
    ServerCommand command("CreatePart");
    AppendProduct(command, product);
    command.Open("Part")
        .Element("Type/Define", "EWAPART_RADIATOR")
        .Element("System/ID", systemId)
        .Placement(placement)
        .Element("Width", radiator.width)
        .Element("Height", radiator.height)
        .Element("P_Heating/W", radiator.heatingPower)
        .Close("Part")
        .Element("ConnectionSize", radiator.connectionSize);
    if (radiator.filled) command.Element("Filled", *radiator.filled);
    command.Element("Inlet/ID", radiator.inletId).Element("Outlet/ID", radiator.outletId);
    if (!valve.userCode.empty() && !valve.familyKey.empty() && !valve.productKey.empty()) {
        if (valve.draw) command.Element("DrawValve", *valve.draw);
        command.Open("Valve")
            .Element("Usercode", valve.userCode)
            .Element("Productfamilykey", valve.familyKey)
            .Element("Productkey", valve.productKey)
            .Close("Valve");
    }
    return command.Close("CreatePart").Text();
}

std::string AirTerminalCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                               const AirTerminalData& terminal) {
    ServerCommand command("CreatePart");
    AppendProduct(command, product);
    command.Open("Part")
        .Verbatim("Type/Define", terminal.typeDefine)
        .Element("System/ID", systemId)
        .Placement(placement)
        .Element("qv_set/ls", terminal.airFlow);
    if (terminal.grilleAngle > 0) command.Element("GrilleAngle", terminal.grilleAngle);
    if (terminal.collarLength > 0) command.Element("CollarLength", terminal.collarLength);
    return command.Close("CreatePart/Part").Text();
}

std::string PipeCommand(const PipeEnd& firstEnd, const PipeEnd& secondEnd, const PipeData& pipe, int serverVersion) {
    ServerCommand command("CreatePart/Part");
    command.Element("Type/Define", "EWAPART_DUCT");
    AppendPipeEnd(command, firstEnd);
    AppendPipeEnd(command, secondEnd);
    command.Open("System")
        .Element("ID", pipe.system.id)
        .Element("Type/ID", pipe.system.typeId)
        .Close("System")
        .Element("Normal/WCS", pipe.normal)
        .Element("Serie/ID", pipe.series)
        .Element("Shape/ID", 0)  // a pipe is round
        .Element("Diameter", pipe.diameter);
    if (pipe.bendCoefficient != 0)
        command.Element(serverVersion >= kLengthCoefficientVersion ? "Bend/LDCoefficient" : "Bend/RDCoefficient",
                        pipe.bendCoefficient);
    if (pipe.lockSize) command.Element("Locked/Size", 1);
    return command.Close("CreatePart/Part").Text();
}

std::string CustomObjectCommand(const PartPlacement& placement, const CustomObjectData& object) {
    ServerCommand command("CreatePart/Part");
    command.Element("Type/Define", "EWAPART_CUSTOM").Element("System/ID", object.systemId).Placement(placement);
    if (!object.productCode.empty()) command.Element("Productcode", object.productCode);
    // The product code is the class type as well.
    return command.Element("CustomPartType", OrSpecial(object.customPartType))
        .Element("ifcClassType", OrSpecial(object.productCode))
        .Element("Geometry/Layer/Name", object.layer)
        .Close("CreatePart/Part")
        .Text();
}

std::string LinetypeDefinition(const std::string& layer) {
    ServerCommand definition("Linetypedef");
    int id = 0;
    for (const char* const color : {"red", "green", "blue", ""}) {  // the last has the layer's color
        definition.Open("Linetype id=\"" + std::to_string(++id) + "\"").Verbatim("Layer/Name", layer);
        if (*color) definition.Element("Color", color);
        definition.Close("Linetype");
    }
    return definition.Close("Linetypedef").Text();
}
