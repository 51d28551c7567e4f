// Loads and frees the additional modules that a build lists: plain libraries and further ARX modules. Failures are
// printed on the command line and returned as codes. The caller passes the number of records to process, which may be
// smaller than the table.
#pragma once

#include <windows.h>

#include <cstddef>

struct ModuleRecord {
    char name[48];   // file name, NUL-terminated
    HMODULE handle;  // null while not loaded, and always for ARX modules; freed by FreeModules
};

// The module's own table, and how many of its records are processed at start and unload: none in this build. Both stay
// for modules that a later build may list.
extern ModuleRecord g_modules[1];
inline constexpr size_t kWalkedModuleCount = 0;

// Writes the folder of a loaded module, without the trailing backslash. Returns 0; -1 with an empty buffer when the
// module is not loaded, or its path cannot be read or does not fit.
int GetModuleFolder(const char* moduleName, char* buffer, size_t size);

// Returns 0; -1 when a library, -2 when an ARX module cannot be loaded, after printing the failure.
int LoadModule(ModuleRecord& record, const char* folder);

// Makes the module's own folder current and loads the first `count` records. Returns 0; -1 after the first failure,
// which is printed with its index, and then frees what was loaded.
int LoadModules(ModuleRecord* records, size_t count);

// Frees the libraries among the first `count` records; ARX modules stay loaded on purpose.
void FreeModules(ModuleRecord* records, size_t count);

// Returns the handle of the first record whose name begins with `name`, null when there is none.
HMODULE FindModuleHandle(const ModuleRecord* records, size_t count, const char* name);
