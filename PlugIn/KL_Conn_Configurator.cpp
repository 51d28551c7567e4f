#include "KL_Conn.h"

#include "acedads.h"

#include "DuctAttributes.h"
#include "Lib/CommandLine.h"
#include "Lib/Handles.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"
#include "ModuleLoader.h"
#include "Resources/Resource.h"
#include "Util/KLUtils.h"

namespace {

constexpr char kConfiguratorAddress[] = SORVIK_WEB_SERVER "/klimora";
constexpr char kResultAddress[] = SORVIK_WEB_SERVER "/klimora/export/";

// A timer message ends each WaitMessage, because AutoCAD's own windows may get none for a long time.
constexpr UINT kWakeUpPeriod = 15;  // ms

INT_PTR CALLBACK WaitingWindowProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// Keeps the user out of AutoCAD: disables the main window and shows a waiting window in the foreground. The destructor
// enables the main window before it destroys the waiting one, so that Windows does not activate another program.
class ModalState {
 public:
    explicit ModalState(HINSTANCE module) : mainWindow_(adsw_acadMainWnd()), focus_(GetFocus()) {
        EnableWindow(mainWindow_, FALSE);
        waiting_ =
            CreateDialogParamA(module, MAKEINTRESOURCEA(IDD_CONFIGURATOR_WAIT), nullptr, WaitingWindowProcedure, 0);
        const LONG_PTR style = GetWindowLongPtrA(waiting_, GWL_EXSTYLE);
        SetWindowLongPtrA(waiting_, GWL_EXSTYLE, (style | WS_EX_TOOLWINDOW) & ~static_cast<LONG_PTR>(WS_EX_APPWINDOW));
        ShowWindow(waiting_, SW_SHOW);
        SetForegroundWindow(waiting_);
        timer_ = SetTimer(waiting_, 1, kWakeUpPeriod, nullptr);
    }
    ~ModalState() {
        KillTimer(waiting_, timer_);
        EnableWindow(mainWindow_, TRUE);
        DestroyWindow(waiting_);
        SetForegroundWindow(mainWindow_);
        SetFocus(focus_);
    }
    ModalState(const ModalState&) = delete;
    ModalState& operator=(const ModalState&) = delete;

 private:
    HWND mainWindow_;
    HWND focus_;
    HWND waiting_ = nullptr;
    UINT_PTR timer_ = 0;
};

enum class Pumped { kMessage, kNothing, kQuit };

// Dispatches one pending message. Posts a request to quit again, for AutoCAD.
Pumped PumpMessage() {
    MSG message;
    if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) return Pumped::kNothing;
    if (message.message == WM_QUIT) {
        PostQuitMessage(static_cast<int>(message.wParam));
        return Pumped::kQuit;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
    return Pumped::kMessage;
}

// Returns 0 when the program has ended; -1 when AutoCAD is quitting or waiting failed, and then the program may still
// be running.
int WaitForEnd(HANDLE program) {
    Pumped pumped = Pumped::kNothing;
    for (;;) {
        if (pumped == Pumped::kNothing) WaitMessage();
        // Check after every message: a window that keeps posting to itself must not hide the program's end.
        switch (WaitForSingleObject(program, 0)) {
            case WAIT_OBJECT_0:
                return 0;
            case WAIT_FAILED:
                PrintCommandLine("\n%s: Can not wait for the configurator.\n", kDisplayName);
                return -1;
            default:
                pumped = PumpMessage();
                if (pumped == Pumped::kQuit) return -1;
        }
    }
}

}  // namespace

std::string KlConn::ConfiguratorAddress() const {
    const ticpp::Element* duct = document_->FirstChildElement()->FirstChildElement("duct");
    std::string address = kConfiguratorAddress + ("?action=ljudprog&klsid=" + sessionId_);
    for (const DuctAttribute& attribute : kDuctAttributes) {
        if (duct->HasAttribute(attribute.name)) address += attribute.addressKey + duct->GetAttribute(attribute.name);
    }
    return address;
}

std::string KlConn::ResultAddress() const {
    return kResultAddress + sessionId_ + ".xml";
}

int KlConn::LaunchConfigurator(const char* program, const char* commandName, const char* address, const char* title) {
    for (const char* argument : {program, commandName, address, title}) {
        if (IsNullOrEmpty(argument)) return -1;
    }
    const KLUtils::WaitCursor waitCursor;
    configurator_.reset();
    char folder[MAX_PATH] = "";
    if (GetModuleFolder(kModuleFileName, folder, sizeof folder) != 0) throw "ARX is not loaded.";
    const std::string path = std::string(folder) + "\\" + program;
    // The program reads its arguments verbatim: a quote mark inside the address must not be escaped.
    std::string commandLine = std::string("run /") + commandName + " \"" + address + "\" \"" + title + "\"";
    {
        const ModalState modal(ModuleHandle());
        STARTUPINFOA startup = {};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION started = {};
        if (!CreateProcessA(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, CREATE_DEFAULT_ERROR_MODE,
                            nullptr, nullptr, &startup, &started)) {
            PrintCommandLine("\n%s: Can not execute %s.\n", kDisplayName, path.c_str());
            return -1;
        }
        const KernelHandle thread(started.hThread);
        configurator_.reset(started.hProcess);
        if (WaitForEnd(configurator_.get()) < 0) return -1;
    }
    const KernelHandle ended(configurator_.release());
    DWORD exitCode = 0;
    if (!GetExitCodeProcess(ended.get(), &exitCode))
        PrintCommandLine("\n%s: Can not tell how the configurator ended.\n", kDisplayName);
    SetNoProjectFileAccessCheck(false);
    // Inverted on purpose: the program reports an exported product by an exit code other than 0.
    return exitCode == 0 ? -1 : 0;
}
