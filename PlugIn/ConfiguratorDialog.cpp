#include "ConfiguratorDialog.h"

#include <string>

#include "KL_Conn.h"
#include "Lib/CommandLine.h"
#include "Lib/ExceptionReport.h"
#include "Lib/ModuleIdentity.h"
#include "ProductTitle.h"
#include "Resources/Resource.h"
#include "Util/DlgFunc.h"
#include "Util/KLUtils.h"
#include "Util/XmlElements.h"

namespace {

constexpr int kUserCodeSize = kMaxUserCodeLength + 1;  // with terminator

void SetIcon(HWND dialog, WPARAM kind, int resource, int width, int height) {
    const HANDLE icon = LoadImageA(ModuleHandle(), MAKEINTRESOURCEA(resource), IMAGE_ICON, GetSystemMetrics(width),
                                   GetSystemMetrics(height), LR_SHARED);
    SendMessageA(dialog, WM_SETICON, kind, reinterpret_cast<LPARAM>(icon));
}

void Open(HWND dialog, KlConn& session) {
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&session));
    const KLUtils::WaitCursor waitCursor;
    SetIcon(dialog, ICON_SMALL, IDI_SORVIK_SMALL, SM_CXSMICON, SM_CYSMICON);
    SetIcon(dialog, ICON_BIG, IDI_SORVIK_LARGE, SM_CXICON, SM_CYICON);
    CenterWindowOnParent(dialog);
    SetFocus(GetDlgItem(dialog, IDOK));
    SetDlgItemTextA(dialog, IDC_USER_CODE, session.ProposeUserCode(kSilencerClass, "").c_str());
}

// Stores the code in the device. Returns false when the user must enter another one.
bool TakeUserCode(HWND dialog, KlConn& session) {
    ticpp::Element* device = session.CurrentDevice();
    if (!device) throw "There is no product to give a user code.";
    const HWND field = GetDlgItem(dialog, IDC_USER_CODE);
    char code[kUserCodeSize] = "";
    if (!field || (GetWindowTextA(field, code, kUserCodeSize) == 0 && GetWindowTextLengthA(field) != 0))
        throw "Can not read the user code.";
    const std::string caption = ProductTitle();
    if (!*code) {
        MessageBoxA(dialog, "User code can not be empty", caption.c_str(), MB_OK | MB_ICONERROR);
        return false;
    }
    GetOrAddChildElement(device, "UserCode")->SetText(code);
    if (session.IsUserCodeInUse(kSilencerClass, code) &&
        MessageBoxA(dialog, "User code is already in use.\nDo you want to replace existing product?", caption.c_str(),
                    MB_YESNO | MB_ICONWARNING) != IDYES) {
        return false;
    }
    device->SetAttribute("UserCode", code);
    return true;
}

bool OnCommand(HWND dialog, WORD control) {
    KlConn* session = reinterpret_cast<KlConn*>(GetWindowLongPtrA(dialog, DWLP_USER));
    switch (control) {
        case IDOK:
            // Windows also sends commands of controls before WM_INITDIALOG.
            if (!session) return false;
            if (TakeUserCode(dialog, *session)) EndDialog(dialog, IDOK);
            return true;
        case IDCANCEL:
            EndDialog(dialog, IDCANCEL);
            return true;
        default:
            return false;
    }
}

INT_PTR CALLBACK UserCodeProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    try {
        switch (message) {
            case WM_INITDIALOG:
                Open(dialog, *reinterpret_cast<KlConn*>(lParam));
                return FALSE;  // the focus is set
            case WM_COMMAND:
                return OnCommand(dialog, LOWORD(wParam));
            case WM_CLOSE:
                PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
                return TRUE;
            default:
                return FALSE;
        }
    } catch (...) {
        // No exception may leave a dialog procedure; the dialog closes as by Cancel.
        ReportException("Failed to take the user code.", "PlugIn/ConfiguratorDialog", 93, "ShowUserCodeDialog");
        EndDialog(dialog, IDCANCEL);
        return TRUE;
    }
}

}  // namespace

int ShowUserCodeDialog(HWND owner, KlConn& session) {
    const INT_PTR closedWith =
        DialogBoxParamA(ModuleHandle(), "SORVIK_WEB", owner, UserCodeProcedure, reinterpret_cast<LPARAM>(&session));
    if (closedWith != IDOK && closedWith != IDCANCEL)
        PrintCommandLine("\n%s: Can not show the user code dialog.\n", kDisplayName);
    return closedWith == IDOK ? 0 : -1;
}
