// The version resource of a loaded module.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// Returns the fixed part of the version resource, or nothing when the module is null or has none.
std::optional<VS_FIXEDFILEINFO> ReadVersionResource(HMODULE module);

// Returns "major.minor.build.revision", or an empty text when the module is not loaded or has no version resource.
std::string ModuleFileVersion(const char* moduleName);
