// The fake web server and a WinINet client: every fault of a connection.
#include "WebServer.h"

#include <windows.h>
#include <wininet.h>

#include "BenchControl.h"
#include "gmock/gmock.h"

using bench::ServerFault;

namespace {

std::string ReadAll(HINTERNET request) {
    std::string body;
    char buffer[1024];
    DWORD read = 0;
    while (InternetReadFile(request, buffer, sizeof buffer, &read)) {
        if (read == 0) return body;
        body.append(buffer, read);
    }
    return "read failed";
}

// Makes the same calls as the module's download, because the effect of a reset depends on them.
std::string Download() {
    const HINTERNET session = InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    const HINTERNET request =
        InternetOpenUrlA(session, "http://klimora.sorvik.example/file", nullptr, 0,
                         INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI, 0);
    const std::string result = request ? ReadAll(request) : "not opened";
    InternetCloseHandle(request);
    InternetCloseHandle(session);
    return result;
}

TEST(WebServer, ProducesEachFault) {
    const std::string body(10000, 'x');
    const std::pair<ServerFault, std::string> cases[] = {
        {ServerFault::kNone, body},
        {ServerFault::kNotFound,
         "<html><head><title>404</title></head><body><p>The page was not found.<br></body></html>\n"},
        {ServerFault::kTruncated, body.substr(0, 5000)},
        {ServerFault::kReset, "read failed"},
        {ServerFault::kRefused, "not opened"},
        {ServerFault::kStalled, body},
    };
    bench::ResetBench();
    bench::WebServer server(SORVIK_CATALOGUE);
    server.UseAsProxy();
    server.Serve("/file", body);
    server.SetFault("/f", ServerFault::kNotFound);
    for (const auto& [fault, result] : cases) {
        server.SetFault("/fi", fault);  // the longer path counts
        EXPECT_EQ(Download(), result) << static_cast<int>(fault);
    }
    bench::ResetBench();
}

}  // namespace
