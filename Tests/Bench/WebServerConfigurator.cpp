// The configurator program as the module starts it: its command line, its scripts, its window, and what the server
// sees.
#include <windows.h>
#include <commctrl.h>

#include <fstream>

#include "BenchControl.h"
#include "WebServer.h"
#include "gmock/gmock.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

constexpr DWORD kPatience = 60000;  // ms
constexpr DWORD kStillRunning = 0xFFFFFFFF;
const char kSession[] = "0F1E2D3C4B5A69788796A5B4C3D2E1F0";
const char kTitle[] = "Sorvik Klimora Cloud Plugin 1.4.2.2611";
const char kRecordFile[] = "configurator_record.txt";
const char kReadyEvent[] = "configurator_test_ready";

std::string Address(const std::string& duct) {
    return std::string("http://klimora.sorvik.example/klimora?action=ljudprog&klsid=") + kSession + duct;
}

std::string Line(const std::string& address) {
    return "run /SorvSIL \"" + address + "\" \"" + kTitle + "\"";
}

class WebServerConfigurator : public testing::Test {
 protected:
    WebServerConfigurator() : server_(SORVIK_CATALOGUE) {
        server_.UseAsProxy();
        DeleteFileA(kRecordFile);
        SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_RECORD", kRecordFile);
        ready_ = CreateEventA(nullptr, TRUE, FALSE, kReadyEvent);
        SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_READY", kReadyEvent);
    }

    ~WebServerConfigurator() override {
        Finish(0);
        CloseHandle(ready_);
        DeleteFileA(kRecordFile);
        for (const char* name :
             {"SORVIK_BENCH_CONFIGURATOR", "SORVIK_BENCH_CONFIGURATOR_RECORD", "SORVIK_BENCH_CONFIGURATOR_READY"})
            SetEnvironmentVariableA(name, nullptr);
        bench::ResetBench();
    }

    // Program and line apart, as the module gives them.
    void Start(const char* script, std::string line) {
        SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR", script);
        char path[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        const std::string own = path;
        const std::string program = own.substr(0, own.rfind('\\') + 1) + "CAD_Connection_UI_x64.exe";
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        ASSERT_TRUE(CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                                   nullptr, nullptr, &startup, &process_))
            << program << ' ' << GetLastError();
    }

    // The exit code; a program that does not end in time is terminated and gives kStillRunning.
    DWORD Finish(DWORD patience = kPatience) {
        if (!process_.hProcess) return kStillRunning;
        DWORD code = kStillRunning;
        if (WaitForSingleObject(process_.hProcess, patience) == WAIT_OBJECT_0)
            GetExitCodeProcess(process_.hProcess, &code);
        else
            TerminateProcess(process_.hProcess, 9);
        WaitForSingleObject(process_.hProcess, kPatience);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
        process_ = {};
        return code;
    }

    DWORD Run(const char* script, const std::string& line) {
        Start(script, line);
        return Finish();
    }

    static std::vector<std::string> Record() {
        std::vector<std::string> lines;
        std::ifstream file(kRecordFile, std::ios::binary);
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

    HWND Window() const {
        struct Search {
            DWORD process;
            HWND found;
        } search = {process_.dwProcessId, nullptr};
        EnumWindows(
            [](HWND window, LPARAM parameter) -> BOOL {
                Search& wanted = *reinterpret_cast<Search*>(parameter);
                DWORD owner = 0;
                GetWindowThreadProcessId(window, &owner);
                if (owner != wanted.process || !IsWindowVisible(window)) return TRUE;
                wanted.found = window;
                return FALSE;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.found;
    }

    bench::WebServer server_;
    PROCESS_INFORMATION process_ = {};
    HANDLE ready_ = nullptr;
};

TEST_F(WebServerConfigurator, ReceivesTheLineAsItWasMadeAndPublishesItsChoice) {
    const std::string address = Address("&diameter=200&airflow=120");
    EXPECT_EQ(Run("choose first", Line(address)), 1u);
    EXPECT_THAT(Record(), ElementsAre("line " + Line(address), "word run", "word /SorvSIL", "word " + address,
                                      std::string("word ") + kTitle, "fits SRC-200-600", "fits SRC-200-900",
                                      "fits SRK-200-900", "fits SRX-200-1000", "chose SRC-200-600", "exit 1"));
    EXPECT_THAT(server_.requests(),
                ElementsAre(std::string("GET /klimora?action=ljudprog&klsid=") + kSession + "&diameter=200&airflow=120",
                            std::string("POST /klimora/choose?klsid=") + kSession + "&product=SRC-200-600"));
}

TEST_F(WebServerConfigurator, ScriptsAndTheirExitCodes) {
    const std::string round = Line(Address("&diameter=200&airflow=120"));
    const struct {
        const char* script;
        std::string line;
        DWORD exitCode;
        const char* recorded;
    } cases[] = {{"choose SRK-200-900", round, 1, "chose SRK-200-900"},
                 {"choose SRC-200-600,SRC-200-900", round, 1, "chose SRC-200-600,SRC-200-900"},
                 {"choose SRC-125-600", round, 0, "failed No such product fits: SRC-125-600"},
                 {"choose first", Line(Address("&diameter=201")), 0, "failed No such product fits: "},
                 {"choose first", Line("http://klimora.sorvik.example/klimora?action=ljudprog&klsid=1"), 0,
                  "failed The server answered with 400."},
                 {"cancel", round, 0, "fits SRC-200-600"},
                 {nullptr, round, 0, "exit 0"},
                 {"exit 7", round, 7, "word run"},
                 {"crash", round, 0xC0000005, "word run"}};
    for (const auto& one : cases) {
        DeleteFileA(kRecordFile);
        EXPECT_EQ(Run(one.script, one.line), one.exitCode) << (one.script ? one.script : "nothing");
        EXPECT_THAT(Record(), Contains(one.recorded));
    }
}

TEST_F(WebServerConfigurator, RefusesOtherCommandLines) {
    const std::string address = Address("&diameter=200");
    const struct {
        std::string line;
        const char* refusal;
    } cases[] = {{"start /SorvSIL \"" + address + "\" \"T\"", "refused The verb is not run."},
                 {"run SorvSIL \"" + address + "\" \"T\"", "refused The command is not /SorvSIL."},
                 {"run /sorvsil \"" + address + "\" \"T\"", "refused The command is not /SorvSIL."},
                 {"run /SorvSIL \"" + address + "\"", "refused The command line has 3 words, not 4."},
                 {"run /SorvSIL \"" + address + "\" T U", "refused The command line has 5 words, not 4."},
                 {"run /SorvSIL \"klimora.sorvik.example\" \"T\"", "refused The third word is no web address."},
                 {"run /SorvSIL \"" + address + "\" \"\"", "refused The title is empty."}};
    for (const auto& one : cases) {
        DeleteFileA(kRecordFile);
        EXPECT_EQ(Run("choose first", one.line), 0u) << one.line;
        EXPECT_THAT(Record(), Contains(one.refusal));
    }
    EXPECT_TRUE(server_.requests().empty());
}

TEST_F(WebServerConfigurator, AnUnreachableServerIsNoExport) {
    server_.SetTrouble("/klimora", bench::Trouble::kRefused);
    EXPECT_EQ(Run("choose first", Line(Address("&diameter=200"))), 0u);
    server_.SetTrouble("/klimora", bench::Trouble::kTruncated);
    EXPECT_EQ(Run("choose first", Line(Address("&diameter=200"))), 0u);
    EXPECT_THAT(Record(), Contains("failed The server's answer is no list of products."));
}

TEST_F(WebServerConfigurator, HangsUntilItIsTerminated) {
    Start("hang", Line(Address("&diameter=200")));
    ASSERT_EQ(WaitForSingleObject(ready_, kPatience), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(process_.hProcess, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    TerminateProcess(process_.hProcess, static_cast<UINT>(-1));
    EXPECT_EQ(Finish(), 0xFFFFFFFF);
    EXPECT_THAT(Record(), testing::Not(Contains(HasSubstr("exit"))));
}

TEST_F(WebServerConfigurator, ItsWindowOffersTheProductsAndExportsTheSelectedOne) {
    Start("ask", Line(Address("&width=400&height=200&airflow=300")));
    ASSERT_EQ(WaitForSingleObject(ready_, kPatience), WAIT_OBJECT_0);
    const HWND window = Window();
    ASSERT_TRUE(window);
    char title[128] = "";
    GetWindowTextA(window, title, sizeof title);
    EXPECT_STREQ(title, kTitle);
    const HWND list = FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr);
    EXPECT_EQ(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0), 1);
    EXPECT_EQ(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED), 0);
    PostMessageW(window, WM_COMMAND, IDOK, 0);
    EXPECT_EQ(Finish(), 1u);
    EXPECT_THAT(Record(), Contains("chose SRR-400x200-1000"));
}

TEST_F(WebServerConfigurator, ItsWindowObeysKeyboardAndDoubleClick) {
    const struct {
        std::vector<WPARAM> keys;
        int y;  // of a double click
        DWORD exitCode;
        const char* recorded;
    } cases[] = {{{VK_DOWN, VK_DOWN, VK_RETURN}, 0, 1, "chose SRK-200-900"},
                 {{}, 30, 1, "chose SRC-200-600"},
                 {{VK_DOWN, VK_ESCAPE}, 0, 0, "exit 0"}};
    for (const auto& one : cases) {
        ResetEvent(ready_);
        Start("ask", Line(Address("&diameter=200&airflow=120")));
        ASSERT_EQ(WaitForSingleObject(ready_, kPatience), WAIT_OBJECT_0);
        const HWND list = FindWindowExW(Window(), nullptr, WC_LISTVIEWW, nullptr);
        for (const WPARAM key : one.keys)
            PostMessageW(list, WM_KEYDOWN, key, 0);
        if (one.y > 0) PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(40, one.y));
        EXPECT_EQ(Finish(), one.exitCode);
        EXPECT_THAT(Record(), Contains(one.recorded));
    }
}

TEST_F(WebServerConfigurator, ItsWindowCanBeClosedWithoutAnExport) {
    for (const auto& [message, parameter] : {std::pair(WM_COMMAND, IDCANCEL), std::pair(WM_CLOSE, 0)}) {
        ResetEvent(ready_);
        Start("ask", Line(Address("&diameter=200")));
        ASSERT_EQ(WaitForSingleObject(ready_, kPatience), WAIT_OBJECT_0);
        PostMessageW(Window(), static_cast<UINT>(message), static_cast<WPARAM>(parameter), 0);
        EXPECT_EQ(Finish(), 0u);
    }
    EXPECT_THAT(server_.requests(), testing::Not(Contains(HasSubstr("POST"))));
}

}  // namespace
