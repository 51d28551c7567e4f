// The XML commands that create Klimora parts, each one text without line breaks. Pure texts: nothing is sent here and
// nothing fails.
#pragma once

#include <string>

#include "Util/KLComUtils_CreateParts.h"

std::string ManifoldCommand(const PartSystem& system, const PartPlacement& placement, const std::string& shape);
// A valve or a duct device, connected to a part.
std::string ConnectedDeviceCommand(const PartProduct& product, const std::string& typeDefine,
                                   const PartPlacement& placement, const std::string& connectedPart);
std::string RadiatorCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                            const RadiatorData& radiator, const RadiatorValve& valve);
std::string AirTerminalCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                               const AirTerminalData& terminal);
std::string ConnectionStubCommand(const ConnectionStub& stub);

// Where a pipe begins or ends: at a part, or free at a point.
std::string PipeEnd(const std::string& connectedPart);
std::string PipeEnd(const AcGePoint3d& position);
// Newer servers take the bend as a length coefficient, older ones as a radius coefficient.
enum class BendForm { kLengthCoefficient, kRadiusCoefficient };
std::string PipeCommand(const std::string& firstEnd, const std::string& secondEnd, const PipeData& pipe,
                        BendForm bendForm);

std::string CustomObjectCommand(const PartPlacement& placement, const CustomObjectData& object);
// The value of a part's line type definition: four line types, all on that layer.
std::string LinetypeDefinition(const std::string& layer);
