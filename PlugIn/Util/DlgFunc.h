// Centring of windows, and the dialog that opens a file. This module calls only CenterWindowOnParent; the rest is a
// required library.
#pragma once

#include <windows.h>

// Centres a window on the primary screen without changing its size or z-order.
void CenterWindowOnScreen(HWND window);
// Centres a window on its parent, or on the screen when it has none.
void CenterWindowOnParent(HWND window);

// Asks the user for an existing file. `filter` has "|" between and after its parts ("Products|*.kpd|"). `file` is a
// buffer of 260 characters: a proposal on entry, the path on return. Returns nonzero when the user chose a file.
int ShowOpenFileDialog(HWND owner, const char* filter, const char* initialFolder, char* file,
                       const char* defaultExtension, const char* title);
