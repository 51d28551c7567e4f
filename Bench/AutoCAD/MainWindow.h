// AutoCAD's main window: visible, captioned with product and drawing, and with a timer of its own, so that a module
// that waits for messages on this thread wakes up now and then as it does in AutoCAD.
#pragma once

#include <windows.h>

namespace bench {

void OpenMainWindow();
void CloseMainWindow();
void ShowFileName();

}  // namespace bench
