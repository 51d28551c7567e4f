#include "DialogWindow.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <set>

namespace bench {
namespace {

constexpr WPARAM kMarker = 0x5B0B07;
constexpr auto kLookAtWindow = std::chrono::milliseconds(10);

std::mutex markerMutex;
std::condition_variable markerTaken;
std::set<LPARAM> markersUnderway;
LPARAM lastMarker = 0;

// Runs on the thread that owns the window, each time its loop takes a message.
LRESULT CALLBACK SeeMessage(int code, WPARAM removed, LPARAM message) {
    const MSG* taken = reinterpret_cast<const MSG*>(message);
    if (code >= 0 && removed == PM_REMOVE && taken->message == WM_NULL && taken->wParam == kMarker) {
        std::lock_guard<std::mutex> lock(markerMutex);
        markersUnderway.erase(taken->lParam);
        markerTaken.notify_all();
    }
    return CallNextHookEx(nullptr, code, removed, message);
}

class Hook {
 public:
    explicit Hook(DWORD thread) : handle_(SetWindowsHookExW(WH_GETMESSAGE, SeeMessage, nullptr, thread)) {}
    ~Hook() {
        if (handle_) UnhookWindowsHookEx(handle_);
    }
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }

 private:
    HHOOK handle_;
};

}  // namespace

LoopState WaitForMessageLoop(HWND window, DWORD milliseconds) {
    const Hook hook(GetWindowThreadProcessId(window, nullptr));
    std::unique_lock<std::mutex> lock(markerMutex);
    const LPARAM marker = ++lastMarker;
    markersUnderway.insert(marker);
    const bool posted = hook && PostMessageW(window, WM_NULL, kMarker, marker);
    const auto taken = [&] { return markersUnderway.count(marker) == 0; };
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    // A marker posted to a destroyed window never arrives.
    while (posted && !taken() && IsWindowVisible(window) && std::chrono::steady_clock::now() < end)
        markerTaken.wait_for(lock, kLookAtWindow);
    if (taken()) return LoopState::kRunning;
    markersUnderway.erase(marker);
    return IsWindowVisible(window) ? LoopState::kBusy : LoopState::kGone;
}

}  // namespace bench
