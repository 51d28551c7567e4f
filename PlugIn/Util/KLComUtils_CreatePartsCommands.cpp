#include "Util/KLComUtils_CreatePartsCommands.h"

#include "Util/KLComUtils_CreatePartsText.h"

namespace {

constexpr char kSpecial[] = "Special";

void AppendProduct(PartCommandText& command, const PartProduct& product) {
    command.Escaped("<KPDClass><Name>%s</Name></KPDClass>", product.kpdClassName)
        .Escaped("<Usercode>%s</Usercode>", product.userCode)
        .Escaped("<Productfamilykey>%s</Productfamilykey>", product.familyKey)
        .Escaped("<Productkey>%s</Productkey>", product.productKey);
}

const std::string& OrSpecial(const std::string& text) {
    static const std::string special = kSpecial;
    return text.empty() ? special : text;
}

}  // namespace

std::string ManifoldCommand(const PartSystem& system, const PartPlacement& placement, const std::string& shape) {
    return PartCommandText()
        .Literal("<CreatePart>")
        .Literal("<Part>")
        .Literal("<Type><Define>EWAPART_MANIFOLD</Define></Type>")
        .Literal("<System>")
        .Integer("<ID>%d</ID>", system.id)
        .Integer("<Type><ID>%d</ID></Type>", system.typeId)
        .Literal("</System>")
        .Placement(placement)
        .Verbatim("<Geometry><Shape>%s</Shape></Geometry>", shape)
        .Literal("</Part>")
        .Literal("</CreatePart>")
        .Text();
}

std::string ConnectedDeviceCommand(const PartProduct& product, const std::string& typeDefine,
                                   const PartPlacement& placement, const std::string& connectedPart) {
    // Here alone the user code goes in as it is, and the normal comes before the direction.
    return PartCommandText()
        .Literal("<CreatePart>")
        .Escaped("<KPDClass><Name>%s</Name></KPDClass>", product.kpdClassName)
        .Verbatim("<Usercode>%s</Usercode>", product.userCode)
        .Escaped("<Productfamilykey>%s</Productfamilykey>", product.familyKey)
        .Escaped("<Productkey>%s</Productkey>", product.productKey)
        .Literal("<Part>")
        .Escaped("<Type><Define>%s</Define></Type>", typeDefine)
        .Position(placement.position)
        .Normal(placement.normal)
        .Direction(placement.direction)
        .Literal("<Connection>")
        .Escaped("<ConnectedTo>%s</ConnectedTo>", connectedPart)
        .Literal("</Connection>")
        .Literal("</Part>")
        .Literal("</CreatePart>")
        .Text();
}

std::string RadiatorCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                            const RadiatorData& radiator, const RadiatorValve& valve) {
    PartCommandText command;
    command.Literal("<CreatePart>");
    AppendProduct(command, product);
    command.Literal("<Part>")
        .Literal("<Type><Define>EWAPART_RADIATOR</Define></Type>")
        .Integer("<System><ID>%d</ID></System>", systemId)
        .Placement(placement)
        .Integer("<Width>%d</Width>", radiator.width)
        .Integer("<Height>%d</Height>", radiator.height)
        .Real("<P_Heating><W>%f</W></P_Heating>", radiator.heatingPower)
        .Literal("</Part>")
        .Integer("<ConnectionSize>%d</ConnectionSize>", radiator.connectionSize);
    if (radiator.filled) command.Integer("<Filled>%d</Filled>", *radiator.filled);
    command.Integer("<Inlet><ID>%d</ID></Inlet>", radiator.inletId)
        .Integer("<Outlet><ID>%d</ID></Outlet>", radiator.outletId);
    if (!valve.userCode.empty() && !valve.familyKey.empty() && !valve.productKey.empty()) {
        if (valve.draw) command.Integer("<DrawValve>%d</DrawValve>", *valve.draw);
        command.Literal("<Valve>")
            .Escaped("<Usercode>%s</Usercode>", valve.userCode)
            .Escaped("<Productfamilykey>%s</Productfamilykey>", valve.familyKey)
            .Escaped("<Productkey>%s</Productkey>", valve.productKey)
            .Literal("</Valve>");
    }
    return command.Literal("</CreatePart>").Text();
}

std::string AirTerminalCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                               const AirTerminalData& terminal) {
    PartCommandText command;
    command.Literal("<CreatePart>");
    AppendProduct(command, product);
    command.Literal("<Part>")
        .Verbatim("<Type><Define>%s</Define></Type>", terminal.typeDefine)
        .Integer("<System><ID>%d</ID></System>", systemId)
        .Placement(placement)
        .Real("<qv_set><ls>%f</ls></qv_set>", terminal.airFlow);
    if (terminal.grilleAngle > 0) command.Integer("<GrilleAngle>%d</GrilleAngle>", terminal.grilleAngle);
    if (terminal.collarLength > 0) command.Integer("<CollarLength>%d</CollarLength>", terminal.collarLength);
    return command.Literal("</Part>").Literal("</CreatePart>").Text();
}

std::string PipeEnd(const std::string& connectedPart) {
    return PartCommandText().Escaped("<ConnectedTo>%s</ConnectedTo>", connectedPart).Text();
}

std::string PipeEnd(const AcGePoint3d& position) {
    return PartCommandText().Position(position).Text();
}

std::string PipeCommand(const std::string& firstEnd, const std::string& secondEnd, const PipeData& pipe,
                        BendForm bendForm) {
    PartCommandText command;
    command.Literal("<CreatePart>")
        .Literal("<Part>")
        .Literal("<Type><Define>EWAPART_DUCT</Define></Type>")
        .Verbatim("<Connection>%s</Connection>", firstEnd)
        .Verbatim("<Connection>%s</Connection>", secondEnd)
        .Literal("<System>")
        .Integer("<ID>%d</ID>", pipe.system.id)
        .Integer("<Type><ID>%d</ID></Type>", pipe.system.typeId)
        .Literal("</System>")
        .Normal(pipe.normal)
        .Escaped("<Serie><ID>%s</ID></Serie>", pipe.series)
        .Integer("<Shape><ID>%d</ID></Shape>", 0)  // a pipe is round
        .Real("<Diameter>%f</Diameter>", pipe.diameter);
    if (pipe.bendCoefficient != 0) {
        command.Real(bendForm == BendForm::kLengthCoefficient ? "<Bend><LDCoefficient>%f</LDCoefficient></Bend>"
                                                              : "<Bend><RDCoefficient>%f</RDCoefficient></Bend>",
                     pipe.bendCoefficient);
    }
    if (pipe.lockSize) command.Literal("<Locked><Size>1</Size></Locked>");
    return command.Literal("</Part>").Literal("</CreatePart>").Text();
}

std::string CustomObjectCommand(const PartPlacement& placement, const CustomObjectData& object) {
    PartCommandText command;
    command.Literal("<CreatePart>")
        .Literal("<Part>")
        .Literal("<Type><Define>EWAPART_CUSTOM</Define></Type>")
        .Integer("<System><ID>%d</ID></System>", object.systemId)
        .Placement(placement);
    if (!object.productCode.empty()) command.Escaped("<Productcode>%s</Productcode>", object.productCode);
    // The product code is the class type as well.
    return command.Escaped("<CustomPartType>%s</CustomPartType>", OrSpecial(object.customPartType))
        .Escaped("<ifcClassType>%s</ifcClassType>", OrSpecial(object.productCode))
        .Escaped("<Geometry><Layer><Name>%s</Name></Layer></Geometry>", object.layer)
        .Literal("</Part>")
        .Literal("</CreatePart>")
        .Text();
}

std::string LinetypeDefinition(const std::string& layer) {
    struct Linetype {
        const char* start;
        const char* color;  // null: the layer's own
    };
    static constexpr Linetype kLinetypes[] = {
        {"<Linetype id=\"1\">", "<Color>red</Color>"},
        {"<Linetype id=\"2\">", "<Color>green</Color>"},
        {"<Linetype id=\"3\">", "<Color>blue</Color>"},
        {"<Linetype id=\"4\">", nullptr},
    };
    PartCommandText definition;
    definition.Literal("<Linetypedef>");
    for (const Linetype& linetype : kLinetypes) {
        definition.Literal(linetype.start)
            .Verbatim("<Layer><Name>%s</Name></Layer>", layer)
            .Literal(linetype.color)
            .Literal("</Linetype>");
    }
    return definition.Literal("</Linetypedef>").Text();
}
