#include "RecordedCalls.h"

#include <gtest/gtest.h>
#include <shellapi.h>
#include <wininet.h>

#include "BenchAutoCAD.h"
#include "Lib/FormatText.h"
#include "TestFiles.h"
#include "Util/Download.h"
#include "WebServer.h"
#include "Wine.h"

namespace {

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

// Records the calls of a download. The fake network returns 1,024 bytes, 10 bytes and the end. One step may fail.
class FakeNetwork : public RecordedCalls {
 public:
    explicit FakeNetwork(const std::string& failing) {
        Record("CreateFileA", CreateFileA);
        Record("InternetGetConnectedState", InternetGetConnectedState, [failing](DWORD* flags, DWORD) {
            EXPECT_EQ(*flags, 7u);
            return failing != "state";
        });
        Return("InternetOpenA", InternetOpenA, failing == "session" ? nullptr : reinterpret_cast<HINTERNET>(0x51));
        Record("InternetSetOptionA", InternetSetOptionA, [](HINTERNET, DWORD, void* value, DWORD) {
            EXPECT_EQ(*static_cast<DWORD*>(value), 30000u);
            return FALSE;
        });
        Return("InternetOpenUrlA", InternetOpenUrlA,
               failing == "address" ? nullptr : reinterpret_cast<HINTERNET>(0x52));
        Record("InternetReadFile", InternetReadFile, [this, failing](HINTERNET, void* buffer, DWORD, DWORD* read) {
            if (failing == "throw") throw std::runtime_error("unexpected");
            *read = --readsLeft_ > 0 ? 1024 : readsLeft_ == 0 ? 10 : 0;
            std::memset(buffer, 'x', *read);
            return failing != "read";
        });
        Record("WriteFile", WriteFile, [failing](HANDLE, const void* bytes, DWORD size, DWORD* written, OVERLAPPED*) {
            EXPECT_EQ(std::string(static_cast<const char*>(bytes), size), std::string(size, 'x'));
            *written = failing == "short" ? size - 1 : size;
            return failing != "write";
        });
        Return("InternetCloseHandle", InternetCloseHandle, TRUE);
        Record("CloseHandle", CloseHandle);
    }

 private:
    int readsLeft_ = 2;
};

}  // namespace

TEST_F(DownloadTest, ReportsEveryFailureAndReleasesItsHandles) {
    const std::string create = "CreateFileA \"" + target_ + "\" 0x40000000 0x0 null 0x2 0x80 null\n";
    const std::string state = create + "InternetGetConnectedState & 0x0\n";
    const std::string session = state + "InternetOpenA \"http generic\" 0x0 null null 0x0\n";
    const std::string address = session +
                                "InternetSetOptionA InternetOpenA 0x2 & 0x4\n"
                                "InternetSetOptionA InternetOpenA 0x5 & 0x4\n"
                                "InternetSetOptionA InternetOpenA 0x6 & 0x4\n"
                                "InternetOpenUrlA InternetOpenA \"" +
                                url_ + "\" null 0x0 0x84000200 0x0\n";
    const std::string read = "InternetReadFile InternetOpenUrlA & 0x400 &\n", first = address + read;
    const std::string write = first + "WriteFile CreateFileA & 0x400 & null\n";
    const std::string all = write + read + "WriteFile CreateFileA & 0xA & null\n" + read;
    const std::string closeFile = "CloseHandle CreateFileA\n";
    const std::string closeSession = "InternetCloseHandle InternetOpenA\n" + closeFile;
    const std::string closeAll = "InternetCloseHandle InternetOpenUrlA\n" + closeSession;
    const struct {
        const char* failing;
        int status;
        std::string printed, calls;
    } cases[] = {
        {"", 1, "", all + closeAll},
        {"read", 0, "", first + closeAll},
        {"state", -2, ErrorLine("There is no connection to internet"), state + closeFile},
        {"session", -3, ErrorLine("Can't establish connection to internet"), session + closeFile},
        {"address", -4, ErrorLine("Can't open file from internet"), address + closeSession},
        {"write", -5, ErrorLine("Can't write to file"), write + closeAll},
        {"short", -6, ErrorLine("Can't write to file"), write + closeAll},
        {"throw", -100, "Sorvik Klimora Cloud Plugin: Error downloading file\n", first + closeAll},
    };
    for (const auto& one : cases) {
        bench::ClearTranscript();
        FakeNetwork network(one.failing);
        EXPECT_EQ(Fetch(), one.status) << one.failing;
        EXPECT_EQ(network.Take(), one.calls) << one.failing;
        EXPECT_EQ(bench::Transcript(), one.printed);
    }
}

TEST_F(DownloadTest, RejectsBadArgumentsBeforeUsingTheNetwork) {
    const std::string nowhere = target_ + "\\none\\output.xml";
    {
        FakeNetwork network("");
        EXPECT_EQ(DownloadFile(url_.c_str(), nowhere.c_str()), -1);
        // The module closes INVALID_HANDLE_VALUE, because it compares the file's handle only with null.
        EXPECT_EQ(network.Take(),
                  "CreateFileA \"" + nowhere + "\" 0x40000000 0x0 null 0x2 0x80 null\nCloseHandle CreateFileA\n");
        EXPECT_EQ(DownloadFile(nullptr, target_.c_str()), -1);
        EXPECT_EQ(DownloadFile(url_.c_str(), nullptr), -1);
        EXPECT_EQ(network.Take(), "");
    }
    EXPECT_EQ(bench::Transcript(), ErrorLine("Can't create file") + ErrorLine("Wrong parameter Url == NULL\n") +
                                       ErrorLine("Wrong parameter SaveFileName == NULL\n"));
    EXPECT_FALSE(Exists(target_));
    // A failed download deletes the earlier file.
    WriteWholeFile(target_, "earlier");
    EXPECT_EQ(DeleteAndDownload(nullptr, target_.c_str()), -1);
    EXPECT_FALSE(Exists(target_));
}

TEST_F(DownloadTest, ReadsAWholeFileFromARealServer) {
    bench::WebServer server{SORVIK_CATALOGUE};
    server.UseAsProxy();
    std::string binary;
    for (int i = 0; i < 300000; ++i)
        binary += static_cast<char>(i * 7 + i / 256);
    server.Serve("/klimora/export/file.xml", binary);
    EXPECT_EQ(Fetch(), 1);
    EXPECT_TRUE(ReadWholeFile(target_) == binary);

    // On Windows the session's time-outs apply to its requests. Wine ignores them; this fails once it no longer does.
    RecordedCalls calls;
    calls.Record("InternetSetOptionA", InternetSetOptionA, [](HINTERNET session, DWORD option, void*, DWORD size) {
        DWORD limit = 50;
        return InternetSetOptionW(session, option, &limit, size);
    });
    server.SetFault("/klimora/export/file.xml", bench::ServerFault::kStalled);
    EXPECT_EQ(Fetch(), bench::RunsUnderWine() ? 1 : 0);
    EXPECT_EQ(bench::Transcript(), "");
}

TEST_F(DownloadTest, OpensTheBrowserThroughTheShell) {
    SHELLEXECUTEINFOA requested = {};
    BOOL started = TRUE;
    HANDLE browser = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    RecordedCalls calls;
    calls.Record("ShellExecuteExA", ShellExecuteExA, [&](SHELLEXECUTEINFOA* request) {
        requested = *request;
        request->hProcess = browser;
        return started;
    });
    EXPECT_EQ(OpenWebBrowser("http://example.invalid/a?b=c", reinterpret_cast<HWND>(0x77)), 0);
    EXPECT_EQ(FormatString("%lu, mask %lX, %lX, %s %s '%s', %d", requested.cbSize, requested.fMask,
                           HandleToUlong(requested.hwnd), requested.lpVerb, requested.lpFile, requested.lpParameters,
                           requested.nShow),
              "112, mask 40, 77, open http://example.invalid/a?b=c '', 9");
    EXPECT_EQ(requested.lpDirectory, nullptr);
    DWORD flags = 0;
    EXPECT_FALSE(GetHandleInformation(browser, &flags)) << "the browser's handle is closed";

    browser = nullptr;
    started = FALSE;
    EXPECT_EQ(OpenWebBrowser("http://example.invalid", nullptr), -1);
    calls.Take();
    EXPECT_EQ(OpenWebBrowser("", nullptr), -1);
    EXPECT_EQ(OpenWebBrowser(nullptr, nullptr), -1);
    EXPECT_EQ(calls.Take(), "");
    const std::string line = "Sorvik Klimora Cloud Plugin: OpenWebBrowser: Wrong parameter Url is empty.\n";
    EXPECT_EQ(bench::Transcript(), line + line);
}

TEST_F(DownloadTest, DecodesPercentEncoding) {
    const std::pair<const char*, std::string> cases[] = {
        {"a+b%2Bc", "a+b+c"},
        {"%c3%A5", "\xC3\xA5"},
        {"%zz!", std::string("\0!", 2)},
        {"%4z", "\x04"},
        {"100%", std::string("100\0", 4)},
        {"%4", "\x04"},
        {"%%20", {'\0', '0'}},
        {"%00x", std::string("\0x", 2)},
        {"", ""},
        {nullptr, ""},
    };
    for (const auto& [text, decoded] : cases)
        EXPECT_EQ(UrlDecode(text), decoded) << (text ? text : "null");
}
