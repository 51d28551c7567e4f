#include "Proxy.h"

#include <windows.h>
#include <wininet.h>

#include <stdexcept>

#include "Wine.h"

namespace bench {
namespace {

// WinINet under Wine takes its proxy from the environment variable, which it reads through the C runtime; each runtime
// of the process keeps its own copy of the environment, so all of them are told.
void PutIntoRuntimes(const std::string& assignment) {
    for (const char* runtime : {"ucrtbase.dll", "msvcrt.dll"}) {
        const HMODULE module = LoadLibraryA(runtime);
        if (!module) continue;
        using PutEnvironment = int(__cdecl*)(const char*);
        const FARPROC putEnvironment = GetProcAddress(module, "_putenv");
        if (putEnvironment)
            reinterpret_cast<PutEnvironment>(reinterpret_cast<void*>(putEnvironment))(assignment.c_str());
    }
}

// INTERNET_OPTION_PROXY without a handle sets the proxy of the process, as documented for InternetSetOption. Not run on
// Windows yet; Wine ignores it.
void SetProcessProxy(const std::wstring& address) {
    INTERNET_PROXY_INFO proxy = {INTERNET_OPEN_TYPE_PROXY, address.c_str(), nullptr};
    if (!InternetSetOptionW(nullptr, INTERNET_OPTION_PROXY, &proxy, sizeof proxy))
        throw std::runtime_error("WinINet refuses the proxy with error " + std::to_string(GetLastError()));
}

}  // namespace

void UseProxy(const std::string& address) {
    if (RunsUnderWine())
        PutIntoRuntimes("http_proxy=" + address);
    else
        SetProcessProxy(std::wstring(address.begin(), address.end()));
    SetEnvironmentVariableA("http_proxy", address.c_str());
}

}  // namespace bench
