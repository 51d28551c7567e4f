// Reading of project files. A file is XML with the root KlimoraProject and the children dwg, Project and Parts; what
// the server relies on later is checked here, so that an open project is a whole one. Sizes and lengths are in mm,
// airflows in l/s, points in mm in world coordinates.
#pragma once

#include <string>

#include "ProjectTree.h"

namespace bench::klimora {

// Refuses with the reason when the text is no project. Fills in what parts take from their system (system type).
ProjectTree ReadProject(const std::string& xml);
// Contents of a file; refuses when it cannot be read.
std::string ReadFile(const std::string& file);

}  // namespace bench::klimora
