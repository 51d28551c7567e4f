#include <windows.h>
#include <shellapi.h>
#include <wininet.h>

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
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
    std::string Url(const std::string& path) const { return SORVIK_WEB_SERVER + path; }
    std::string Target() const { return folder_.file("output.xml"); }
    int Fetch(const std::string& path) { return DownloadFile(Url(path).c_str(), Target().c_str()); }

    static std::string ErrorLine(const std::string& diagnostic) {
        return "Sorvik Klimora Cloud Plugin: Error DownloadFile: " + diagnostic + "\n";
    }

 private:
    const TestFolder folder_;
};

class DownloadServerTest : public DownloadTest {
 protected:
    DownloadServerTest() { server_.UseAsProxy(); }
    bench::WebServer& server() { return server_; }

 private:
    bench::WebServer server_{SORVIK_CATALOGUE};
};

// Windows calls that a download makes, in order; each may be told to fail.
Texts calls;
std::string failing;

bool Enter(const std::string& name) {
    calls.push_back(name);
    return name == failing;
}

const HINTERNET kSession = reinterpret_cast<HINTERNET>(0x51);
const HINTERNET kAddress = reinterpret_cast<HINTERNET>(0x52);
int readsLeft = 0;

BOOL WINAPI Connected(DWORD* flags, DWORD) {
    EXPECT_EQ(*flags, 7u);
    return Enter("state") ? FALSE : TRUE;
}

HINTERNET WINAPI OpenSession(const char* agent, DWORD access, const char*, const char*, DWORD flags) {
    EXPECT_STREQ(agent, "http generic");
    EXPECT_EQ(access, static_cast<DWORD>(INTERNET_OPEN_TYPE_PRECONFIG));
    EXPECT_EQ(flags, 0u);
    return Enter("session") ? nullptr : kSession;
}

HINTERNET WINAPI OpenAddress(HINTERNET session, const char*, const char* headers, DWORD length, DWORD flags,
                             DWORD_PTR) {
    EXPECT_EQ(session, kSession);
    EXPECT_EQ(headers, nullptr);
    EXPECT_EQ(length, 0u);
    EXPECT_EQ(flags, 0x84000200u);
    return Enter("address") ? nullptr : kAddress;
}

BOOL WINAPI Read(HINTERNET address, void* buffer, DWORD size, DWORD* read) {
    EXPECT_EQ(address, kAddress);
    EXPECT_EQ(size, 1024u);
    if (failing == "throw") throw std::runtime_error("not the download's own");
    if (Enter("read")) return FALSE;
    *read = readsLeft-- > 0 ? 10 : 0;
    std::memcpy(buffer, "0123456789", *read);
    return TRUE;
}

BOOL WINAPI Write(HANDLE, const void*, DWORD size, DWORD* written, OVERLAPPED*) {
    if (Enter("write")) return FALSE;
    *written = failing == "short" ? size - 1 : size;
    return TRUE;
}

BOOL WINAPI CloseInternet(HINTERNET handle) {
    calls.push_back(handle == kAddress ? "close address" : handle == kSession ? "close session" : "close stranger");
    return TRUE;
}

BOOL WINAPI CloseFile(HANDLE handle) {
    calls.push_back(handle == INVALID_HANDLE_VALUE ? "close invalid" : "close file");
    const HMODULE kernel = GetModuleHandleW(L"kernel32.dll");
    const auto close =
        reinterpret_cast<BOOL(WINAPI*)(HANDLE)>(reinterpret_cast<void*>(GetProcAddress(kernel, "CloseHandle")));
    return handle == INVALID_HANDLE_VALUE ? FALSE : close(handle);
}

// All network calls of the program replaced by the ones above.
struct FakeNetwork {
    explicit FakeNetwork(const std::string& fail, int reads = 2) {
        calls.clear();
        failing = fail;
        readsLeft = reads;
    }
    const ImportPatch state{"InternetGetConnectedState", Connected};
    const ImportPatch session{"InternetOpenA", OpenSession};
    const ImportPatch address{"InternetOpenUrlA", OpenAddress};
    const ImportPatch read{"InternetReadFile", Read};
    const ImportPatch write{"WriteFile", Write};
    const ImportPatch closeInternet{"InternetCloseHandle", CloseInternet};
    const ImportPatch closeFile{"CloseHandle", CloseFile};
};

}  // namespace

TEST_F(DownloadTest, EveryFailureHasItsStatusTextAndCleanUp) {
    const struct {
        const char* failing;
        int status;
        std::string printed;
        Texts calls;
    } cases[] = {
        {"",
         1,
         "",
         {"state", "session", "address", "read", "write", "read", "write", "read", "close address", "close session",
          "close file"}},
        {"read", 0, "", {"state", "session", "address", "read", "close address", "close session", "close file"}},
        {"state", -2, ErrorLine("There is no connection to internet"), {"state", "close file"}},
        {"session", -3, ErrorLine("Can't establish connection to internet"), {"state", "session", "close file"}},
        {"address",
         -4,
         ErrorLine("Can't open file from internet"),
         {"state", "session", "address", "close session", "close file"}},
        {"write",
         -5,
         ErrorLine("Can't write to file"),
         {"state", "session", "address", "read", "write", "close address", "close session", "close file"}},
        {"short",
         -6,
         ErrorLine("Can't write to file"),
         {"state", "session", "address", "read", "write", "close address", "close session", "close file"}},
        {"throw",
         -100,
         "Sorvik Klimora Cloud Plugin: Error downloading file\n",
         {"state", "session", "address", "close address", "close session", "close file"}},
    };
    for (const auto& one : cases) {
        bench::ClearTranscript();
        int status = 99;
        {
            const FakeNetwork network(one.failing);
            status = Fetch("/file.xml");
        }
        EXPECT_EQ(status, one.status) << one.failing;
        EXPECT_EQ(bench::Transcript(), one.printed);
        EXPECT_EQ(calls, one.calls) << one.failing;
        EXPECT_TRUE(Exists(Target()));
    }
}

TEST_F(DownloadTest, NothingGoesOnTheNetworkWithoutAFile) {
    const std::string nowhere = Target() + "\\none\\output.xml";
    {
        const FakeNetwork network("");
        EXPECT_EQ(DownloadFile(Url("/x").c_str(), nowhere.c_str()), -1);
        // The handle of the file that was not created is tested against null only.
        EXPECT_EQ(calls, Texts{"close invalid"});
        EXPECT_EQ(DownloadFile(nullptr, Target().c_str()), -1);
        EXPECT_EQ(DownloadFile(Url("/x").c_str(), nullptr), -1);
        EXPECT_EQ(calls.size(), 1u);
    }
    EXPECT_EQ(bench::Transcript(), ErrorLine("Can't create file") + ErrorLine("Wrong parameter Url == NULL\n") +
                                       ErrorLine("Wrong parameter SaveFileName == NULL\n"));
    EXPECT_FALSE(Exists(Target()));
}

TEST_F(DownloadServerTest, WholeFilesArrive) {
    std::string binary;
    for (int i = 0; i < 300000; ++i)
        binary += static_cast<char>(i * 7 + i / 256);
    const std::string bodies[] = {
        "<a/>\r\n", std::string(1023, 'x'), std::string(1024, 'x'), std::string(1025, 'x'), "", binary};
    for (const std::string& body : bodies) {
        server().Serve("/klimora/export/file.xml", body);
        EXPECT_EQ(Fetch("/klimora/export/file.xml"), 1);
        EXPECT_TRUE(ReadWholeFile(Target()) == body) << body.size();
    }
    // Each came from the server, none from a cache.
    EXPECT_EQ(server().requests().size(), std::size(bodies));
    EXPECT_EQ(bench::Transcript(), "");
}

TEST_F(DownloadServerTest, TroublesOfTheNetwork) {
    const std::string body(100000, 'b');
    const struct {
        bench::Trouble trouble;
        int status;
        size_t least, most;  // bytes in the file
    } cases[] = {
        {bench::Trouble::kNone, 1, 100000, 100000},
        {bench::Trouble::kStalled, 1, 100000, 100000},
        {bench::Trouble::kEmpty, 1, 0, 0},
        {bench::Trouble::kRedirected, 1, 100000, 100000},
        {bench::Trouble::kReset, 0, 0, 99999},
        {bench::Trouble::kRefused, -4, 0, 0},
        {bench::Trouble::kHuge, 1, 5000000, 6000000},
    };
    for (const auto& one : cases) {
        server().Reset();
        bench::ClearTranscript();
        server().Serve("/klimora/export/file.xml", body);
        server().SetTrouble("/klimora/export/file.xml", one.trouble);
        const int number = static_cast<int>(one.trouble);
        WriteWholeFile(Target(), "left over");
        EXPECT_EQ(Fetch("/klimora/export/file.xml"), one.status) << number;
        const size_t size = ReadWholeFile(Target()).size();
        EXPECT_GE(size, one.least) << number;
        EXPECT_LE(size, one.most) << number;
        EXPECT_EQ(bench::Transcript(), one.status < 0 ? ErrorLine("Can't open file from internet") : "") << number;
    }
}

TEST_F(DownloadServerTest, PageOfAFailureIsTakenAsTheFile) {
    // The status line is not looked at: what reads the file notices.
    server().Serve("/klimora/export/file.xml", "<a/>");
    server().SetTrouble("/klimora/export/file.xml", bench::Trouble::kNotFound);
    EXPECT_EQ(Fetch("/klimora/export/file.xml"), 1);
    EXPECT_FALSE(ReadWholeFile(Target()).empty());
    EXPECT_NE(ReadWholeFile(Target()), "<a/>");
}

TEST_F(DownloadServerTest, TruncatedBodyLeavesAPartialFile) {
    const std::string body(100000, 'b');
    server().Serve("/klimora/export/file.xml", body);
    server().SetTrouble("/klimora/export/file.xml", bench::Trouble::kTruncated);
    // Windows tells a failed read; Wine 8 takes the end of the connection for the end of the file.
    const int status = Fetch("/klimora/export/file.xml");
    EXPECT_TRUE(status == 0 || status == 1) << status;
    const size_t size = ReadWholeFile(Target()).size();
    EXPECT_LT(size, body.size());
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
