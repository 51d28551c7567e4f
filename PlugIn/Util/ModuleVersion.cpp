#include <windows.h>

#include "Util/ModuleVersion.h"

#include <vector>

#include "Lib/FormatText.h"

std::string ModuleFileVersion(const char* moduleName) {
    const HMODULE module = GetModuleHandleA(moduleName);
    char path[MAX_PATH] = "";
    if (!module || GetModuleFileNameA(module, path, MAX_PATH) == 0) return std::string();
    DWORD ignored = 0;
    std::vector<char> resource(GetFileVersionInfoSizeA(path, &ignored));
    if (resource.empty() || !GetFileVersionInfoA(path, 0, static_cast<DWORD>(resource.size()), resource.data()))
        return std::string();
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(resource.data(), "\\", &found, &length) || length < sizeof(VS_FIXEDFILEINFO))
        return std::string();
    const VS_FIXEDFILEINFO& info = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return FormatString("%d.%d.%d.%d", HIWORD(info.dwFileVersionMS), LOWORD(info.dwFileVersionMS),
                        HIWORD(info.dwFileVersionLS), LOWORD(info.dwFileVersionLS));
}
