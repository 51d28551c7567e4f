#include "WebServerClient.h"

#include <windows.h>
#include <wininet.h>

namespace {

const char kHost[] = "klimora.sorvik.example";

void ReadAnswer(HINTERNET request, Fetched& fetched) {
    DWORD size = sizeof fetched.status;
    HttpQueryInfoA(request, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &fetched.status, &size, nullptr);
    char buffer[1024];
    for (;;) {
        DWORD read = 0xDEAD;
        fetched.cleanEnd = InternetReadFile(request, buffer, sizeof buffer, &read) == TRUE;
        if (!fetched.cleanEnd || read == 0) return;
        fetched.body.append(buffer, read);
    }
}

}  // namespace

Fetched Fetch(const std::string& path) {
    Fetched fetched;
    const HINTERNET session = InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    const std::string address = std::string("http://") + kHost + path;
    const HINTERNET request =
        InternetOpenUrlA(session, address.c_str(), nullptr, 0,
                         INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI, 0);
    fetched.opened = request != nullptr;
    if (fetched.opened) ReadAnswer(request, fetched);
    if (request) InternetCloseHandle(request);
    InternetCloseHandle(session);
    return fetched;
}

Fetched Post(const std::string& path) {
    Fetched fetched;
    const HINTERNET session = InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    const HINTERNET connection =
        InternetConnectA(session, kHost, INTERNET_DEFAULT_HTTP_PORT, nullptr, nullptr, INTERNET_SERVICE_HTTP, 0, 0);
    const HINTERNET request = HttpOpenRequestA(connection, "POST", path.c_str(), nullptr, nullptr, nullptr,
                                               INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_UI, 0);
    fetched.opened = HttpSendRequestA(request, nullptr, 0, nullptr, 0) == TRUE;
    if (fetched.opened) ReadAnswer(request, fetched);
    InternetCloseHandle(request);
    InternetCloseHandle(connection);
    InternetCloseHandle(session);
    return fetched;
}
