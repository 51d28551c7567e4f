// Placement of a new pipe from its two ends: where it starts, where it leads and how long it is.
#pragma once

#include <tinyxml.h>

#include "ProjectTree.h"

namespace bench::klimora {

// Exactly two ends are needed, each a connected part (whose position counts) or a free position, and they must not fall
// together; a free end becomes a connection to "0". Refused otherwise.
void PlacePipe(const ProjectTree& project, TiXmlElement* pipe);

}  // namespace bench::klimora
