#include <windows.h>
#include <shellapi.h>
#include <wininet.h>

#include <gtest/gtest.h>

#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "ImportPatch.h"
#include "TestFiles.h"
#include "Util/Download.h"
#include "WebServer.h"

namespace {

using Texts = std::vector<std::string>;

class DownloadTest : public testing::Test {
 protected:
    const std::string url_ = SORVIK_WEB_SERVER "/klimora/export/file.xml";
    const TestFolder folder_;
    const std::string target_ = folder_.file("output.xml");

    int Fetch() { return DownloadFile(url_.c_str(), target_.c_str()); }
    static std::string ErrorLine(const std::string& diagnostic) {
        return "Sorvik Klimora Cloud Plugin: Error DownloadFile: " + diagnostic + "\n";
    }
};

// Windows calls that a download makes, in order; one of them is told to fail.
Texts calls;
std::string failing;

bool Enter(const std::string& call, const std::string& name) {
    calls.push_back(call);
    return name == failing;
}

const HINTERNET kSession = reinterpret_cast<HINTERNET>(0x51);
const HINTERNET kAddress = reinterpret_cast<HINTERNET>(0x52);
HANDLE file = nullptr;
int readsLeft = 0;
decltype(&CreateFileA) createFile;
decltype(&CloseHandle) closeHandle;

HANDLE WINAPI CreateTarget(const char* path, DWORD access, DWORD share, SECURITY_ATTRIBUTES* security,
                           DWORD disposition, DWORD attributes, HANDLE likeness) {
    EXPECT_EQ(security, nullptr);
    EXPECT_EQ(likeness, nullptr);
    calls.push_back("create " + std::to_string(access) + " " + std::to_string(share) + " " +
                    std::to_string(disposition) + " " + std::to_string(attributes));
    file = createFile(path, access, share, security, disposition, attributes, likeness);
    return file;
}

BOOL WINAPI Connected(DWORD* flags, DWORD reserved) {
    EXPECT_EQ(*flags, 7u);
    EXPECT_EQ(reserved, 0u);
    return !Enter("state", "state");
}

HINTERNET WINAPI OpenSession(const char* agent, DWORD access, const char* proxy, const char* bypass, DWORD flags) {
    EXPECT_EQ(access, static_cast<DWORD>(INTERNET_OPEN_TYPE_PRECONFIG));
    EXPECT_EQ(proxy, nullptr);
    EXPECT_EQ(bypass, nullptr);
    EXPECT_EQ(flags, 0u);
    return Enter(agent, "session") ? nullptr : kSession;
}

BOOL WINAPI LimitWaiting(HINTERNET session, DWORD option, void* value, DWORD size) {
    EXPECT_EQ(session, kSession);
    EXPECT_EQ(size, 4u);
    calls.push_back("limit " + std::to_string(option) + " " + std::to_string(*static_cast<DWORD*>(value)));
    return FALSE;
}

HINTERNET WINAPI OpenAddress(HINTERNET session, const char* url, const char* headers, DWORD length, DWORD flags,
                             DWORD_PTR context) {
    EXPECT_EQ(session, kSession);
    EXPECT_EQ(headers, nullptr);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(flags, 0x84000200u);
    EXPECT_EQ(context, 0u);
    return Enter(url, "address") ? nullptr : kAddress;
}

BOOL WINAPI Read(HINTERNET address, void* buffer, DWORD size, DWORD* read) {
    EXPECT_EQ(address, kAddress);
    EXPECT_EQ(size, 1024u);
    if (failing == "throw") throw std::runtime_error("not the download's own");
    *read = --readsLeft < 0 ? 0 : readsLeft ? 1024 : 10;
    std::memset(buffer, 'x', *read);
    return !Enter("read", "read");
}

BOOL WINAPI Write(HANDLE target, const void* bytes, DWORD size, DWORD* written, OVERLAPPED* overlapped) {
    EXPECT_EQ(target, file);
    EXPECT_EQ(overlapped, nullptr);
    EXPECT_EQ(std::string(static_cast<const char*>(bytes), size), std::string(size, 'x'));
    *written = failing == "short" ? size - 1 : size;
    return !Enter("write " + std::to_string(size), "write");
}

BOOL WINAPI CloseInternet(HINTERNET handle) {
    calls.push_back(handle == kAddress ? "close address" : handle == kSession ? "close session" : "close stranger");
    return TRUE;
}

BOOL WINAPI CloseFile(HANDLE handle) {
    if (handle == file) calls.push_back(handle == INVALID_HANDLE_VALUE ? "close invalid" : "close file");
    return handle == INVALID_HANDLE_VALUE ? FALSE : closeHandle(handle);
}

// All calls of a download replaced by the ones above.
struct FakeNetwork {
    explicit FakeNetwork(const std::string& fail) {
        calls.clear();
        failing = fail;
        readsLeft = 2;
        createFile = create.original<decltype(CreateTarget)>();
        closeHandle = closeFile.original<decltype(CloseFile)>();
    }
    const ImportPatch create{"CreateFileA", CreateTarget};
    const ImportPatch state{"InternetGetConnectedState", Connected};
    const ImportPatch session{"InternetOpenA", OpenSession};
    const ImportPatch limit{"InternetSetOptionA", LimitWaiting};
    const ImportPatch address{"InternetOpenUrlA", OpenAddress};
    const ImportPatch read{"InternetReadFile", Read};
    const ImportPatch write{"WriteFile", Write};
    const ImportPatch closeInternet{"InternetCloseHandle", CloseInternet};
    const ImportPatch closeFile{"CloseHandle", CloseFile};
};

}  // namespace

TEST_F(DownloadTest, EveryFailureHasItsStatusTextAndCleanUp) {
    const Texts all = {"create 1073741824 0 2 128",
                       "state",
                       "http generic",
                       "limit 2 30000",
                       "limit 5 30000",
                       "limit 6 30000",
                       url_,
                       "read",
                       "write 1024",
                       "read",
                       "write 10",
                       "read"};
    const struct {
        const char* failing;
        int status;
        std::string printed;
        int calls;  // of `all`, before the closing ones
        Texts closed;
    } cases[] = {
        {"", 1, "", 12, {"close address", "close session", "close file"}},
        {"read", 0, "", 8, {"close address", "close session", "close file"}},
        {"state", -2, ErrorLine("There is no connection to internet"), 2, {"close file"}},
        {"session", -3, ErrorLine("Can't establish connection to internet"), 3, {"close file"}},
        {"address", -4, ErrorLine("Can't open file from internet"), 7, {"close session", "close file"}},
        {"write", -5, ErrorLine("Can't write to file"), 9, {"close address", "close session", "close file"}},
        {"short", -6, ErrorLine("Can't write to file"), 9, {"close address", "close session", "close file"}},
        {"throw",
         -100,
         "Sorvik Klimora Cloud Plugin: Error downloading file\n",
         7,
         {"close address", "close session", "close file"}},
    };
    for (const auto& one : cases) {
        bench::ClearTranscript();
        int status = 99;
        {
            const FakeNetwork network(one.failing);
            status = Fetch();
        }
        EXPECT_EQ(status, one.status) << one.failing;
        EXPECT_EQ(bench::Transcript(), one.printed);
        Texts expected(all.begin(), all.begin() + one.calls);
        expected.insert(expected.end(), one.closed.begin(), one.closed.end());
        EXPECT_EQ(calls, expected) << one.failing;
        EXPECT_TRUE(Exists(target_));
    }
}

TEST_F(DownloadTest, NothingGoesOnTheNetworkWithoutAFile) {
    const std::string nowhere = target_ + "\\none\\output.xml";
    {
        const FakeNetwork network("");
        EXPECT_EQ(DownloadFile(url_.c_str(), nowhere.c_str()), -1);
        // The handle of the file that was not created is tested against null only.
        EXPECT_EQ(calls, (Texts{"create 1073741824 0 2 128", "close invalid"}));
        EXPECT_EQ(DownloadFile(nullptr, target_.c_str()), -1);
        EXPECT_EQ(DownloadFile(url_.c_str(), nullptr), -1);
        EXPECT_EQ(calls.size(), 2u);
    }
    EXPECT_EQ(bench::Transcript(), ErrorLine("Can't create file") + ErrorLine("Wrong parameter Url == NULL\n") +
                                       ErrorLine("Wrong parameter SaveFileName == NULL\n"));
    EXPECT_FALSE(Exists(target_));
    // An earlier file does not outlive a fetch that fails.
    WriteWholeFile(target_, "earlier");
    EXPECT_EQ(DownloadAfresh(nullptr, target_.c_str()), -1);
    EXPECT_FALSE(Exists(target_));
}

namespace {

decltype(&InternetSetOptionA) setOption;
BOOL WINAPI ShortLimit(HINTERNET session, DWORD option, void*, DWORD size) {
    DWORD limit = 50;
    return setOption(session, option, &limit, size);
}

}  // namespace

TEST_F(DownloadTest, WholeFilesArriveFromARealServer) {
    bench::WebServer server{SORVIK_CATALOGUE};
    server.UseAsProxy();
    std::string binary;
    for (int i = 0; i < 300000; ++i)
        binary += static_cast<char>(i * 7 + i / 256);
    for (const std::string& body : {binary, std::string("<a/>\r\n"), std::string()}) {
        server.Serve("/klimora/export/file.xml", body);
        EXPECT_EQ(Fetch(), 1);
        EXPECT_TRUE(ReadWholeFile(target_) == body) << body.size();
    }
    EXPECT_EQ(server.requests().size(), 3u) << "none came from a cache";

    // A session's time-outs hold for its requests on Windows. Wine forgets them; when this fails, it has learnt that.
    const bool isWine = GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
    const ImportPatch patch("InternetSetOptionA", ShortLimit);
    setOption = patch.original<decltype(ShortLimit)>();
    server.Serve("/klimora/export/file.xml", binary);
    server.SetTrouble("/klimora/export/file.xml", bench::Trouble::kStalled);
    EXPECT_EQ(Fetch(), isWine ? 1 : 0);
    EXPECT_EQ(bench::Transcript(), "");
}

namespace {

SHELLEXECUTEINFOA asked;
BOOL shellResult = TRUE;
HANDLE browser = nullptr;

BOOL WINAPI RecordShell(SHELLEXECUTEINFOA* request) {
    asked = *request;
    request->hProcess = browser;
    return shellResult;
}

}  // namespace

TEST_F(DownloadTest, BrowserIsAskedOfTheShell) {
    const ImportPatch patch("ShellExecuteExA", RecordShell);
    const HWND owner = reinterpret_cast<HWND>(0x77);
    browser = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    shellResult = TRUE;
    asked = {};
    EXPECT_EQ(OpenWebBrowser("http://example.invalid/a?b=c", owner), 0);
    EXPECT_EQ(asked.cbSize, sizeof asked);
    EXPECT_EQ(asked.fMask, static_cast<ULONG>(SEE_MASK_NOCLOSEPROCESS));
    EXPECT_EQ(asked.hwnd, owner);
    EXPECT_STREQ(asked.lpVerb, "open");
    EXPECT_STREQ(asked.lpFile, "http://example.invalid/a?b=c");
    EXPECT_STREQ(asked.lpParameters, "");
    EXPECT_EQ(asked.lpDirectory, nullptr);
    EXPECT_EQ(asked.nShow, 9);
    DWORD flags = 0;
    EXPECT_FALSE(GetHandleInformation(browser, &flags)) << "the browser's handle is closed";

    browser = nullptr;
    shellResult = FALSE;
    EXPECT_EQ(OpenWebBrowser("http://example.invalid", nullptr), -1);
    asked = {};
    EXPECT_EQ(OpenWebBrowser("", nullptr), -1);
    EXPECT_EQ(OpenWebBrowser(nullptr, nullptr), -1);
    EXPECT_EQ(asked.cbSize, 0u);
    const std::string line = "Sorvik Klimora Cloud Plugin: OpenWebBrowser: Wrong parameter Url is empty.\n";
    EXPECT_EQ(bench::Transcript(), line + line);
}

TEST_F(DownloadTest, PercentEncodingIsUndone) {
    const struct {
        const char* text;
        std::string decoded;
    } cases[] = {
        {"%20", " "},
        {"a+b%2Bc", "a+b+c"},
        {"%c3%A5", "\xC3\xA5"},
        {"%zz!", std::string("\0!", 2)},
        {"%4z", "\x04"},
        {"100%", std::string("100\0", 4)},
        {"%4", "\x04"},
        {"%%20", std::string("\0"
                             "0",
                             2)},
        {"%00x", std::string("\0x", 2)},
        {"", ""},
        {nullptr, ""},
    };
    for (const auto& one : cases)
        EXPECT_EQ(UrlDecode(one.text), one.decoded) << (one.text ? one.text : "null");
}
