// What PlugIn/Lib/Handles.h names of Windows, for units that are compiled for Linux. Only the last error's functions
// are called.
#pragma once

using DWORD = unsigned long;
using HANDLE = void*;
using HGLOBAL = void*;
const HANDLE INVALID_HANDLE_VALUE = nullptr;
void CloseHandle(HANDLE);
void FindClose(HANDLE);
void GlobalFree(HGLOBAL);
void* GlobalLock(HGLOBAL);
void GlobalUnlock(HGLOBAL);
inline DWORD GetLastError() {
    return 0;
}
inline void SetLastError(DWORD) {}
