// Commands that create and erase parts, both in the drawing and in the project. A refused command (Refusal) changes
// neither.
// Contract: rows D3 to D7.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

// The Create functions return the new part's handle. A pipe is placed between its two ends; each is a connected part's
// position or a free position.
std::string CreatePart(Server& server, const std::string& command);
std::string CreateConnectionStub(Server& server, const std::string& command);
std::string ErasePart(Server& server, const std::string& command);
// Accepts any well-formed command and does nothing, for commands whose elements are not known.
std::string TakeCommand(Server& server, const std::string& command);

}  // namespace bench::klimora
