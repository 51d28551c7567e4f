#include "Util/DlgFunc_Version.h"

#include <optional>

#include "ModuleNames.h"
#include "Util/GlobalMemory.h"

namespace {

constexpr int32_t kVersionTag = 5332;

std::optional<std::string> ReadProductVersion(HMODULE module) {
    if (!module) module = GetModuleHandleA(kModuleFileName);
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
    const VS_FIXEDFILEINFO& info = *static_cast<const VS_FIXEDFILEINFO*>(found);
    return ProductVersionText(info.dwProductVersionMS, info.dwProductVersionLS);
}

}  // namespace

std::string ProductVersionText(uint32_t mostSignificant, uint32_t leastSignificant) {
    std::string text;
    for (const int part :
         {HIWORD(mostSignificant), LOWORD(mostSignificant), HIWORD(leastSignificant), LOWORD(leastSignificant)}) {
        if (part == 0) continue;
        if (!text.empty()) text += '.';
        text += std::to_string(part);
    }
    return text;
}

std::string GetModuleProductVersion(HMODULE module) {
    return ReadProductVersion(module).value_or(std::string());
}

int GetModuleProductVersionText(HMODULE module, char* buffer, int32_t size) {
    if (!buffer || size <= 0) return 0;
    *buffer = '\0';
    const std::optional<std::string> version = ReadProductVersion(module);
    if (!version) return 0;
    buffer[version->copy(buffer, static_cast<size_t>(size) - 1)] = '\0';
    return 1;
}
