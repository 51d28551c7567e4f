// The dialog that gives a new silencer its user code.
#pragma once

#include <windows.h>

class KlConn;

// Modal. 0 when closed with OK: the code then is the current device's `UserCode`, child element and attribute; else -1,
// told on the command line unless the user cancelled.
int ShowUserCodeDialog(HWND owner, KlConn& session);
