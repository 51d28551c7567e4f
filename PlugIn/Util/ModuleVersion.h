// The version resource of a loaded module: its file version as a text, and the block of numbers itself.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

// The fixed part of the module's version resource; nothing when the module is null or has none.
std::optional<VS_FIXEDFILEINFO> ReadVersionResource(HMODULE module);

// "major.minor.build.revision" in decimal; empty when the module is not loaded or has no version resource.
std::string ModuleFileVersion(const char* moduleName);
