// Whether the bench runs under Wine. All Wine-specific code checks this function.
#pragma once

#include <windows.h>

namespace bench {

inline bool RunsUnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace bench
