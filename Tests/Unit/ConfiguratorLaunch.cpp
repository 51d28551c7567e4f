// The configurator's address, and its start: what AutoCAD's windows go through meanwhile, and what is given back.
#include <cstring>

#include "ImportPatch.h"
#include "SessionBench.h"

namespace {

// The calls of a launch, in order. The program is a made-up one.
const HANDLE kProcess = reinterpret_cast<HANDLE>(0x51510), kThread = reinterpret_cast<HANDLE>(0x52520);
std::vector<std::string> launch;
HWND waitingWindow = nullptr, focusBefore = nullptr;
BOOL programStarts = TRUE;
std::vector<DWORD> waits;  // what the waits answer, last to first
DWORD programsExitCode = 0;

std::string NameOf(HWND window) {
    return window == bench::MainWindow() ? "main"
           : window == waitingWindow     ? "waiting"
           : window == focusBefore       ? "focus"
                                         : "?";
}
HWND WINAPI RecordGetFocus() {
    return focusBefore;
}
BOOL WINAPI RecordEnable(HWND window, BOOL enable) {
    launch.push_back(NameOf(window) + (enable ? " enabled" : " disabled"));
    return TRUE;
}
LRESULT CALLBACK SeeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP) launch.push_back("message");
    return DefWindowProcA(window, message, wParam, lParam);
}
HWND WINAPI RecordDialog(HINSTANCE module, LPCSTR resource, HWND parent, DLGPROC procedure, LPARAM) {
    launch.push_back("dialog " + std::to_string(reinterpret_cast<ULONG_PTR>(resource)));
    EXPECT_EQ(module, GetModuleHandleA("Sorvik_R24_x64.arx"));
    EXPECT_EQ(parent, nullptr);
    EXPECT_EQ(procedure(nullptr, WM_INITDIALOG, 0, 0), FALSE);
    waitingWindow =
        CreateWindowExA(WS_EX_APPWINDOW, "Static", "", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(waitingWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SeeMessage));
    return waitingWindow;
}
BOOL WINAPI RecordShow(HWND window, int how) {
    const LONG_PTR style = GetWindowLongPtrA(window, GWL_EXSTYLE);
    launch.push_back(NameOf(window) + (how == SW_SHOW ? " shown" : " ?") + (style & WS_EX_TOOLWINDOW ? " tool" : "") +
                     (style & WS_EX_APPWINDOW ? " application" : ""));
    return TRUE;
}
BOOL WINAPI RecordForeground(HWND window) {
    launch.push_back(NameOf(window) + " foreground");
    return TRUE;
}
UINT_PTR WINAPI RecordTimer(HWND window, UINT_PTR, UINT period, TIMERPROC procedure) {
    launch.push_back(NameOf(window) + (period > 0 && period <= 20 && !procedure ? " timer" : " ?"));
    return 77;
}
BOOL WINAPI RecordKill(HWND window, UINT_PTR timer) {
    launch.push_back(NameOf(window) + " timer killed " + std::to_string(timer));
    return TRUE;
}
BOOL WINAPI RecordDestroy(HWND window) {
    launch.push_back(NameOf(window) + " destroyed");
    return TRUE;
}
HWND WINAPI RecordFocus(HWND window) {
    launch.push_back(NameOf(window) + " focused");
    return nullptr;
}
BOOL WINAPI RecordStart(LPCSTR program, LPSTR commandLine, LPSECURITY_ATTRIBUTES process, LPSECURITY_ATTRIBUTES thread,
                        BOOL inherits, DWORD flags, LPVOID environment, LPCSTR folder, LPSTARTUPINFOA startup,
                        LPPROCESS_INFORMATION started) {
    STARTUPINFOA zeroed = {};
    zeroed.cb = sizeof zeroed;
    const bool plain = !process && !thread && !environment && !folder && !inherits &&
                       flags == CREATE_DEFAULT_ERROR_MODE && std::memcmp(startup, &zeroed, sizeof zeroed) == 0;
    launch.push_back(std::string(program) + "|" + commandLine + (plain ? "" : " not plainly"));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
    started->hProcess = kProcess;
    started->hThread = kThread;
    return programStarts;
}
bool quits = false;
BOOL WINAPI RecordWaitMessage() {
    launch.push_back("wait");
    PostMessageA(waitingWindow, WM_APP, 0, 0);
    if (quits) PostQuitMessage(5);
    return TRUE;
}
// The test framework waits, too, for threads that end.
DWORD WINAPI RecordWait(HANDLE process, DWORD milliseconds) {
    if (process != kProcess) return WaitForSingleObjectEx(process, milliseconds, FALSE);
    EXPECT_EQ(milliseconds, 0u);
    const DWORD answer = waits.back();
    waits.pop_back();
    return answer;
}
BOOL WINAPI RecordExitCode(HANDLE process, LPDWORD code) {
    EXPECT_EQ(process, kProcess);
    *code = programsExitCode;
    return TRUE;
}
BOOL WINAPI RecordTerminate(HANDLE process, UINT code) {
    launch.push_back((process == kProcess ? "program terminated " : "? ") + std::to_string(static_cast<int>(code)));
    return TRUE;
}
BOOL WINAPI RecordClose(HANDLE handle) {
    if (handle != kProcess && handle != kThread)
        return DuplicateHandle(GetCurrentProcess(), handle, nullptr, nullptr, 0, FALSE, DUPLICATE_CLOSE_SOURCE);
    launch.push_back(handle == kProcess ? "process closed" : "thread closed");
    return TRUE;
}

using ConfiguratorLaunch = SessionBench;

TEST_F(ConfiguratorLaunch, LaunchNeedsItsFourWords) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::ClearJournal();
    const char* words[] = {"CAD_Connection_UI_x64.exe", "SorvSIL", "http://x", "title"};
    for (int missing = 0; missing < 4; ++missing) {
        for (const char* instead : {static_cast<const char*>(nullptr), ""}) {
            const char* given[4] = {words[0], words[1], words[2], words[3]};
            given[missing] = instead;
            EXPECT_EQ(session.LaunchConfigurator(given[0], given[1], given[2], given[3]), -1) << missing;
        }
    }
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_EQ(Printed(), "");
}

TEST_F(ConfiguratorLaunch, AddressNeedsADuct) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    EXPECT_THROW(session.ConfiguratorAddress(), ticpp::Exception);
    ticpp::Element* duct = session.Root()->InsertEndChild(ticpp::Element("duct"));
    const std::string start = SORVIK_WEB_SERVER "/klimora?action=ljudprog&klsid=" + session.SessionId();
    EXPECT_EQ(session.ConfiguratorAddress(), start);
    duct->SetAttribute("airflow_ls", "1 \"2\"&3");
    duct->SetAttribute("diameter_mm", "250.0");
    EXPECT_EQ(session.ConfiguratorAddress(), start + "&diameter=250.0&airflow=1 \"2\"&3") << "nothing is encoded";
    EXPECT_EQ(session.ResultAddress(), SORVIK_WEB_SERVER "/klimora/export/" + session.SessionId() + ".xml");
}

TEST_F(ConfiguratorLaunch, LaunchLeavesEverythingAsItWas) {
    char module[MAX_PATH] = "";
    GetModuleFileNameA(GetModuleHandleA("Sorvik_R24_x64.arx"), module, MAX_PATH);
    const std::string path = module, program = path.substr(0, path.rfind('\\')) + "\\CAD.exe";
    const std::vector<std::string> begin = {"main disabled",
                                            "dialog 10000",
                                            "waiting shown tool",
                                            "waiting foreground",
                                            "waiting timer",
                                            program + "|run /SorvSIL \"http://x?\"y\"\" \"A title\""},
                                   end = {"waiting timer killed 77", "main enabled", "waiting destroyed",
                                          "main foreground", "focus focused"};
    const struct {
        BOOL starts;
        std::vector<DWORD> waits;
        DWORD exitCode;
        int result;
        std::vector<std::string> between, after;
        std::string printed;
    } cases[] = {
        {TRUE,
         {WAIT_OBJECT_0, WAIT_TIMEOUT},
         7,
         0,
         {"wait", "message", "wait", "thread closed"},
         {"process closed"},
         ""},
        {TRUE, {WAIT_OBJECT_0}, 0, -1, {"wait", "thread closed"}, {"process closed"}, ""},
        // AutoCAD quits; and Windows does not say whether the program runs.
        {TRUE,
         {WAIT_TIMEOUT},
         1,
         -1,
         {"wait", "message", "thread closed"},
         {"program terminated -1", "process closed"},
         ""},
        {TRUE,
         {WAIT_FAILED},
         1,
         -1,
         {"wait", "thread closed"},
         {"program terminated -1", "process closed"},
         Line("Can not wait for the configurator.")},
        {FALSE, {}, 1, -1, {}, {}, Line("Can not execute " + program + ".")},
    };
    for (const auto& c : cases) {
        launch.clear();
        programStarts = c.starts;
        waits = c.waits;
        quits = c.waits.size() == 1 && c.waits[0] == WAIT_TIMEOUT;
        programsExitCode = c.exitCode;
        focusBefore = GetDesktopWindow();
        bench::ClearJournal();
        {
            KlConn session;
            ASSERT_EQ(session.Initialize(), 0);
            Printed();
            const ImportPatch patches[] = {{"GetFocus", RecordGetFocus},
                                           {"EnableWindow", RecordEnable},
                                           {"CreateDialogParamA", RecordDialog},
                                           {"ShowWindow", RecordShow},
                                           {"SetForegroundWindow", RecordForeground},
                                           {"SetTimer", RecordTimer},
                                           {"KillTimer", RecordKill},
                                           {"DestroyWindow", RecordDestroy},
                                           {"SetFocus", RecordFocus},
                                           {"CreateProcessA", RecordStart},
                                           {"WaitMessage", RecordWaitMessage},
                                           {"WaitForSingleObject", RecordWait},
                                           {"GetExitCodeProcess", RecordExitCode},
                                           {"TerminateProcess", RecordTerminate},
                                           {"CloseHandle", RecordClose}};
            EXPECT_EQ(session.LaunchConfigurator("CAD.exe", "SorvSIL", "http://x?\"y\"", "A title"), c.result);
            EXPECT_EQ(Printed(), c.printed);
            session.Shutdown();
        }
        DestroyWindow(waitingWindow);
        MSG message = {};
        EXPECT_EQ(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), quits) << "AutoCAD sees it, too";
        EXPECT_EQ(message.wParam, quits ? 5u : 0u);
        EXPECT_EQ(Calls("IKlimora200805::setPartAtt '' '/dwg/flag/noPrjFileAccessCheck' '1'").size(),
                  c.after.size() == 1 ? 1u : 0u);
        std::vector<std::string> expected = begin;
        for (const auto* part : {&c.between, &end, &c.after})
            expected.insert(expected.end(), part->begin(), part->end());
        EXPECT_EQ(launch, expected);
    }
}

}  // namespace
