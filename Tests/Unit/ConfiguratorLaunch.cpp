// The configurator's address, and its start: the calls for AutoCAD's windows, and what is released.
#include <cstring>

#include "RecordedCalls.h"
#include "SessionBench.h"

namespace {

constexpr DWORD kUnknown = 99;  // GetExitCodeProcess fails

// A window that receives a message while the module waits for the program. It may post itself another one each time.
int messagesSeen = 0;
bool keepsPosting = false;
LRESULT CALLBACK SeeMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP && ++messagesSeen < 50 && keepsPosting) PostMessageA(window, WM_APP, 0, 0);
    return DefWindowProcA(window, message, wParam, lParam);
}

using ConfiguratorLaunch = SessionBench;

TEST_F(ConfiguratorLaunch, RejectsMissingArguments) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    bench::ClearCallLog();
    for (const char* none : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_EQ(session.LaunchConfigurator(none, "SorvSIL", "http://x", "title"), -1);
        EXPECT_EQ(session.LaunchConfigurator("CAD.exe", none, "http://x", "title"), -1);
        EXPECT_EQ(session.LaunchConfigurator("CAD.exe", "SorvSIL", none, "title"), -1);
        EXPECT_EQ(session.LaunchConfigurator("CAD.exe", "SorvSIL", "http://x", none), -1);
    }
    EXPECT_TRUE(bench::CallLog().empty());
    EXPECT_EQ(Printed(), "");
}

TEST_F(ConfiguratorLaunch, ThrowsWhenTheModuleIsNotFound) {
    KlConn session;
    ASSERT_EQ(session.Initialize(), 0);
    RecordedCalls calls;
    calls.Return("GetModuleFileNameA", GetModuleFileNameA, 0);
    EXPECT_EQ(Thrown([&] { session.LaunchConfigurator("CAD.exe", "SorvSIL", "http://x", "title"); }),
              "ARX is not loaded.");
}

TEST_F(ConfiguratorLaunch, WritesTheAddressFromTheDuct) {
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

TEST_F(ConfiguratorLaunch, RestoresWindowsAndReleasesHandles) {
    const HMODULE module = GetModuleHandleA("Sorvik_R24_x64.arx");
    char file[MAX_PATH] = "";
    GetModuleFileNameA(module, file, MAX_PATH);
    const std::string path = file, program = path.substr(0, path.rfind('\\')) + "\\CAD.exe";
    const std::string
        begin =
            "GetFocus\nEnableWindow main 0\nCreateDialogParamA module 10000 null & 0\nShowWindow CreateDialogParamA 5\n"
            "SetForegroundWindow CreateDialogParamA\nSetTimer CreateDialogParamA 0x1 0xF &\nCreateProcessA \"" +
            program + "\" & null null 0 0x4000000 null null & &\n",
        look = "WaitForSingleObject process 0x0\n", wait = "WaitMessage\n" + look,
        end =
            "KillTimer CreateDialogParamA 0x4D\nEnableWindow main 1\nDestroyWindow CreateDialogParamA\n"
            "SetForegroundWindow main\nSetFocus GetFocus\n",
        ended = "CloseHandle thread\n" + end + "GetExitCodeProcess process &\nCloseHandle process\n",
        left = "CloseHandle thread\n" + end + "TerminateProcess process 0xFFFFFFFF\nCloseHandle process\n";
    const struct {
        std::vector<DWORD> waits;  // results, last to first; none when the program does not start
        DWORD exitCode;
        int result, messages;
        std::string calls, printed;
    } cases[] = {
        {{WAIT_OBJECT_0, WAIT_TIMEOUT, WAIT_TIMEOUT}, 7, 0, 2, begin + wait + look + look + ended, ""},
        {{WAIT_OBJECT_0}, 0, -1, 0, begin + wait + ended, ""},
        {{WAIT_OBJECT_0}, kUnknown, -1, 0, begin + wait + ended, Line("Can not tell how the configurator ended.")},
        // AutoCAD quits.
        {{WAIT_TIMEOUT, WAIT_TIMEOUT}, 1, -1, 1, begin + wait + look + left, ""},
        // The wait fails.
        {{WAIT_FAILED}, 1, -1, 0, begin + wait + left, Line("Can not wait for the configurator.")},
        {{}, 1, -1, 0, begin + end, Line("Can not execute " + program + ".")},
    };
    for (const auto& c : cases) {
        std::vector<DWORD> waits = c.waits;
        const bool quits = c.waits == std::vector<DWORD>{WAIT_TIMEOUT, WAIT_TIMEOUT};
        HWND waiting = nullptr;
        messagesSeen = 0;
        keepsPosting = c.messages > 1;
        bench::ClearCallLog();
        {
            KlConn session;
            ASSERT_EQ(session.Initialize(), 0);
            Printed();
            const HANDLE process = reinterpret_cast<HANDLE>(0x51510), thread = reinterpret_cast<HANDLE>(0x52520);
            RecordedCalls calls(
                {{bench::MainWindow(), "main"}, {module, "module"}, {process, "process"}, {thread, "thread"}});
            calls.Return("GetFocus", GetFocus, GetDesktopWindow());
            calls.Return("EnableWindow", EnableWindow, TRUE);
            calls.Record("CreateDialogParamA", CreateDialogParamA, [&](auto, auto, auto, DLGPROC procedure, auto) {
                EXPECT_EQ(procedure(nullptr, WM_INITDIALOG, 0, 0), FALSE);
                waiting = CreateWindowExA(WS_EX_APPWINDOW, "Static", "", WS_POPUP, 0, 0, 5, 5, nullptr, nullptr,
                                          nullptr, nullptr);
                SetWindowLongPtrA(waiting, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SeeMessage));
                return waiting;
            });
            calls.Record("ShowWindow", ShowWindow, [](HWND window, int) {
                EXPECT_EQ(GetWindowLongPtrA(window, GWL_EXSTYLE) & (WS_EX_TOOLWINDOW | WS_EX_APPWINDOW),
                          WS_EX_TOOLWINDOW);
                return TRUE;
            });
            calls.Return("SetForegroundWindow", SetForegroundWindow, TRUE);
            calls.Return("SetTimer", SetTimer, 77);
            calls.Return("KillTimer", KillTimer, TRUE);
            calls.Return("DestroyWindow", DestroyWindow, TRUE);
            calls.Return("SetFocus", SetFocus, nullptr);
            const auto create = [&](auto, char* words, auto, auto, auto, auto, auto, auto, auto* startup,
                                    auto* started) {
                EXPECT_STREQ(words, "run /SorvSIL \"http://x?\"y\"\" \"A title\"");
                STARTUPINFOA zeroed = {};
                zeroed.cb = sizeof zeroed;
                EXPECT_EQ(std::memcmp(startup, &zeroed, sizeof zeroed), 0);
                EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_WAIT));
                *started = {process, thread, 0, 0};
                return !c.waits.empty();
            };
            calls.Record("CreateProcessA", CreateProcessA, create);
            calls.Record("WaitMessage", WaitMessage, [&] {
                PostMessageA(waiting, WM_APP, 0, 0);
                if (quits) PostQuitMessage(5);
                return TRUE;
            });
            calls.Record("WaitForSingleObject", WaitForSingleObject, [&](HANDLE, DWORD) {
                const DWORD result = waits.back();
                waits.pop_back();
                return result;
            });
            calls.Record("GetExitCodeProcess", GetExitCodeProcess, [&](HANDLE, LPDWORD code) {
                if (c.exitCode != kUnknown) *code = c.exitCode;
                return c.exitCode != kUnknown;
            });
            calls.Return("TerminateProcess", TerminateProcess, TRUE);
            calls.Return("CloseHandle", CloseHandle, TRUE);
            EXPECT_EQ(session.LaunchConfigurator("CAD.exe", "SorvSIL", "http://x?\"y\"", "A title"), c.result);
            EXPECT_EQ(Printed(), c.printed);
            session.Shutdown();
            EXPECT_EQ(calls.Take(), c.calls);
        }
        DestroyWindow(waiting);
        EXPECT_EQ(messagesSeen, c.messages);
        MSG message = {};
        EXPECT_EQ(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE), quits)
            << "WM_QUIT is posted again for AutoCAD";
        EXPECT_EQ(message.wParam, quits ? 5u : 0u);
        EXPECT_EQ(Calls("IKlimora200805::setPartAtt '' '/dwg/flag/noPrjFileAccessCheck' '1'").size(),
                  c.calls.find("GetExitCode") != std::string::npos ? 1u : 0u);
    }
}

}  // namespace
