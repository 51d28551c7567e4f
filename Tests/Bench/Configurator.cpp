// The fake configurator as the module starts it: rejected command lines, its record and exit code, and its window.
#include <windows.h>
#include <commctrl.h>

#include <fstream>

#include "BenchControl.h"
#include "WebServer.h"
#include "gmock/gmock.h"

using testing::Contains;

namespace {

constexpr DWORD kTimeout = 60000;  // ms
const char kRecordFile[] = "configurator_record.txt";
const char kAddress[] =
    "http://klimora.sorvik.example/klimora?action=ljudprog&klsid=0F1E2D3C4B5A69788796A5B4C3D2E1F0&diameter=200";

std::string Line(const std::string& address) {
    return "run /SorvSIL \"" + address + "\" \"Sorvik 1.4\"";
}

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

    static std::vector<std::string> Record() {
        std::vector<std::string> lines;
        std::ifstream file(kRecordFile, std::ios::binary);
        for (std::string line; std::getline(file, line);)
            lines.push_back(line);
        return lines;
    }

    bench::WebServer server_;
    PROCESS_INFORMATION process_ = {};
};

TEST_F(Configurator, RecordsWhyItEnded) {
    server_.Serve("/file", "<products><product");
    const std::string address = kAddress;
    const struct {
        std::string line;
        const char* script;
        DWORD exitCode;
        const char* recorded;
    } cases[] = {
        {"start /SorvSIL \"" + address + "\" \"T\"", "choose first", 0, "refused The verb is not run."},
        {"run /sorvsil \"" + address + "\" \"T\"", "choose first", 0, "refused The command is not /SorvSIL."},
        {"run /SorvSIL \"" + address + "\" T U", "choose first", 0, "refused The command line has 5 words, not 4."},
        {"run /SorvSIL \"klimora.sorvik.example\" \"T\"", "choose first", 0,
         "refused The third word is not a web address."},
        {"run /SorvSIL \"" + address + "\" \"\"", "choose first", 0, "refused The title is empty."},
        {Line(address), "choose SRC-125-600", 0, "failed No such product fits: SRC-125-600"},
        {Line("http://klimora.sorvik.example/klimora?action=ljudprog&klsid=1&diameter=200"), "choose first", 0,
         "failed The server answered with 400."},
        {Line("http://klimora.sorvik.example/file"), "choose first", 0,
         "failed The server's answer is not a list of products."},
        {Line(address), nullptr, 0, "fits SRC-200-600"},
        {Line(address), "choose SRC-200-600,SRC-200-900", 1, "chose SRC-200-600,SRC-200-900"}};
    for (const auto& one : cases) {
        Start(one.script, one.line);
        EXPECT_EQ(Finish(), one.exitCode) << one.line;
        EXPECT_THAT(Record(), Contains(one.recorded));
    }
    EXPECT_EQ(server_.requests().back(),
              "POST /klimora/choose?klsid=0F1E2D3C4B5A69788796A5B4C3D2E1F0&product=SRC-200-600,SRC-200-900");
}

TEST_F(Configurator, ShowsTheTitleAndHandlesKeys) {
    Start("ask", Line(std::string(kAddress) + "&airflow=120"));
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
    EXPECT_THAT(Record(), Contains("chose SRK-200-900"));
}

}  // namespace
