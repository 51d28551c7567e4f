// Attribute calls of clients: which attributes they may write, the values that some of them take, and the taking over
// of binary variables by attributes that name one. What may not be added may only be overwritten where it is, and a
// part's type never. All refuse (Refusal) what they cannot do. Contract: rows A8, A15, A16 and B6.
#pragma once

#include <string>
#include <vector>

#include "AttributePath.h"
#include "Server.h"

namespace bench::klimora {

std::vector<double> GetReals(const Server& server, const std::string& part, const std::string& path, size_t count);
// A binary variable's contents stay beside its number, in hexadecimal, as the element Data.
void SetAttribute(Server& server, const std::string& part, const std::string& path, const std::string& value);

bool MayBeAdded(const AttributePath& path);
// Refuses a path that is read-only and a value that its attribute cannot take.
void CheckSettable(const AttributePath& path, const std::string& value);

}  // namespace bench::klimora
