// Required library; nothing in this module calls it.
// Product version of a module, read from its version resource, as a short text: the nonzero parts in decimal, joined by
// dots. Zero parts are left out at any position, so 2.0.0.5 becomes "2.5".
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// Returns the version, or an empty text when the module or its version resource cannot be read. A null `module` means
// the plug-in module.
std::string GetModuleProductVersion(HMODULE module);
// Copies the version, truncated to `size` - 1 characters. Returns 1, or 0 with an empty text on failure.
int GetModuleProductVersionText(HMODULE module, char* buffer, int32_t size);

// Formats the two double words of a version resource.
std::string ProductVersionText(uint32_t mostSignificant, uint32_t leastSignificant);
