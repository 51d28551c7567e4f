// AutoCAD's main window: visible and captioned with product and drawing. It has no timer: a module that waits for
// messages on this thread has to see to them itself.
#pragma once

#include <windows.h>

namespace bench {

void OpenMainWindow();
void CloseMainWindow();
void ShowFileName();

}  // namespace bench
