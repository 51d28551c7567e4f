// Reading and operating dialog windows of this process from another thread. Every message that is sent has a bound; a
// window that does not answer reads as empty. Failure to operate a control is told as a sentence, empty on success.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "SeenDialog.h"

namespace bench {

// Dialog windows of this process that a user could operate now (visible and enabled), topmost first.
std::vector<HWND> OpenDialogs();
bool HasControls(HWND dialog);
bool CanBeOperated(HWND window);

SeenDialog LookAt(HWND dialog, HWND watched);

std::string TypeInto(HWND dialog, int control, const std::string& text);
std::string PressButtonOf(HWND dialog, int button);
// The id of the push button with this text (without ampersand), 0 when there is none.
int ButtonNamed(const SeenDialog& dialog, const std::string& text);
// The close button of the frame, which a box that must be answered has greyed.
std::string CloseByFrame(HWND dialog);

}  // namespace bench
