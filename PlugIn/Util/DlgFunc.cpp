#include "Util/DlgFunc.h"

#include <commdlg.h>

#include <string>

#include "Lib/ModuleIdentity.h"
#include "Util/DlgFunc_Text.h"

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

int ShowOpenFileDialog(HWND owner, const char* filter, const char* initialFolder, char* file,
                       const char* defaultExtension, const char* title) {
    const std::string parts = OpenFileFilter(filter);
    OPENFILENAMEA request = {};
    request.lStructSize = sizeof request;
    request.hwndOwner = owner;
    request.hInstance = ModuleHandle();
    request.lpstrFilter = parts.c_str();
    request.nFilterIndex = 1;
    request.lpstrFile = file;
    request.nMaxFile = MAX_PATH;
    request.lpstrInitialDir = initialFolder;
    request.lpstrTitle = title;
    request.lpstrDefExt = defaultExtension;
    request.Flags = OFN_HIDEREADONLY | OFN_PATHMUSTEXIST | OFN_FILEMUSTEXIST | OFN_NOREADONLYRETURN;
    return GetOpenFileNameA(&request);
}
