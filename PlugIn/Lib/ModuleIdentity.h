// Names under which the module, its command and its service are known, and the module's own handle.
#pragma once

#include <windows.h>

// Starts every line on the command line and is the caption of the message boxes.
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
