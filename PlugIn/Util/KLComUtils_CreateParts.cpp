#include <windows.h>

#include "Util/KLComUtils.h"

#include "Lib/ExceptionReport.h"
#include "Util/KLComUtils_CreatePartsCommands.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_CreateParts";

// Returns the handle of a new part, or an empty text after the report.
template <class Work>
std::string Created(const char* failure, int line, const char* function, Work work) {
    try {
        return work();
    } catch (...) {
        ReportException(failure, kSource, line, function);
        return std::string();
    }
}

}  // namespace

std::string KLComUtils::Create(Creation creation, const std::string& command) {
    std::string reply;
    if (!server_ || ((*Server()).*creation)(command.c_str(), reply) != 0) throw "";
    return reply;
}

std::string KLComUtils::CreateManifold(const PartSystem& system, const PartPlacement& placement,
                                       const std::string& shape) {
    return Created("Failed to create manifold.", 38, "KLComUtils::CreateManifold",
                   [&] { return Create(&KlimComSrvImpl::createPart, ManifoldCommand(system, placement, shape)); });
}

std::string KLComUtils::CreateValve(const PartProduct& product, const std::string& typeDefine,
                                    const PartPlacement& placement, const std::string& connectedPart) {
    return Created("Failed to create valve.", 76, "KLComUtils::CreateValve", [&] {
        return Create(&KlimComSrvImpl::createPart,
                      ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    });
}

std::string KLComUtils::CreateRadiator(const PartProduct& product, int systemId, const PartPlacement& placement,
                                       const RadiatorData& radiator, const RadiatorValve& valve) {
    return Created("Failed to create radiator.", 133, "KLComUtils::CreateRadiator", [&] {
        return Create(&KlimComSrvImpl::createPart, RadiatorCommand(product, systemId, placement, radiator, valve));
    });
}

std::string KLComUtils::CreateAirTerminalDevice(const PartProduct& product, int systemId,
                                                const PartPlacement& placement, const AirTerminalData& terminal) {
    return Created("Failed to create air terminal device.", 173, "KLComUtils::CreateAirTerminalDevice", [&] {
        return Create(&KlimComSrvImpl::createPart, AirTerminalCommand(product, systemId, placement, terminal));
    });
}

std::string KLComUtils::CreateDuctDevice(const PartProduct& product, const std::string& typeDefine,
                                         const PartPlacement& placement, const std::string& connectedPart) {
    return Created("Failed to create duct device.", 210, "KLComUtils::CreateDuctDevice", [&] {
        return Create(&KlimComSrvImpl::createPart,
                      ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    });
}

std::string KLComUtils::CreateConnectionStub(const ConnectionStub& stub) {
    return Created("Failed to create connection stub.", 372, "KLComUtils::CreateConnectionStub",
                   [&] { return Create(&KlimComSrvImpl::createConnectionStub, ConnectionStubCommand(stub)); });
}

std::string KLComUtils::CreatePipe(const PipeEnd& firstEnd, const PipeEnd& secondEnd, const PipeData& pipe) {
    return Created("Failed to create pipe.", 444, "KLComUtils::CreatePipe", [&] {
        return Create(&KlimComSrvImpl::createPart, PipeCommand(firstEnd, secondEnd, pipe, ServerVersion()));
    });
}
