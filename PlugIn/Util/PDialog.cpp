#include "Util/PDialog.h"

#include <commctrl.h>

#include <utility>

#include "Lib/Diagnostics.h"
#include "Lib/ModuleIdentity.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/PDialog";

TOOLINFOA MakeToolInfo(HWND dialog, const PDialogControl& control) {
    static_assert(sizeof(TOOLINFOA) == 72, "expected with lpReserved");
    TOOLINFOA tool = {};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
    tool.hwnd = dialog;
    tool.uId = reinterpret_cast<UINT_PTR>(control.window());
    tool.lpszText = LPSTR_TEXTCALLBACKA;
    return tool;
}

}  // namespace

PDialog::PDialog() = default;

PDialog::~PDialog() {
    for (const auto& control : controls_) {
        if (control->tooltip().empty()) continue;
        TOOLINFOA tool = MakeToolInfo(dialogWindow_, *control);
        SendMessageA(tooltipWindow_.get(), TTM_DELTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

int PDialog::SetHandle(HWND dialogWindow) {
    if (!dialogWindow) {
        ReportErrorAndBreak("Dialog handle is NULL", kSource, 49, "PDialog::SetHandle");
        return -1;
    }
    dialogWindow_ = dialogWindow;
    return 0;
}

int PDialog::AddControl(std::unique_ptr<PDialogControl> control) {
    if (!control) {
        ReportErrorAndBreak("Wrong parameter _Control is NULL", kSource, 62, "PDialog::AddControl");
        return -1;
    }
    if (!control->tooltip().empty()) {
        TOOLINFOA tool = MakeToolInfo(dialogWindow_, *control);
        SendMessageA(tooltipWindow_.get(), TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
    control->owner_ = this;
    controls_.push_back(std::move(control));
    return 0;
}

INT_PTR PDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    for (const auto& control : controls_)
        if (const INT_PTR result = control->HandleMessage(message, wParam, lParam)) return result;
    switch (message) {
        case WM_INITDIALOG:
            InitCommonControls();
            CreateTooltipWindow();
            return 0;
        case WM_COMMAND:
            return OnCommand(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        case WM_NOTIFY:
            SetTooltipText(reinterpret_cast<NMHDR*>(lParam));
            return 0;
        case WM_CLOSE:
            // OnCommand ignores this command because it has no control window: the derived dialog decides whether the
            // frame's close button ends it.
            PostMessageA(dialogWindow_, WM_COMMAND, IDCANCEL, 0);
            return 0;
        case WM_HELP:
            return 1;
        default:
            return 0;
    }
}

void PDialog::CreateTooltipWindow() {
    tooltipWindow_.reset(CreateWindowExA(0, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP,
                                         CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, dialogWindow_,
                                         nullptr, ModuleHandle(), nullptr));
}

void PDialog::SetTooltipText(NMHDR* notification) const {
    if (notification->code != TTN_GETDISPINFOA) return;
    for (const auto& control : controls_) {
        if (reinterpret_cast<UINT_PTR>(control->window()) != notification->idFrom || control->tooltip_.empty())
            continue;
        reinterpret_cast<NMTTDISPINFOA*>(notification)->lpszText = control->tooltip_.data();
        return;
    }
}

INT_PTR PDialog::OnCommand(WORD identifier, WORD code, HWND control) {
    if (identifier == IDOK) {
        if (control && control == GetControl(IDOK) && Validate(1, 1, 1, 0) == 0) EndDialog(dialogWindow_, IDOK);
        return 0;
    }
    if (identifier == IDCANCEL || identifier == IDCLOSE) {
        if (control && (control == GetControl(IDCLOSE) || control == GetControl(IDCANCEL)))
            EndDialog(dialogWindow_, IDCANCEL);
        return 0;
    }
    const PDialogControl* const binder = code == EN_SETFOCUS ? FindBinder(identifier) : nullptr;
    if (!binder) return 0;
    SetFocus(binder->window());
    SendMessageA(binder->window(), EM_SETSEL, 0, -1);
    return 1;
}

int PDialog::ToDialog(int identifier) {
    if (!dialogWindow_) {
        ReportErrorAndBreak("Dialog handle is NULL", kSource, 144, "PDialog::ToDialog");
        return -1;
    }
    if (!title_.empty()) SetWindowTextA(dialogWindow_, title_.c_str());
    if (identifier >= 0) {
        if (PDialogControl* const control = FindBinder(identifier)) control->ToDialog();
        return 0;
    }
    for (const auto& control : controls_)
        control->ToDialog();
    return 0;
}

int PDialog::FromDialog(int identifier) {
    if (identifier >= 0) {
        if (PDialogControl* const control = FindBinder(identifier)) control->FromDialog();
        return 0;
    }
    for (const auto& control : controls_)
        control->FromDialog();
    return 0;
}

HBRUSH PDialog::CtlColor(HDC device, COLORREF textColour, COLORREF backgroundColour) {
    if (textColour == CLR_INVALID) textColour = GetSysColor(COLOR_BTNTEXT);
    if (backgroundColour == CLR_INVALID) backgroundColour = GetSysColor(COLOR_BTNFACE);
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, textColour);
    SetBkColor(device, backgroundColour);
    if (backgroundColour != brushColour_) {
        brush_.reset(CreateSolidBrush(backgroundColour));
        brushColour_ = backgroundColour;
    }
    return brush_.get();
}

HWND PDialog::GetControl(int identifier) const {
    return GetDlgItem(dialogWindow_, identifier);
}

bool PDialog::HasControl(int identifier) const {
    return GetControl(identifier) != nullptr;
}

PDialogControl* PDialog::FindBinder(int identifier) const {
    for (const auto& control : controls_)
        if (control->identifier() == identifier) return control.get();
    return nullptr;
}
