// The module's requests to the editor: selection, prompts, system variables, coordinates, other modules. Functions
// return an RT code of adscodes.h, RTNORM for success, and have C++ linkage. A selection set exists only after RTNORM;
// release it with acedSSFree. A string from acedGetVar belongs to the caller; free it with acutDelString.
// adsw_acadMainWnd is declared only if <windows.h> was included before.
#pragma once

#include "adesk.h"
#include "adsdef.h"

// ---- Modules ----

// Returns RTNORM, or RTERROR when the module is not found, refuses to load or is already loaded.
ACCORE_PORT int acedArxLoad(const ACHAR* app);
ACCORE_PORT int acedArxUnload(const ACHAR* app);

// ---- Applications in the drawing ----

// Registers the name in the drawing so that entities can have xdata under it. Returns another code than RTNORM for a
// registered name, which is not a failure.
ACCORE_PORT int acdbRegApp(const ACHAR* appname);

// ---- Selection ----

// str: selection mode (null: the user selects; "_:S" a single pick; "_:$" the caller's prompts, with pt1 an array of
// two texts). Returns RTERROR when nothing was selected, RTCAN after Escape, RTREJ for an invalid request.
ACCORE_PORT int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss);
ACCORE_PORT int acedSSFree(const ads_name sname);
// The index is zero-based. Returns RTERROR past the end.
ACCORE_PORT int acedSSName(const ads_name ss, int i, ads_name entres);
// Returns RTERROR after a missed pick or Enter, RTCAN after Escape.
ACCORE_PORT int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres);

// ---- Prompts ----

// The buffer length counts characters including the terminator.
ACCORE_PORT int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize);

// ---- System variables ----

ACCORE_PORT int acedGetVar(const ACHAR* sym, struct resbuf* result);
// The value's restype must match the variable. Integers have 16 bits.
ACCORE_PORT int acedSetVar(const ACHAR* sym, const struct resbuf* val);

// ---- Coordinates ----

// from and to: RTSHORT 0 for world, 1 for user coordinates. With a nonzero disp, pt is a displacement.
ACCORE_PORT int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp,
                          ads_point result);

// ---- Windows ----

#ifdef _WINDEF_
ACCORE_PORT HWND adsw_acadMainWnd();
#define adsw_hwndAcad adsw_acadMainWnd()
#endif
