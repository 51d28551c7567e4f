// What the units of Registry share: the owner of an open key and the two ways to get one (an empty owner when Windows
// refuses), and the source of their reports.
#pragma once

#include <windows.h>

#include <cstdint>

#include "Handles.h"

using RegistryKey = Owner<HKEY, RegCloseKey>;

inline constexpr char kRegistrySource[] = "PlugIn/Lib/Registry";

inline RegistryKey OpenKey(HKEY root, const char* path, uint32_t accessMask) {
    HKEY key = nullptr;
    return RegistryKey(RegOpenKeyExA(root, path, 0, accessMask, &key) == ERROR_SUCCESS ? key : nullptr);
}

// Opens the key when it is there already.
inline RegistryKey MakeKey(HKEY root, const char* path, uint32_t accessMask) {
    HKEY key = nullptr;
    const LSTATUS status =
        RegCreateKeyExA(root, path, 0, nullptr, REG_OPTION_NON_VOLATILE, accessMask, nullptr, &key, nullptr);
    return RegistryKey(status == ERROR_SUCCESS ? key : nullptr);
}
