#include "Util/ModuleVersion.h"

#include "Lib/FormatText.h"
#include "Util/ExportedMemory.h"

namespace {

constexpr int32_t kVersionTag = 5332;

}  // namespace

std::optional<VS_FIXEDFILEINFO> ReadVersionResource(HMODULE module) {
    char path[MAX_PATH] = "";
    if (!module || GetModuleFileNameA(module, path, MAX_PATH) == 0) return {};
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &ignored);
    if (size == 0) return {};
    const GwMemory resource(gwGmalloc(size, kVersionTag));
    if (!resource || !GetFileVersionInfoA(path, 0, size, resource.get())) return {};
    void* found = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(resource.get(), "\\", &found, &length) || length < sizeof(VS_FIXEDFILEINFO)) return {};
    return *static_cast<const VS_FIXEDFILEINFO*>(found);
}

std::string ModuleFileVersion(const char* moduleName) {
    const std::optional<VS_FIXEDFILEINFO> info = ReadVersionResource(GetModuleHandleA(moduleName));
    if (!info) return std::string();
    return FormatString("%d.%d.%d.%d", HIWORD(info->dwFileVersionMS), LOWORD(info->dwFileVersionMS),
                        HIWORD(info->dwFileVersionLS), LOWORD(info->dwFileVersionLS));
}
