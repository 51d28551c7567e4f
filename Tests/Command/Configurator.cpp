// The configurator as a process of its own: what AutoCAD looks like meanwhile, and how it ends.
#include <windows.h>

#include <tlhelp32.h>

#include "CommandBench.h"

namespace {

using ConfiguratorRun = CommandBench;

TEST_F(ConfiguratorRun, CancelledEndsQuietlyAndFetchesNothing) {
    Picks("2A3");
    InTheConfigurator("cancel");
    Run();
    EXPECT_EQ(CountOf("GET /klimora/export/"), 0u);
    EXPECT_EQ(Printed().find(kName), std::string::npos) << Printed();
    EXPECT_EQ(CountOf("IKlimora200805::setPartAtt '' '/dwg/flag/noPrjFileAccessCheck' '1' -> 0"), 1u);
    ExpectNothingChanged();
}

// What another thread sees while the configurator is open.
struct Seen {
    bool started = false;
    bool mainWindowEnabled = true;
    bool waitingWindow = false;
    bool answersMessages = false;
    HANDLE configurator = nullptr;  // for the asker to close
};

HANDLE RunningConfigurator() {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry = {};
    entry.dwSize = sizeof entry;
    HANDLE process = nullptr;
    for (BOOL more = Process32First(snapshot, &entry); more && !process; more = Process32Next(snapshot, &entry)) {
        if (std::wstring(entry.szExeFile) == L"CAD_Connection_UI_x64.exe")
            process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE, entry.th32ProcessID);
    }
    CloseHandle(snapshot);
    return process;
}

void LookAtAutoCAD(HANDLE ready, Seen& seen) {
    seen.started = WaitForSingleObject(ready, 20000) == WAIT_OBJECT_0;
    seen.configurator = RunningConfigurator();
    seen.mainWindowEnabled = IsWindowEnabled(bench::MainWindow()) != FALSE;
    DWORD_PTR answer = 0;
    seen.answersMessages = SendMessageTimeoutA(bench::MainWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 10000, &answer) != 0;
    EnumThreadWindows(
        GetWindowThreadProcessId(bench::MainWindow(), nullptr),
        [](HWND window, LPARAM found) -> BOOL {
            const LONG_PTR style = GetWindowLongPtrA(window, GWL_EXSTYLE);
            char name[16] = "";
            GetClassNameA(window, name, sizeof name);
            if (std::string(name) == "#32770" && IsWindowVisible(window) && !GetWindow(window, GW_OWNER) &&
                (style & WS_EX_TOOLWINDOW) && !(style & WS_EX_APPWINDOW))
                *reinterpret_cast<bool*>(found) = true;
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&seen.waitingWindow));
}

// AutoCAD quits while the configurator is still open: the wait ends, and the session's end terminates the program.
TEST_F(ConfiguratorRun, StillRunningAtShutdownIsTerminated) {
    constexpr char kReady[] = "SorvikConfiguratorReady";
    const HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, kReady);
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_READY", kReady);
    Picks("2A3");
    InTheConfigurator("hang");
    struct Observer {
        HANDLE ready;
        DWORD mainThread;
        Seen seen;
    } observer = {ready, GetCurrentThreadId(), {}};
    const HANDLE thread = CreateThread(
        nullptr, 0,
        [](LPVOID parameter) -> DWORD {
            Observer& o = *static_cast<Observer*>(parameter);
            LookAtAutoCAD(o.ready, o.seen);
            PostThreadMessageA(o.mainThread, WM_QUIT, 5, 0);
            return 0;
        },
        &observer, 0, nullptr);
    Run();
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    CloseHandle(ready);
    SetEnvironmentVariableA("SORVIK_BENCH_CONFIGURATOR_READY", nullptr);
    EXPECT_TRUE(observer.seen.started);
    EXPECT_FALSE(observer.seen.mainWindowEnabled);
    EXPECT_TRUE(observer.seen.waitingWindow);
    EXPECT_TRUE(observer.seen.answersMessages) << "AutoCAD's windows repaint meanwhile";
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE))
        << "AutoCAD still sees that it is to quit";
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_EQ(CountOf("GET /klimora/export/"), 0u);
    ASSERT_TRUE(observer.seen.configurator);
    EXPECT_EQ(WaitForSingleObject(observer.seen.configurator, 10000), WAIT_OBJECT_0);
    DWORD exitCode = 0;
    GetExitCodeProcess(observer.seen.configurator, &exitCode);
    EXPECT_EQ(exitCode, static_cast<DWORD>(-1));
    CloseHandle(observer.seen.configurator);
    ExpectNothingChanged();
}

}  // namespace
