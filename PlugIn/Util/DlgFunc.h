// Helpers around windows: centring.
#pragma once

#include <windows.h>

// Centres a window on the primary screen; size and z-order stay.
void CenterWindowOnScreen(HWND window);
// Centres a window on its parent, or on the screen when it has none.
void CenterWindowOnParent(HWND window);
