// Parts and their entities in the drawing: a part's handle is its entity's. The two are made and taken away together.
#pragma once

#include <tinyxml.h>

#include <string>

#include "ProjectTree.h"

namespace bench::klimora {

// Layer of a part: its geometry's, else its system's, else "KLIMORA".
std::string LayerOf(const ProjectTree& project, const TiXmlElement* part);
// Puts an entity for the part into the drawing, under the part's handle or, when it has none, under the next free one,
// which the part then carries. Refuses when the drawing does not take it.
std::string AddPartEntity(const ProjectTree& project, TiXmlElement* part);
// Sees to an entity for every part: one that stands there as a part under its handle serves, a missing one is added.
// Refuses, with none added, when a handle is something else's or cannot be had.
void AddMissingEntities(const ProjectTree& project);

}  // namespace bench::klimora
