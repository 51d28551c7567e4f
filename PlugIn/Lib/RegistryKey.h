// Required library; nothing in this module calls it.
// Shared by the units of Registry: the owner of an open key, the functions that open one (they return an empty owner on
// failure), and the source in reports.
#pragma once

#include <windows.h>

#include <cstdint>

#include "Lib/Handles.h"

using RegistryKey = Owner<HKEY, RegCloseKey>;

inline constexpr char kRegistrySource[] = "PlugIn/Lib/Registry";

inline RegistryKey OpenKey(HKEY root, const char* path, uint32_t accessMask) {
    HKEY key = nullptr;
    return RegistryKey(RegOpenKeyExA(root, path, 0, accessMask, &key) == ERROR_SUCCESS ? key : nullptr);
}

// Creates the key, or opens it when it exists.
inline RegistryKey MakeKey(HKEY root, const char* path, uint32_t accessMask) {
    HKEY key = nullptr;
    const LSTATUS status =
        RegCreateKeyExA(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, accessMask, nullptr, &key, nullptr);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}
