#include "Proxy.h"

#include <windows.h>

namespace bench {
namespace {

const char kVariable[] = "http_proxy";

// An empty value takes the variable away.
void TellEveryRuntime(const std::string& value) {
    const std::string setting = std::string(kVariable) + '=' + value;
    for (const char* runtime : {"ucrtbase.dll", "msvcrt.dll"}) {
        const HMODULE module = LoadLibraryA(runtime);
        if (!module) continue;
        using PutEnvironment = int(__cdecl*)(const char*);
        const FARPROC address = GetProcAddress(module, "_putenv");
        if (const auto putEnvironment = reinterpret_cast<PutEnvironment>(reinterpret_cast<void*>(address)))
            putEnvironment(setting.c_str());
    }
    SetEnvironmentVariableA(kVariable, value.empty() ? nullptr : value.c_str());
}

}  // namespace

Proxy::Proxy(int port) {
    char value[512] = "";
    const DWORD length = GetEnvironmentVariableA(kVariable, value, sizeof value);
    if (length > 0 && length < sizeof value) before_ = value;
    TellEveryRuntime("127.0.0.1:" + std::to_string(port));
}

Proxy::~Proxy() {
    TellEveryRuntime(before_);
}

}  // namespace bench
