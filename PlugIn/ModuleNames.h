// Names under which the module, its command and its service are known.
#pragma once

inline constexpr char kModuleFileName[] = "Sorvik_R24_x64.arx";
inline constexpr char kSilencerCommand[] = "SorvSIL";
inline constexpr wchar_t kCommandGroup[] = L"SORV_CMDS";
inline constexpr wchar_t kSilencerCommandWide[] = L"SorvSIL";
inline constexpr wchar_t kServiceName[] = L"SORV";

// Product database in the working folder: built by the record builder, read by Klimora.
inline constexpr char kDatabaseFile[] = "output.kpd";

// Kbase and Klimora class of duct silencers.
inline constexpr char kSilencerClass[] = "dSilencerType";
