// Loads and frees the additional modules that a build lists: plain libraries and further ARX modules. Failures are
// printed on the command line and returned as codes. The walks go over the records that the caller counts, so a table
// may hold more records than are walked.
#pragma once

#include <windows.h>

#include <cstddef>

struct ModuleRecord {
    char name[48];   // file name, NUL-terminated
    HMODULE handle;  // null while not loaded; ARX modules never get one
};

// The module's own table, and how many of its records are walked at start and unload: none in this build. Table and
// walk stay for modules that a later build may list.
extern ModuleRecord g_modules[1];
inline constexpr size_t kWalkedModuleCount = 0;

// Folder of a loaded module, without the trailing backslash. The buffer is emptied first; 0, or -1 when the module is
// not loaded or its path cannot be read or does not fit.
int GetModuleFolder(const char* moduleName, char* buffer, size_t size);

// 0, -1 (a library could not be loaded) or -2 (an ARX module could not be loaded); the failure is printed.
int LoadModule(ModuleRecord& record, const char* folder);

// Makes the module's own folder current and loads the first `count` records. 0, or -1 after the first failure, which
// is printed with its index; what was loaded is freed again.
int LoadModules(ModuleRecord* records, size_t count);

// Frees the libraries among the first `count` records; ARX modules stay loaded on purpose.
void FreeModules(ModuleRecord* records, size_t count);

// Handle of the first record whose name begins with `name`, null when there is none.
HMODULE FindModuleHandle(const ModuleRecord* records, size_t count, const char* name);
