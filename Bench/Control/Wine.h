// Whether the bench runs under Wine. Everything that has to be done or expected differently there asks this function.
#pragma once

#include <windows.h>

namespace bench {

inline bool RunsUnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}  // namespace bench
