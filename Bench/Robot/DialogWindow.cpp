#include "DialogWindow.h"

namespace bench {
namespace {

constexpr UINT kAnswerBound = 5000;

LRESULT Ask(HWND window, UINT message, WPARAM wordParameter, LPARAM longParameter) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wordParameter, longParameter, SMTO_NORMAL, kAnswerBound, &answer))
        return 0;
    return static_cast<LRESULT>(answer);
}

std::string TextOf(HWND window) {
    const LRESULT length = Ask(window, WM_GETTEXTLENGTH, 0, 0);
    std::string text(static_cast<size_t>(length) + 1, '\0');
    const LRESULT copied = Ask(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(&text[0]));
    text.resize(static_cast<size_t>(copied));
    return text;
}

std::string ClassOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

BoxIcon KindOf(HICON icon) {
    if (!icon) return BoxIcon::kNone;
    const struct {
        LPCSTR resource;
        BoxIcon kind;
    } known[] = {{reinterpret_cast<LPCSTR>(IDI_HAND), BoxIcon::kError},
                 {reinterpret_cast<LPCSTR>(IDI_EXCLAMATION), BoxIcon::kWarning},
                 {reinterpret_cast<LPCSTR>(IDI_QUESTION), BoxIcon::kQuestion},
                 {reinterpret_cast<LPCSTR>(IDI_ASTERISK), BoxIcon::kInformation}};
    // System icons are shared: loading one twice returns the same handle.
    for (const auto& candidate : known)
        if (LoadIconA(nullptr, candidate.resource) == icon) return candidate.kind;
    return BoxIcon::kOther;
}

std::string WithoutAmpersand(const std::string& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return plain;
}

void LookAtControl(HWND control, SeenDialog& seen) {
    const std::string className = ClassOf(control);
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    const int id = GetDlgCtrlID(control);
    if (className == "Static" && (style & SS_TYPEMASK) == SS_ICON) {
        seen.icon = KindOf(reinterpret_cast<HICON>(Ask(control, STM_GETICON, 0, 0)));
    } else if (className == "Static") {
        const std::string text = TextOf(control);
        if (!text.empty()) seen.text += (seen.text.empty() ? "" : "\n") + text;
    } else if (className == "Button") {
        const LONG type = style & BS_TYPEMASK;
        if (type == BS_PUSHBUTTON || type == BS_DEFPUSHBUTTON)
            seen.buttons.push_back({id, WithoutAmpersand(TextOf(control))});
    } else if (className == "Edit") {
        seen.edits.push_back({id, TextOf(control), static_cast<size_t>(Ask(control, EM_GETLIMITTEXT, 0, 0))});
    }
}

}  // namespace

std::vector<HWND> OpenDialogs() {
    std::vector<HWND> dialogs;
    EnumWindows(
        [](HWND window, LPARAM list) -> BOOL {
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            if (process == GetCurrentProcessId() && CanBeOperated(window) && ClassOf(window) == "#32770")
                reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&dialogs));
    return dialogs;
}

bool HasControls(HWND dialog) {
    return GetWindow(dialog, GW_CHILD) != nullptr;
}

bool CanBeOperated(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

SeenDialog LookAt(HWND dialog, HWND watched) {
    SeenDialog seen;
    seen.window = dialog;
    seen.caption = TextOf(dialog);
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
        if (GetWindowLongA(control, GWL_STYLE) & WS_VISIBLE) LookAtControl(control, seen);
    seen.smallIcon = reinterpret_cast<HICON>(Ask(dialog, WM_GETICON, ICON_SMALL, 0));
    seen.largeIcon = reinterpret_cast<HICON>(Ask(dialog, WM_GETICON, ICON_BIG, 0));
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    if (GetGUIThreadInfo(GetWindowThreadProcessId(dialog, nullptr), &thread) && IsChild(dialog, thread.hwndFocus))
        seen.focusId = GetDlgCtrlID(thread.hwndFocus);
    seen.owner = GetWindow(dialog, GW_OWNER);
    seen.watchedEnabled = watched && IsWindowEnabled(watched);
    GetWindowRect(dialog, &seen.rectangle);
    if (seen.owner) GetWindowRect(seen.owner, &seen.ownerRectangle);
    return seen;
}

std::string TypeInto(HWND dialog, int control, const std::string& text) {
    HWND edit = GetDlgItem(dialog, control);
    if (!edit) return "there is no control " + std::to_string(control) + " to type into";
    if (!CanBeOperated(edit)) return "control " + std::to_string(control) + " cannot be typed into";
    Ask(edit, EM_SETSEL, 0, -1);
    Ask(edit, WM_CLEAR, 0, 0);
    for (char key : text)
        Ask(edit, WM_CHAR, static_cast<unsigned char>(key), 1);
    return {};
}

std::string PressButtonOf(HWND dialog, int button) {
    HWND control = GetDlgItem(dialog, button);
    if (!control) return "there is no button " + std::to_string(button);
    if (!CanBeOperated(control)) return "button " + std::to_string(button) + " is greyed or hidden";
    // Posted, because the press may open another box before it returns.
    PostMessageA(control, BM_CLICK, 0, 0);
    return {};
}

int ButtonNamed(const SeenDialog& dialog, const std::string& text) {
    for (const SeenButton& button : dialog.buttons)
        if (button.text == text) return button.id;
    return 0;
}

std::string CloseByFrame(HWND dialog) {
    HMENU menu = GetSystemMenu(dialog, FALSE);
    const UINT state = menu ? GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND) : static_cast<UINT>(-1);
    if (state == static_cast<UINT>(-1)) return "the frame has no close button";
    if (state & (MF_GRAYED | MF_DISABLED)) return "the frame's close button is greyed";
    PostMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    return {};
}

}  // namespace bench
