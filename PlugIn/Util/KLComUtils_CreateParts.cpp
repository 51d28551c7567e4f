#include "Util/KLComUtils.h"

#include "Lib/ExceptionReport.h"
#include "Util/ConnectionStubCommand.h"
#include "Util/PartCommands.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_CreateParts";

}  // namespace

std::string KLComUtils::Create(Creation creation, const std::string& command) {
    std::string reply;
    if (!server_ || ((*Server()).*creation)(command.c_str(), reply) != 0) throw kNoDetails;
    return reply;
}

std::string KLComUtils::CreateManifold(const PartSystem& system, const PartPlacement& placement,
                                       const std::string& shape) {
    constexpr ReportSite kSite = {"Failed to create manifold.", kSource, 38, "KLComUtils::CreateManifold"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart, ManifoldCommand(system, placement, shape));
    });
}

std::string KLComUtils::CreateValve(const PartProduct& product, const std::string& typeDefine,
                                    const PartPlacement& placement, const std::string& connectedPart) {
    constexpr ReportSite kSite = {"Failed to create valve.", kSource, 76, "KLComUtils::CreateValve"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart,
                      ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    });
}

std::string KLComUtils::CreateRadiator(const PartProduct& product, int systemId, const PartPlacement& placement,
                                       const RadiatorData& radiator, const RadiatorValve& valve) {
    constexpr ReportSite kSite = {"Failed to create radiator.", kSource, 133, "KLComUtils::CreateRadiator"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart, RadiatorCommand(product, systemId, placement, radiator, valve));
    });
}

std::string KLComUtils::CreateAirTerminalDevice(const PartProduct& product, int systemId,
                                                const PartPlacement& placement, const AirTerminalData& terminal) {
    constexpr ReportSite kSite = {"Failed to create air terminal device.", kSource, 173,
                                  "KLComUtils::CreateAirTerminalDevice"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart, AirTerminalCommand(product, systemId, placement, terminal));
    });
}

std::string KLComUtils::CreateDuctDevice(const PartProduct& product, const std::string& typeDefine,
                                         const PartPlacement& placement, const std::string& connectedPart) {
    constexpr ReportSite kSite = {"Failed to create duct device.", kSource, 210, "KLComUtils::CreateDuctDevice"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart,
                      ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    });
}

std::string KLComUtils::CreateConnectionStub(const ConnectionStub& stub) {
    constexpr ReportSite kSite = {"Failed to create connection stub.", kSource, 372,
                                  "KLComUtils::CreateConnectionStub"};
    return ReportOnThrow(kSite, std::string(),
                         [&] { return Create(&KlimComSrvImpl::createConnectionStub, ConnectionStubCommand(stub)); });
}

std::string KLComUtils::CreatePipe(const PipeEnd& firstEnd, const PipeEnd& secondEnd, const PipeData& pipe) {
    constexpr ReportSite kSite = {"Failed to create pipe.", kSource, 444, "KLComUtils::CreatePipe"};
    return ReportOnThrow(kSite, std::string(), [&] {
        return Create(&KlimComSrvImpl::createPart, PipeCommand(firstEnd, secondEnd, pipe, ServerVersion()));
    });
}
