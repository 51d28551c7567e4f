// Commands that act on parts. What they make is real: an entity in the drawing and a part whose attributes can be read
// afterwards; what they erase is gone from both. A refused command (Refusal) leaves drawing and project as they were.
// Contract: rows D3 to D7.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

// Both return the handle of the new part. A pipe is placed between its two ends, each a connected part (whose position
// counts) or a free position.
std::string CreatePart(Server& server, const std::string& command);
std::string CreateConnectionStub(Server& server, const std::string& command);
std::string ErasePart(Server& server, const std::string& command);
// Commands whose elements are not settled: well-formed XML is taken and nothing is done.
std::string TakeCommand(Server& server, const std::string& command);

}  // namespace bench::klimora
