// Connections between parts. They are kept on both sides: each part lists the handles of its neighbours, "0" where
// nothing is connected.
// Contract: rows A13.
#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

#include "ProjectTree.h"

namespace bench::klimora {

std::vector<TiXmlElement*> ConnectionsOf(const TiXmlElement* part);
bool IsConnectedHandle(const std::string& handle);  // neither empty nor "0"
// The part's connection to `oldHandle` leads to `newHandle` from now on; false when it has none.
bool Rewire(TiXmlElement* part, const std::string& oldHandle, const std::string& newHandle);
// Takes the part's first free connection, or a further one, for `handle`.
void ConnectTo(TiXmlElement* part, const std::string& handle);
// Every neighbour's connection to `handle` becomes free.
void DisconnectAll(const ProjectTree& project, const std::string& handle);

}  // namespace bench::klimora
