// The fake web server and a WinINet client: the way from the products to the result, and every fault of a connection.
#include "WebServer.h"

#include <windows.h>
#include <wininet.h>

#include <algorithm>

#include "BenchControl.h"
#include "gmock/gmock.h"

using bench::ServerFault;
using testing::HasSubstr;

namespace {

const char kSession[] = "0123456789ABCDEF0123456789ABCDEF";
constexpr size_t kSize = 10000;

struct Fetched {
    bool opened = false;
    bool cleanEnd = false;  // the last InternetReadFile returned TRUE and no bytes
    DWORD status = 0;
    std::string body;
};

Fetched ReadAnswer(HINTERNET request) {
    Fetched fetched;
    fetched.opened = request != nullptr;
    DWORD size = sizeof fetched.status;
    if (fetched.opened)
        HttpQueryInfoA(request, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &fetched.status, &size, nullptr);
    char buffer[1024];
    while (fetched.opened) {
        DWORD read = 0xDEAD;
        fetched.cleanEnd = InternetReadFile(request, buffer, sizeof buffer, &read) == TRUE;
        if (!fetched.cleanEnd || read == 0) break;
        fetched.body.append(buffer, read);
    }
    return fetched;
}

// A GET makes the same calls as the module's download, because the effect of a reset depends on them.
Fetched Fetch(const char* method, const std::string& path) {
    const DWORD flags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI;
    const char host[] = "klimora.sorvik.example";
    const HINTERNET session = InternetOpenA("http generic", INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0);
    HINTERNET connection = nullptr;
    HINTERNET request = nullptr;
    Fetched fetched;
    if (std::string(method) == "GET") {
        request = InternetOpenUrlA(session, ("http://" + (host + path)).c_str(), nullptr, 0, flags, 0);
        fetched = ReadAnswer(request);
    } else {
        connection = InternetConnectA(session, host, 80, nullptr, nullptr, INTERNET_SERVICE_HTTP, 0, 0);
        request = HttpOpenRequestA(connection, method, path.c_str(), nullptr, nullptr, nullptr, flags, 0);
        fetched = ReadAnswer(HttpSendRequestA(request, nullptr, 0, nullptr, 0) ? request : nullptr);
    }
    for (const HINTERNET handle : {request, connection, session})
        if (handle) InternetCloseHandle(handle);
    return fetched;
}

class WebServer : public testing::Test {
 protected:
    WebServer() : server_(SORVIK_CATALOGUE) {
        bench::ResetBench();
        server_.UseAsProxy();
        server_.Serve("/file", std::string(kSize, 'x'));
    }
    ~WebServer() override { bench::ResetBench(); }

    static Fetched Choose(const std::string& products) {
        return Fetch("POST", std::string("/klimora/choose?klsid=") + kSession + "&product=" + products);
    }
    static std::string Result() { return Fetch("GET", std::string("/klimora/export/") + kSession + ".xml").body; }

    bench::WebServer server_;
};

TEST_F(WebServer, OffersWhatFitsAndPublishesWhatWasChosen) {
    const std::string request = std::string("/klimora?action=ljudprog&klsid=") + kSession;
    const std::string page = Fetch("GET", request + "&diameter=200&airflow=171").body;
    EXPECT_THAT(page, HasSubstr("<product id=\"SRC-200-600\" code=\"SRC 200 600\" length=\"600\" "
                                "pressureDrop=\"7.1\" attenuation250=\"10\" />"));
    EXPECT_EQ(page.find("SRC-250"), std::string::npos);
    EXPECT_THAT(Fetch("GET", request + "&width=400&height=200&airflow=300").body, HasSubstr("SRR-400x200-1000"));
    EXPECT_EQ(Choose("SRC-200-600,SRK-200-900").status, 200u);
    server_.PublishWith("warning", "Price < 1 & old");
    EXPECT_THAT(Result(), HasSubstr("<warning>Price &lt; 1 &amp; old</warning>"));
    EXPECT_THAT(Result(), HasSubstr("<ID>SRK-200-900</ID>"));
    server_.Reset();
    EXPECT_EQ(Result().find("warning"), std::string::npos);
}

TEST_F(WebServer, ProducesEachFault) {
    const struct {
        ServerFault fault;
        bool opens;
        bool endsCleanly;
        DWORD status;
        size_t minimum, maximum;  // bytes
    } cases[] = {{ServerFault::kNone, true, true, 200, kSize, kSize},
                 {ServerFault::kNotFound, true, true, 404, 40, 400},
                 {ServerFault::kTruncated, true, true, 200, kSize / 2, kSize / 2},
                 {ServerFault::kReset, true, false, 200, 1, kSize / 2},
                 {ServerFault::kRefused, false, false, 0, 0, 0},
                 {ServerFault::kStalled, true, true, 200, kSize, kSize}};
    for (const auto& one : cases) {
        SCOPED_TRACE(static_cast<int>(one.fault));
        server_.SetFault("/f", ServerFault::kNotFound);
        server_.SetFault("/fi", one.fault);  // the longer path counts
        const Fetched fetched = Fetch("GET", "/file");
        EXPECT_EQ(fetched.opened, one.opens);
        EXPECT_EQ(fetched.cleanEnd, one.endsCleanly);
        EXPECT_EQ(fetched.status, one.status);
        EXPECT_GE(fetched.body.size(), one.minimum);
        EXPECT_LE(fetched.body.size(), one.maximum);
        const size_t ofFile = one.status == 200 ? std::min(kSize, fetched.body.size()) : 0;
        EXPECT_EQ(fetched.body.substr(0, ofFile), std::string(ofFile, 'x'));
    }
}

}  // namespace
