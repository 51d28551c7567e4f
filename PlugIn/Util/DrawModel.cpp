#include "Util/DrawModel.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "Lib/Diagnostics.h"
#include "Util/DlgFunc_Text.h"

namespace {

constexpr size_t kTextLimit = 1024;
constexpr int32_t kTokenSize = 128;

void Append(std::string& text, std::string_view more) {
    text += more.substr(0, kTextLimit - text.size());
}

void AppendPair(std::string& text, std::string_view name, std::string_view value) {
    Append(text, name);
    Append(text, "=");
    Append(text, value);
    Append(text, ";");
}

}  // namespace

int SetKModelParam(char* params, int32_t paramsLen, const char* name, const char* value) {
    if (VerifyOrReport(paramsLen < 0 || paramsLen > static_cast<int32_t>(kTextLimit), "sizeof(_new_params)<_params_len",
                       "params len is too long.", "PlugIn/Util/DrawModel", 509, "SetKModelParam")) {
        return -1;
    }
    // An earlier call may have left the buffer without a terminator.
    const std::string given(params, std::find(params, params + paramsLen, '\0'));
    const std::string_view wanted = name;
    std::string text;
    bool found = false;
    char token[kTokenSize];
    for (const char* rest = given.c_str(); (rest = gwgetsubstring(token, rest, ';', 0, kTokenSize)) != nullptr;) {
        const std::string_view pair = token;
        if (pair.empty()) continue;
        const size_t equals = std::min(pair.find('='), pair.size());
        const std::string_view pairName = pair.substr(0, equals);
        const std::string_view pairValue = pair.substr(std::min(equals + 1, pair.size()));
        const bool replaced = pairName == wanted;
        AppendPair(text, pairName, replaced ? std::string_view(value) : pairValue);
        found = found || replaced;
    }
    if (!found) AppendPair(text, wanted, value);
    std::strncpy(params, text.c_str(), static_cast<size_t>(paramsLen));
    return 0;
}

int RemoveKModelParam(char* params, const char* name) {
    char* const at = std::strstr(params, (std::string(name) + "=").c_str());
    if (!at) return -1;
    const char* const end = std::strchr(at, ';');
    const char* const rest = end ? end + 1 : at + std::strlen(at);
    std::memmove(at, rest, std::strlen(rest) + 1);
    return 0;
}
