#include "PartGrammar.h"

#include <algorithm>
#include <iterator>

namespace bench::klimora {
namespace {

Grammar operator+(Grammar first, const Grammar& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

const Grammar kProduct = {
    {"KPDClass/Name", Kind::kWord},
    {"Usercode", Kind::kText},
    {"Productfamilykey", Kind::kText},
    {"Productkey", Kind::kText},
};

const Grammar kDefine = {{"Part/Type/Define", Kind::kWord}};
const Grammar kSystem = {{"Part/System/ID", Kind::kInteger}};
const Grammar kPlacement = {
    {"Part/Position/WCS", Kind::kPoint}, {"Part/Direction/WCS", Kind::kPoint}, {"Part/Normal/WCS", Kind::kPoint}};

const Grammar kManifold = kDefine + kSystem + Grammar{{"Part/System/Type/ID", Kind::kInteger}} + kPlacement +
                          Grammar{{"Part/Geometry/Shape", Kind::kText}};

const Grammar kConnectedDevice = kProduct + kDefine +
                                 Grammar{
                                     {"Part/Position/WCS", Kind::kPoint},
                                     {"Part/Normal/WCS", Kind::kPoint},
                                     {"Part/Direction/WCS", Kind::kPoint},
                                     {"Part/Connection/ConnectedTo", Kind::kWord},
                                 };

const Grammar kAirTerminal = kProduct + kDefine + kSystem + kPlacement +
                             Grammar{
                                 {"Part/qv_set/ls", Kind::kReal},
                                 {"Part/GrilleAngle", Kind::kInteger, true},
                                 {"Part/CollarLength", Kind::kInteger, true},
                             };

const Grammar kRadiator = kProduct + kDefine + kSystem + kPlacement +
                          Grammar{
                              {"Part/Width", Kind::kInteger},          {"Part/Height", Kind::kInteger},
                              {"Part/P_Heating/W", Kind::kReal},       {"ConnectionSize", Kind::kInteger},
                              {"Filled", Kind::kInteger, true},        {"Inlet/ID", Kind::kInteger},
                              {"Outlet/ID", Kind::kInteger},           {"DrawValve", Kind::kInteger, true},
                              {"Valve/Usercode", Kind::kWord, true},   {"Valve/Productfamilykey", Kind::kWord, true},
                              {"Valve/Productkey", Kind::kWord, true},
                          };

const Grammar kDuct = {
    {"Part/Type/Define", Kind::kWord},
    {"Part/Connection/ConnectedTo", Kind::kWord, true},
    {"Part/Connection/Position/WCS", Kind::kPoint, true},
    {"Part/Connection/ConnectedTo", Kind::kWord, true},
    {"Part/Connection/Position/WCS", Kind::kPoint, true},
    {"Part/System/ID", Kind::kInteger},
    {"Part/System/Type/ID", Kind::kInteger},
    {"Part/Normal/WCS", Kind::kPoint},
    {"Part/Serie/ID", Kind::kText},
    {"Part/Shape/ID", Kind::kInteger},
    {"Part/Diameter", Kind::kReal},
    {"Part/Bend/LDCoefficient", Kind::kReal, true},
    {"Part/Bend/RDCoefficient", Kind::kReal, true},
    {"Part/Locked/Size", Kind::kInteger, true},
};

const Grammar kCustom = kDefine + kSystem + kPlacement +
                        Grammar{
                            {"Part/Productcode", Kind::kWord, true},
                            {"Part/CustomPartType", Kind::kWord},
                            {"Part/ifcClassType", Kind::kWord},
                            {"Part/Geometry/Layer/Name", Kind::kText},
                        };

const Grammar kStub = {
    {"Function/Name", Kind::kWord},
    {"ParentPart", Kind::kWord, true},
    {"System/ID", Kind::kInteger},
    {"System/Type/ID", Kind::kInteger},
    {"CustomPartType", Kind::kWord, true},
    {"Qv_Set/ls", Kind::kReal, true},
    {"dp_Set/Pa", Kind::kReal, true},
    {"DpCurve/Qv/ls", Kind::kReal, true},
    {"DpCurve/dp/Pa", Kind::kReal, true},
    {"P_Heating/W", Kind::kReal, true},
    {"Sound/Generation/dB", Kind::kBands, true},
    {"Sound/Attenuation/dB", Kind::kBands, true},
};

const Grammar kRoundConnection = {
    {"Position/WCS", Kind::kPoint}, {"Direction/WCS", Kind::kPoint}, {"Normal/WCS", Kind::kPoint},
    {"Shape/ID", Kind::kInteger},   {"Diameter", Kind::kInteger},
};

const Grammar kRectangularConnection = {
    {"Position/WCS", Kind::kPoint}, {"Direction/WCS", Kind::kPoint}, {"Normal/WCS", Kind::kPoint},
    {"Shape/ID", Kind::kInteger},   {"Width", Kind::kInteger},       {"Height", Kind::kInteger},
};

struct Form {
    const char* define;
    const Grammar* grammar;
};

const Form kForms[] = {
    {"EWAPART_MANIFOLD", &kManifold},
    {"EWAPART_RADIATOR", &kRadiator},
    {"EWAPART_DUCT", &kDuct},
    {"EWAPART_CUSTOM", &kCustom},
    {"EWAPART_ZONEVALVE", &kConnectedDevice},
    {"EWAPART_STOPVALVE", &kConnectedDevice},
    {"EWAPART_SUPPLY", &kAirTerminal},
    {"EWAPART_SUPPLY", &kConnectedDevice},
    {"EWAPART_EXTRACT", &kAirTerminal},
    {"EWAPART_EXTRACT", &kConnectedDevice},
    {"EWAPART_OUTDOOR", &kAirTerminal},
    {"EWAPART_OUTDOOR", &kConnectedDevice},
    {"EWAPART_EXHAUST", &kAirTerminal},
    {"EWAPART_EXHAUST", &kConnectedDevice},
    {"EWAPART_SILENCER", &kConnectedDevice},
};

constexpr const char* kStubKinds[] = {
    "TerminalDevice", "Radiator", "HeatingDevice",     "WaterDevice",       "DuctworkRoot", "Fan",
    "PipeworkRoot",   "Pump",     "HotColdWaterJoint", "HotCircWaterJoint", "Nbranch",      "Component",
};

}  // namespace

std::vector<const Grammar*> FormsOf(const std::string& define) {
    std::vector<const Grammar*> forms;
    for (const Form& form : kForms)
        if (define == form.define) forms.push_back(form.grammar);
    return forms;
}

const Grammar& StubForm() {
    return kStub;
}
const Grammar& RoundStubConnection() {
    return kRoundConnection;
}
const Grammar& RectangularStubConnection() {
    return kRectangularConnection;
}

bool IsStubKind(const std::string& name) {
    return std::find(std::begin(kStubKinds), std::end(kStubKinds), name) != std::end(kStubKinds);
}

}  // namespace bench::klimora
