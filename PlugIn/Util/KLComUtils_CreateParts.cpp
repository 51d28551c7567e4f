#include <windows.h>

#include "Util/KLComUtils.h"

#include "Lib/ExceptionReport.h"
#include "Util/KLComUtils_CreatePartsCommands.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_CreateParts";
constexpr int kLengthCoefficientVersion = 20090300;

// Sends a command and gives the handle of the new part. What went wrong is told by the caller's report alone, so the
// exception carries no words.
std::string Created(KlimComSrvImpl* server, const std::string& command) {
    std::string reply;
    if (!server || server->createPart(command.c_str(), reply) != 0) throw "";
    return reply;
}

// The end of a failed creation, inside its handler: the report, and an empty handle.
std::string NotCreated(const char* message, int line, const char* function) {
    ReportException(message, kSource, line, function);
    return std::string();
}

}  // namespace

std::string KLComUtils::CreateManifold(const PartSystem& system, const PartPlacement& placement,
                                       const std::string& shape) {
    try {
        return Created(Server(), ManifoldCommand(system, placement, shape));
    } catch (...) {
        return NotCreated("Failed to create manifold.", 38, "KLComUtils::CreateManifold");
    }
}

std::string KLComUtils::CreateValve(const PartProduct& product, const std::string& typeDefine,
                                    const PartPlacement& placement, const std::string& connectedPart) {
    try {
        return Created(Server(), ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    } catch (...) {
        return NotCreated("Failed to create valve.", 76, "KLComUtils::CreateValve");
    }
}

std::string KLComUtils::CreateRadiator(const PartProduct& product, int systemId, const PartPlacement& placement,
                                       const RadiatorData& radiator, const RadiatorValve& valve) {
    try {
        return Created(Server(), RadiatorCommand(product, systemId, placement, radiator, valve));
    } catch (...) {
        return NotCreated("Failed to create radiator.", 133, "KLComUtils::CreateRadiator");
    }
}

std::string KLComUtils::CreateAirTerminalDevice(const PartProduct& product, int systemId,
                                                const PartPlacement& placement, const AirTerminalData& terminal) {
    try {
        return Created(Server(), AirTerminalCommand(product, systemId, placement, terminal));
    } catch (...) {
        return NotCreated("Failed to create air terminal device.", 173, "KLComUtils::CreateAirTerminalDevice");
    }
}

std::string KLComUtils::CreateDuctDevice(const PartProduct& product, const std::string& typeDefine,
                                         const PartPlacement& placement, const std::string& connectedPart) {
    try {
        return Created(Server(), ConnectedDeviceCommand(product, typeDefine, placement, connectedPart));
    } catch (...) {
        return NotCreated("Failed to create duct device.", 210, "KLComUtils::CreateDuctDevice");
    }
}

std::string KLComUtils::CreateConnectionStub(const ConnectionStub& stub) {
    try {
        std::string reply;
        if (!server_ || Server()->createConnectionStub(ConnectionStubCommand(stub).c_str(), reply) != 0) throw "";
        return reply;
    } catch (...) {
        return NotCreated("Failed to create connection stub.", 372, "KLComUtils::CreateConnectionStub");
    }
}

std::string KLComUtils::CreatePipe(const std::string& firstPart, const std::string& secondPart, const PipeData& pipe) {
    return CreatePipeBetween(PipeEnd(firstPart), PipeEnd(secondPart), pipe);
}

std::string KLComUtils::CreatePipe(const std::string& firstPart, const AcGePoint3d& secondEnd, const PipeData& pipe) {
    return CreatePipeBetween(PipeEnd(firstPart), PipeEnd(secondEnd), pipe);
}

std::string KLComUtils::CreatePipe(const AcGePoint3d& firstEnd, const std::string& secondPart, const PipeData& pipe) {
    return CreatePipeBetween(PipeEnd(firstEnd), PipeEnd(secondPart), pipe);
}

std::string KLComUtils::CreatePipe(const AcGePoint3d& firstEnd, const AcGePoint3d& secondEnd, const PipeData& pipe) {
    return CreatePipeBetween(PipeEnd(firstEnd), PipeEnd(secondEnd), pipe);
}

std::string KLComUtils::CreatePipeBetween(const std::string& firstEnd, const std::string& secondEnd,
                                          const PipeData& pipe) {
    try {
        const BendForm bendForm =
            ServerVersion() >= kLengthCoefficientVersion ? BendForm::kLengthCoefficient : BendForm::kRadiusCoefficient;
        return Created(Server(), PipeCommand(firstEnd, secondEnd, pipe, bendForm));
    } catch (...) {
        return NotCreated("Failed to create pipe.", 444, "KLComUtils::CreatePipe");
    }
}
