// Product version of a module, from its version resource, as a short text: each part that is not 0, in decimal, joined
// by dots. Parts of 0 are left out wherever they stand, so 2.0.0.5 reads "2.5".
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

// `module` null means the plug-in module. Empty when the module or its version resource cannot be read.
std::string GetModuleProductVersion(HMODULE module);
// The same, cut to `size` - 1 characters and terminated. 1; on failure 0 and an empty text.
int GetModuleProductVersionText(HMODULE module, char* buffer, int32_t size);

// The text of a product version as the version resource holds it: two words, most significant first.
std::string ProductVersionText(uint32_t mostSignificant, uint32_t leastSignificant);
