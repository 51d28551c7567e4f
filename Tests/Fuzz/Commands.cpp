// The commands that create parts: for any values, a command is well-formed XML that contains them.
#include <cmath>

#include "Fuzz.h"
#include "Util/ConnectionStubCommand.h"
#include "Util/PartCommands.h"
#include "ticpp.h"

namespace {

std::string TextAt(const TiXmlDocument& document, std::initializer_list<const char*> path) {
    const TiXmlElement* element = document.RootElement();
    for (const char* name : path) {
        element = element->FirstChildElement(name);
        Require(element != nullptr, "every element exists");
    }
    return element->GetText() ? element->GetText() : "";
}

// Requires that the command is well-formed and that the element at `path` has the value.
void Check(const std::string& command, std::initializer_list<const char*> path, const std::string& value,
           const PartPlacement* placement = nullptr) {
    TiXmlBase::SetCondenseWhiteSpace(false);
    TiXmlDocument document;
    document.Parse(command.c_str());
    Require(!document.Error() && document.RootElement() && !document.RootElement()->NextSibling(), "it is well-formed");
    const bool comesBack =
        value.find_first_not_of(" \t\r\n\v\f") != std::string::npos && value.find("%%") == std::string::npos;
    Require(!comesBack || TextAt(document, path) == value, "the command contains the text");
    if (!placement) return;
    double x = 0, y = 0, z = 0;
    Require(std::sscanf(TextAt(document, {"Part", "Position", "WCS"}).c_str(), "%lf %lf %lf", &x, &y, &z) == 3,
            "a position has three numbers");
    const double off = std::fabs(x - placement->position.x) + std::fabs(z - placement->position.z);
    Require(!(off > 1.1e-6 + 1e-15 * (std::fabs(x) + std::fabs(z))), "the command contains the number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider input(data, size);
    const auto whole = [&] { return input.ConsumeIntegral<int>(); };
    const auto real = [&] {
        return input.ConsumeIntegral<uint8_t>() < 250 ? input.ConsumeFloatingPointInRange<double>(-1e7, 1e7)
                                                      : input.ConsumeFloatingPoint<double>();
    };
    const auto vector = [&] { return AcGeVector3d(real(), real(), real()); };
    const std::string name = Text(input, 40), code = Text(input, 40), key = Text(input, 40);
    const std::string verbatim = std::to_string(whole());  // not escaped
    const PartPlacement placement = {AcGePoint3d(real(), 0, real()), vector(), vector()};
    const PartSystem system = {whole(), whole()};
    const PartProduct product = {name, code, key, key};
    Check(ManifoldCommand(system, placement, verbatim), {"Part", "Geometry", "Shape"}, verbatim, &placement);
    Check(ConnectedDeviceCommand({name, verbatim, key, code}, name, placement, key),
          {"Part", "Connection", "ConnectedTo"}, key, &placement);
    const RadiatorData radiator = {whole(), whole(), real(), whole(), whole(), 1, 2};
    Check(RadiatorCommand(product, whole(), placement, radiator, {1, "valve", "family", "key"}), {"Usercode"}, code);
    Check(AirTerminalCommand(product, whole(), placement, {verbatim, real(), whole(), whole()}), {"KPDClass", "Name"},
          name, &placement);
    const PipeData pipe = {system, vector(), name, real(), real(), true};
    Check(PipeCommand(key, placement.position, pipe, whole()), {"Part", "Serie", "ID"}, name);
    Check(CustomObjectCommand(placement, {whole(), name, code, key}), {"Part", "Geometry", "Layer", "Name"}, key);
    ConnectionStub stub = {input.PickValueInArray({"Radiator", "Fan", "Nbranch", "?"}), verbatim, system, name};
    for (double* number :
         {&stub.flow, &stub.pressureDrop, &stub.curveFlow, &stub.curvePressureDrop, &stub.heatingPower})
        *number = real();
    stub.attenuation = SoundBands{real(), 1, 2, 3, 4, 5, 6, real()};
    stub.connections.assign(2, {placement, real(), real()});
    Check(ConnectionStubCommand(stub), {"CustomPartType"}, name);
    return 0;
}
