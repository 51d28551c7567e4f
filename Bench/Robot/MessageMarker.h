// Tells when the message loop of a window's thread has taken everything that was posted to it before: a marker message
// is posted, and a hook in that thread sees it leave the queue. Works for windows of this process, from any thread.
#pragma once

#include <windows.h>

namespace bench {

enum class LoopState {
    kRunning,  // the loop took the marker, so all that was posted before is handled or has a loop of its own
    kGone,     // the window was destroyed or hidden meanwhile
    kBusy      // neither within the bound
};

LoopState WaitForMessageLoop(HWND window, DWORD milliseconds);

}  // namespace bench
