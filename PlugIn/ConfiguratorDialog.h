// The dialog in which the user enters the user code of a new silencer.
#pragma once

#include <windows.h>

class KlConn;

// Shows the modal dialog. Returns 0 after OK, with the code in the current device's child element and attribute
// `UserCode`; -1 otherwise. Prints why, unless the user cancelled.
int ShowUserCodeDialog(HWND owner, KlConn& session);
