// What a module asks of the editor: selection, prompts, system variables, coordinates, other modules. Results are the
// RT codes of adscodes.h, RTNORM for success; all functions have C++ linkage. A selection set exists after RTNORM only
// and is given back with acedSSFree; a text that acedGetVar delivers is the caller's and goes back with acutDelString.
// The window's getter is declared only where <windows.h> came first.
#pragma once

#include "adesk.h"
#include "adsdef.h"

// ---- Modules ----

// RTNORM, or RTERROR when the module is not found, refuses to load or is loaded already.
ACCORE_PORT int acedArxLoad(const ACHAR* app);
ACCORE_PORT int acedArxUnload(const ACHAR* app);

// ---- Applications in the drawing ----

// Makes the name known to the drawing so that entities may carry its xdata. A name that is known already is refused
// with a code that is no failure.
ACCORE_PORT int acdbRegApp(const ACHAR* appname);

// ---- Selection ----

// str: how to select (null: the user selects; "_:S" one pick only; "_:$" own prompts, pt1 is then an array of two
// texts). RTERROR when nothing was selected, RTCAN after Escape, RTREJ for a request that is not understood.
ACCORE_PORT int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss);
ACCORE_PORT int acedSSFree(const ads_name sname);
// RTERROR past the end; the index is zero-based.
ACCORE_PORT int acedSSName(const ads_name ss, int i, ads_name entres);
// RTERROR after a missed pick or Enter, RTCAN after Escape.
ACCORE_PORT int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres);

// ---- Prompts ----

// The buffer length counts characters with the terminator.
ACCORE_PORT int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize);

// ---- System variables ----

ACCORE_PORT int acedGetVar(const ACHAR* sym, struct resbuf* result);
// The value's restype must suit the variable; integers are 16 bits wide.
ACCORE_PORT int acedSetVar(const ACHAR* sym, const struct resbuf* val);

// ---- Coordinates ----

// from and to: RTSHORT 0 world, 1 user. disp other than 0: pt is a displacement.
ACCORE_PORT int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp,
                          ads_point result);

// ---- Windows ----

#ifdef _WINDEF_
ACCORE_PORT HWND adsw_acadMainWnd();
#define adsw_hwndAcad adsw_acadMainWnd()
#endif
