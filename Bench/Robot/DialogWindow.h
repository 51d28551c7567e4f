// Reads and operates dialog windows of this process from another thread. Every message sent has a timeout; a window
// that does not respond reads as empty. Functions that operate a control return an empty string on success, otherwise a
// sentence.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "SeenDialog.h"

namespace bench {

// Returns the visible and enabled dialog windows of this process, topmost first.
std::vector<HWND> OpenDialogs();
bool HasControls(HWND dialog);
bool CanBeOperated(HWND window);

SeenDialog LookAt(HWND dialog, HWND watched);

std::string TypeInto(HWND dialog, int control, const std::string& text);
std::string PressButtonOf(HWND dialog, int button);
// Returns the id of the push button with this text (without ampersand); 0 when there is none.
int ButtonNamed(const SeenDialog& dialog, const std::string& text);
// Presses the frame's close button, which is greyed when a box must be answered.
std::string CloseByFrame(HWND dialog);
// Saves a picture with frame and caption as on the screen, as a PNG file. Its folder must exist; an existing file is
// replaced.
std::string SavePictureOf(HWND window, const std::string& file);

enum class LoopState {
    kRunning,  // the loop took the marker: earlier messages are handled or run a nested loop
    kGone,     // the window was destroyed or hidden
    kBusy      // neither within the timeout
};

// Waits until the message loop of the window's thread has processed all messages posted before: posts a marker message,
// and a hook in that thread sees it leave the queue.
LoopState WaitForMessageLoop(HWND window, DWORD milliseconds);

}  // namespace bench
