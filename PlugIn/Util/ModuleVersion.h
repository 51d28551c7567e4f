// File version of a loaded module, from its version resource.
#pragma once

#include <string>

// "major.minor.build.revision" in decimal; empty when the module is not loaded or has no version resource.
std::string ModuleFileVersion(const char* moduleName);
