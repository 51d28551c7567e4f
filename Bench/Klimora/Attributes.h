// Attribute calls of clients: checks which attributes may be written and which values they accept, and copies the
// contents of a binary variable that an attribute names. Attributes that may not be added can only be overwritten; a
// part's type never changes. Invalid calls throw Refusal. Contract: rows A8, A15, A16 and B6.
#pragma once

#include <string>
#include <vector>

#include "AttributePath.h"
#include "Server.h"

namespace bench::klimora {

std::vector<double> GetReals(const Server& server, const std::string& part, const std::string& path, size_t count);
// Stores a binary variable's contents beside its number, in hexadecimal, as the element Data.
void SetAttribute(Server& server, const std::string& part, const std::string& path, const std::string& value);

bool MayBeAdded(const AttributePath& path);
// Throws Refusal for a read-only path and for a value that the attribute does not accept.
void CheckSettable(const AttributePath& path, const std::string& value);

}  // namespace bench::klimora
