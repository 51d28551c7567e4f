// Attribute calls of clients: reading and writing of values, and the taking over of binary variables by attributes that
// name one. All refuse (Refusal) what they cannot do.
// Contract: rows B6.
#pragma once

#include <string>
#include <vector>

#include "Server.h"

namespace bench::klimora {

std::string GetAttribute(const Server& server, const std::string& part, const std::string& path);
std::vector<double> GetReals(const Server& server, const std::string& part, const std::string& path, size_t count);
// A binary variable's contents stay beside its number, in hexadecimal, as the element Data.
void SetAttribute(Server& server, const std::string& part, const std::string& path, const std::string& value);

}  // namespace bench::klimora
