// Reads project files: XML with the root KlimoraProject and the children dwg, Project and Parts. Everything that the
// server relies on later is validated here. Sizes and lengths are in mm, airflows in l/s, points in mm in world
// coordinates.
#pragma once

#include <string>

#include "ProjectTree.h"

namespace bench::klimora {

// Throws Refusal with the reason for an invalid project. Fills in the system type of each part.
ProjectTree ReadProject(const std::string& xml);
// Returns the contents of a file; throws Refusal when it cannot be read.
std::string ReadFile(const std::string& file);

}  // namespace bench::klimora
