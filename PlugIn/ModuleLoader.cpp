#include "ModuleLoader.h"

#include <cstring>
#include <string>

#include "acedads.h"

#include "Lib/CommandLine.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"

namespace {

constexpr char kArxEnding[] = ".ARX";

bool NamesArxModule(const char* upperCasedName) {
    return std::strstr(upperCasedName, kArxEnding) != nullptr;
}

}  // namespace

ModuleRecord g_modules[1] = {{"Kgeom310.dll", nullptr}};

int GetModuleFolder(const char* moduleName, char* buffer, size_t size) {
    if (!buffer || size == 0) return -1;
    buffer[0] = '\0';
    const HMODULE module = GetModuleHandleA(moduleName);
    if (!module) return -1;
    char path[MAX_PATH] = "";
    // A failure leaves the path empty.
    if (GetModuleFileNameA(module, path, MAX_PATH) >= MAX_PATH) return -1;
    const char* lastBackslash = std::strrchr(path, '\\');
    if (!lastBackslash) return -1;
    const size_t folderLength = static_cast<size_t>(lastBackslash - path);
    if (folderLength >= size) return -1;
    std::memcpy(buffer, path, folderLength);
    buffer[folderLength] = '\0';
    return 0;
}

int LoadModule(ModuleRecord& record, const char* folder) {
    const std::string path = ToUpper(std::string(folder) + "\\" + record.name);
    if (NamesArxModule(path.c_str())) {
        if (acedArxLoad(Widen(path).c_str()) < 1) {
            PrintCommandLine("Error: %d - cannot load arx-module: %s\n", static_cast<int>(GetLastError()),
                             path.c_str());
            return -2;
        }
        return 0;
    }
    record.handle = LoadLibraryA(path.c_str());
    if (!record.handle) {
        PrintCommandLine("Error: %d - cannot load dll-module <%s>\n", static_cast<int>(GetLastError()), path.c_str());
        return -1;
    }
    return 0;
}

int LoadModules(ModuleRecord* records, size_t count) {
    char folder[MAX_PATH] = "";
    if (GetModuleFolder(kModuleFileName, folder, sizeof folder) == 0) SetCurrentDirectoryA(folder);
    for (size_t i = 0; i < count; ++i) {
        if (LoadModule(records[i], folder) == 0) continue;
        PrintCommandLine("Errors in modules - Application not loaded\n");
        PrintCommandLine("Module not loaded: %d\n", static_cast<int>(i));
        FreeModules(records, count);
        return -1;
    }
    PrintCommandLine("\n%s successfully loaded.\n", kDisplayName);
    return 0;
}

void FreeModules(ModuleRecord* records, size_t count) {
    for (size_t i = 0; i < count; ++i) {
        if (!records[i].handle || NamesArxModule(records[i].name)) continue;
        FreeLibrary(records[i].handle);
        records[i].handle = nullptr;
    }
}

HMODULE FindModuleHandle(const ModuleRecord* records, size_t count, const char* name) {
    for (size_t i = 0; i < count; ++i) {
        if (std::strncmp(records[i].name, name, std::strlen(name)) == 0) return records[i].handle;
    }
    return nullptr;
}
