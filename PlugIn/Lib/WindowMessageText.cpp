#include "Lib/WindowMessageText.h"

#include <windows.h>

#include "Lib/FormatText.h"
#include "Lib/WindowMessageNames.h"

namespace {

std::string NameOf(UINT message) {
    for (const WindowMessageName* row = kWindowMessageNames; row->name; ++row) {
        if (row->message == message) return FormatString("%s(", row->name);
    }
    return FormatString("0x%04X(", message);
}

const char* ActivationName(WPARAM state) {
    switch (state) {
        case 0:
            return "WA_INACTIVE";
        case 1:
            return "WA_ACTIVE";
        case 2:
            return "WA_CLICKACTIVE";
        default:
            return "?";
    }
}

std::string KeyText(UINT key, UINT flags) {
    return FormatString("nVkey=%u, repeat=%u, scan=%02X, ext=%u, alt=%u, prevstate=%s, trans=%s)", key, LOWORD(flags),
                        (flags >> 16) & 0xFF, flags & 0x01000000, flags & 0x20000000,
                        flags & 0x40000000 ? "Down" : "Up", flags & 0x80000000 ? "Released" : "Pressed");
}

}  // namespace

std::string DescribeWindowMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const std::string name = NameOf(message);
    const UINT first = static_cast<UINT>(wParam);
    const UINT low = LOWORD(lParam);
    const UINT high = HIWORD(lParam);
    switch (message) {
        case WM_SETCURSOR:
            return name + FormatString("hwndCursor, areacode=%d, #msgs=%u)", static_cast<int>(first), low);
        case WM_ACTIVATE:
            return name + FormatString("%s, fMinimized=%u, hwnd=%u)", ActivationName(wParam), high, low);
        case WM_SETFOCUS:
            return name + FormatString("hwnd=%u)", first);
        // The form of "%p" in the Windows runtime.
        case WM_KILLFOCUS:
            return name + FormatString("hwndGetsFocus=%016llX)", static_cast<unsigned long long>(lParam));
        case WM_NCHITTEST:
            return name + FormatString("xPos=%d, yPos=%d)", low, high);
        case WM_CHAR:
            return name + KeyText(first, static_cast<UINT>(lParam));
        case WM_COMMAND:
            return name + FormatString("idItem=%u, hwndCtl=%u, wNotify=%u)", first, low, high);
        case WM_DESTROY:
        case WM_CLOSE:
        case WM_NCDESTROY:
            return name + ")";
        default:
            return name + FormatString("W=%04X, L=%08lX)", first, static_cast<unsigned long>(lParam));
    }
}
