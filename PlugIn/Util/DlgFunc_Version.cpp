#include "Util/DlgFunc_Version.h"

#include <optional>

#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"
#include "Util/ModuleVersion.h"

namespace {

std::optional<std::string> ReadProductVersion(HMODULE module) {
    const std::optional<VS_FIXEDFILEINFO> info = ReadVersionResource(module ? module : ModuleHandle());
    if (!info) return {};
    return ProductVersionText(info->dwProductVersionMS, info->dwProductVersionLS);
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
    CopyTruncated(buffer, static_cast<size_t>(size), *version);
    return 1;
}
