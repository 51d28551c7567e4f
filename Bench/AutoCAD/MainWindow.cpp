#include "Application.h"

#include "ArxCall.h"
#include "Session.h"
#include "acedads.h"

namespace bench {
namespace {

constexpr const wchar_t* kClassName = L"AutoCADFrame";

LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // The user can not close AutoCAD under a running bench.
    if (message == WM_CLOSE) return 0;
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND frame = nullptr;

HWND CreateFrame() {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = MainWindowProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_APPWORKSPACE + 1);
    windowClass.lpszClassName = kClassName;
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(0, kClassName, L"AutoCAD", WS_OVERLAPPEDWINDOW, 40, 40, 900, 640, nullptr,
                                        nullptr, windowClass.hInstance, nullptr);
    if (window != nullptr) ShowWindow(window, SW_SHOWNORMAL);
    return window;
}

}  // namespace

void ShowFileName() {
    const Session& session = TheSession();
    std::wstring caption = session.product;
    if (session.current != nullptr) caption += L" - [" + session.fileName + L"]";
    if (session.mainWindow != nullptr) SetWindowTextW(session.mainWindow, caption.c_str());
}

void OpenMainWindow() {
    if (frame == nullptr || GetWindowThreadProcessId(frame, nullptr) != GetCurrentThreadId()) frame = CreateFrame();
    TheSession().mainWindow = frame;
    ShowFileName();
}

void CloseMainWindow() {
    if (TheSession().mainWindow == nullptr) return;
    if (!IsWindowEnabled(frame)) ReportViolation("AutoCAD's main window was still disabled when AutoCAD ended.");
    EnableWindow(frame, TRUE);
    SetWindowTextW(frame, L"AutoCAD has ended");
    TheSession().mainWindow = nullptr;
}

HWND MainWindow() {
    return TheSession().mainWindow;
}

}  // namespace bench

using bench::ArxCall;

HWND adsw_acadMainWnd() {
    ArxCall call("adsw_acadMainWnd", "");
    return call.fails() ? nullptr : bench::TheSession().mainWindow;
}
