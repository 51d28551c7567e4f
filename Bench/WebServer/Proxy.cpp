#include "Proxy.h"

#include <windows.h>
#include <wininet.h>

#include <stdexcept>

#include "Wine.h"

namespace bench {
namespace {

// WinINet under Wine reads its proxy from the environment variable through the C runtime. Each C runtime in the process
// has its own copy of the environment, so all are updated.
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

// INTERNET_OPTION_PROXY without a handle sets the proxy of the process, as documented for InternetSetOption. Untested
// on Windows; Wine ignores it.
void SetProcessProxy(const std::wstring& address) {
    INTERNET_PROXY_INFO proxy = {INTERNET_OPEN_TYPE_PROXY, address.c_str(), nullptr};
    if (!InternetSetOptionW(nullptr, INTERNET_OPTION_PROXY, &proxy, sizeof proxy))
        throw std::runtime_error("WinINet rejects the proxy with error " + std::to_string(GetLastError()));
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
