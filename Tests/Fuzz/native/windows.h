// What PlugIn/Lib/Handles.h names of Windows, for units that are compiled for Linux. None of it is called.
#pragma once

using HANDLE = void*;
using HMODULE = void*;
using HGLOBAL = void*;
const HANDLE INVALID_HANDLE_VALUE = nullptr;
void CloseHandle(HANDLE);
void FindClose(HANDLE);
void FreeLibrary(HMODULE);
void GlobalFree(HGLOBAL);
void* GlobalLock(HGLOBAL);
void GlobalUnlock(HGLOBAL);
