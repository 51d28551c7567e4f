// Waits until the message loop of a window's thread has processed all messages posted before: posts a marker message,
// and a hook in that thread sees it leave the queue. Works for windows of this process, from any thread.
#pragma once

#include <windows.h>

namespace bench {

enum class LoopState {
    kRunning,  // the loop took the marker: earlier messages are handled or run a nested loop
    kGone,     // the window was destroyed or hidden
    kBusy      // neither within the timeout
};

LoopState WaitForMessageLoop(HWND window, DWORD milliseconds);

}  // namespace bench
