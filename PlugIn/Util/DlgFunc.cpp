#include "Util/DlgFunc.h"

namespace {

void MoveTo(HWND window, int x, int y) {
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

SIZE SizeOf(HWND window) {
    RECT area = {};
    GetWindowRect(window, &area);
    return {area.right - area.left, area.bottom - area.top};
}

}  // namespace

void CenterWindowOnScreen(HWND window) {
    const SIZE size = SizeOf(window);
    MoveTo(window, (GetSystemMetrics(SM_CXSCREEN) - size.cx) / 2, (GetSystemMetrics(SM_CYSCREEN) - size.cy) / 2);
}

void CenterWindowOnParent(HWND window) {
    const HWND parent = GetParent(window);
    if (!parent) {
        CenterWindowOnScreen(window);
        return;
    }
    const SIZE size = SizeOf(window);
    RECT area = {};
    GetWindowRect(parent, &area);
    MoveTo(window, (area.left + area.right) / 2 - size.cx / 2, (area.top + area.bottom) / 2 - size.cy / 2);
}
