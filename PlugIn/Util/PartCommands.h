// Required library; nothing in this module calls it.
// The XML commands that create Klimora parts. Each function returns one text without line breaks; none sends anything.
#pragma once

#include <string>

#include "Util/PartArguments.h"

std::string ManifoldCommand(const PartSystem& system, const PartPlacement& placement, const std::string& shape);
// A valve or a duct device, connected to a part.
std::string ConnectedDeviceCommand(const PartProduct& product, const std::string& typeDefine,
                                   const PartPlacement& placement, const std::string& connectedPart);
std::string RadiatorCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                            const RadiatorData& radiator, const RadiatorValve& valve);
std::string AirTerminalCommand(const PartProduct& product, int systemId, const PartPlacement& placement,
                               const AirTerminalData& terminal);
// The element of the bend depends on the server's version.
std::string PipeCommand(const PipeEnd& firstEnd, const PipeEnd& secondEnd, const PipeData& pipe, int serverVersion);
std::string CustomObjectCommand(const PartPlacement& placement, const CustomObjectData& object);
// Returns the value of a part's line type definition: four line types on that layer.
std::string LinetypeDefinition(const std::string& layer);
