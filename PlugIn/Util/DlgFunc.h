// Helpers around windows: centring, and the dialog that opens a file.
#pragma once

#include <windows.h>

// Centres a window on the primary screen; size and z-order stay.
void CenterWindowOnScreen(HWND window);
// Centres a window on its parent, or on the screen when it has none.
void CenterWindowOnParent(HWND window);

// Asks for an existing file. `filter` has "|" between and after its parts ("Products|*.kpd|"), `file` 260 characters: a
// proposal on entry, the path on return. Nonzero when a file was chosen.
int ShowOpenFileDialog(HWND owner, const char* filter, const char* initialFolder, char* file,
                       const char* defaultExtension, const char* title);
