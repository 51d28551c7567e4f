#include "Application.h"

#include "ArxCall.h"
#include "ProcessState.h"
#include "acedads.h"

namespace bench {
namespace {

constexpr const wchar_t* kClassName = L"AutoCADFrame";

LRESULT CALLBACK MainWindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    // The user cannot close AutoCAD while the bench runs.
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
    const ProcessState& process = TheProcess();
    std::wstring caption = process.product;
    if (process.current != nullptr) caption += L" - [" + process.fileName + L"]";
    if (process.mainWindow != nullptr) SetWindowTextW(process.mainWindow, caption.c_str());
}

void OpenMainWindow() {
    if (frame == nullptr || GetWindowThreadProcessId(frame, nullptr) != GetCurrentThreadId()) frame = CreateFrame();
    TheProcess().mainWindow = frame;
    ShowFileName();
}

void CloseMainWindow() {
    if (TheProcess().mainWindow == nullptr) return;
    if (!IsWindowEnabled(frame)) ReportViolation("AutoCAD's main window was still disabled when AutoCAD ended.");
    EnableWindow(frame, TRUE);
    SetWindowTextW(frame, L"AutoCAD has ended");
    TheProcess().mainWindow = nullptr;
}

HWND MainWindow() {
    return TheProcess().mainWindow;
}

}  // namespace bench

using bench::ArxCall;

HWND adsw_acadMainWnd() {
    ArxCall call("adsw_acadMainWnd", "");
    return call.fails() ? nullptr : bench::TheProcess().mainWindow;
}
