// The dialog that gives a new silencer its user code.
#pragma once

#include <windows.h>

#include <string>

class KlConn;

// Modal. 0 when closed with OK: the code then is the current device's `UserCode`, child element and attribute; else -1.
int ShowUserCodeDialog(HWND owner, KlConn& session);

// The display name, a blank and the module's file version: caption of the dialog's messages and of the configurator.
std::string ProductTitle();
