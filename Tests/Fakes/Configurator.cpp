// The fake configurator as the module starts it: rejected command lines, and its window.
#include <windows.h>
#include <commctrl.h>

#include "BenchControl.h"
#include "Unit/TestFiles.h"
#include "WebServer.h"
#include "gmock/gmock.h"

using testing::HasSubstr;

namespace {

constexpr DWORD kTimeout = 60000;  // ms
const char kRecordFile[] = "configurator_record.txt";

class Configurator : public testing::Test {
 protected:
    Configurator() : server_(SORVIK_CATALOGUE) {
        server_.UseAsProxy();
        SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_RECORD", kRecordFile);
    }
    ~Configurator() override {
        DeleteFileA(kRecordFile);
        for (const char* name : {"SORVIK_BENCH_CONFIGURATOR", "SORVIK_BENCH_CONFIGURATOR_RECORD"})
            SetEnvironmentVariableA(name, nullptr);
        bench::ResetBench();
    }

    // Passes program and command line separately, as the module does.
    void Start(const char* script, std::string line) {
        DeleteFileA(kRecordFile);
        SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR", script);
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        ASSERT_TRUE(CreateProcessA("CAD_Connection_UI_x64.exe", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &process_));
    }
    DWORD Finish() {
        if (WaitForSingleObject(process_.hProcess, kTimeout) != WAIT_OBJECT_0) TerminateProcess(process_.hProcess, 99);
        WaitForSingleObject(process_.hProcess, kTimeout);
        DWORD code = 98;
        GetExitCodeProcess(process_.hProcess, &code);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
        return code;
    }

    bench::WebServer server_;
    PROCESS_INFORMATION process_ = {};
};

TEST_F(Configurator, RejectsOtherCommandLines) {
    const std::pair<const char*, const char*> cases[] = {
        {R"(start /SorvSIL "http://x" "T")", "The verb is not run."},
        {R"(run /sorvsil "http://x" "T")", "The command is not /SorvSIL."},
        {R"(run /SorvSIL "http://x" T U)", "The command line has 5 words, not 4."},
        {R"(run /SorvSIL "klimora.sorvik.example" "T")", "The third word is not a web address."},
        {R"(run /SorvSIL "http://x" "")", "The title is empty."},
    };
    for (const auto& [line, refusal] : cases) {
        Start("choose first", line);
        EXPECT_EQ(Finish(), 0u) << line;
        EXPECT_THAT(ReadWholeFile(kRecordFile), HasSubstr(std::string("\nrefused ") + refusal + "\n"));
    }
}

TEST_F(Configurator, ShowsTheTitleAndHandlesKeys) {
    Start("ask",
          "run /SorvSIL \"http://klimora.sorvik.example/klimora?action=ljudprog&"
          "klsid=0F1E2D3C4B5A69788796A5B4C3D2E1F0&diameter=200&airflow=120\" \"Sorvik 1.4\"");
    HWND dialog = nullptr;
    for (DWORD waited = 0; !dialog && waited < kTimeout; waited += 10) {
        if (WaitForSingleObject(process_.hProcess, 10) == WAIT_OBJECT_0) break;
        dialog = FindWindowA("#32770", "Sorvik 1.4");
    }
    const HWND list = dialog ? FindWindowExW(dialog, nullptr, WC_LISTVIEWW, nullptr) : nullptr;
    ASSERT_TRUE(list);
    for (const WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN})
        PostMessageW(list, WM_KEYDOWN, key, 0);
    EXPECT_EQ(Finish(), 1u);
    EXPECT_THAT(ReadWholeFile(kRecordFile), HasSubstr("\nchose SRK-200-900\n"));
}

}  // namespace
