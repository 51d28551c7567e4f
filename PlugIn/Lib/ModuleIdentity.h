// Names under which the module, its command and its service are known, and the module's own handle.
#pragma once

#include <windows.h>

// The name that users see: in messages on the command line, and as the caption of message boxes. The boxes of the
// user-code dialog add the version.
inline constexpr char kDisplayName[] = "Sorvik Klimora Cloud Plugin";

inline constexpr char kModuleFileName[] = "Sorvik_R24_x64.arx";
inline constexpr char kSilencerCommand[] = "SorvSIL";
inline constexpr wchar_t kCommandGroup[] = L"SORV_CMDS";
inline constexpr wchar_t kSilencerCommandWide[] = L"SorvSIL";
inline constexpr wchar_t kServiceName[] = L"SORV";

// Null while no module of that name is loaded.
inline HINSTANCE ModuleHandle() noexcept {
    return GetModuleHandleA(kModuleFileName);
}
