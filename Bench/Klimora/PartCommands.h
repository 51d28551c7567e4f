// Commands that act on parts. What they make is real: an entity in the drawing and a part whose attributes can be read
// afterwards; what they erase is gone from both. A refused command (Refusal) leaves drawing and project as they were.
// Contract: rows D3 to D7.
#pragma once

#include <string>

#include "Server.h"

namespace bench::klimora {

// Both return the handle of the new part.
std::string CreatePart(Server& server, const std::string& command);
std::string CreateConnectionStub(Server& server, const std::string& command);
void ErasePart(Server& server, const std::string& command);
// Commands whose elements are not settled: well-formed XML is kept in the project under Requests, in order of arrival,
// with the name of the method. SelectPart answers with the part picked last.
std::string SelectPart(Server& server, const std::string& command);
void KeepRequest(Server& server, const std::string& method, const std::string& command);

}  // namespace bench::klimora
