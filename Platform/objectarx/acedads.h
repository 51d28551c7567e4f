// What a module asks of the editor: selection, prompts, system variables, coordinates, other modules. Results are the
// RT codes of adscodes.h, RTNORM for success; all functions have C++ linkage. A selection set exists after RTNORM only
// and is given back with acedSSFree; a text that acedGetVar delivers is the caller's and goes back with acutDelString.
// The window getters are declared only where <windows.h> came first.
#pragma once

#include "adesk.h"
#include "adsdef.h"

class AcString;
class AcSelectionPreview;

// ---- Modules ----

// RTNORM, or RTERROR when the module is not found, refuses to load or is loaded already.
int acedArxLoad(const ACHAR* app);
int acedArxUnload(const ACHAR* app);

// ---- Applications in the drawing ----

// Makes the name known to the drawing so that entities may carry its xdata. A name that is known already is refused
// with a code that is no failure.
int acdbRegApp(const ACHAR* appname);

// ---- Selection ----

// str: how to select (null: the user selects; "_:S" one pick only; "_:$" own prompts, pt1 is then an array of two
// texts). RTERROR when nothing was selected, RTCAN after Escape, RTREJ for a request that is not understood.
int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss);
int acedSSGet(const ACHAR* str, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name ss,
              AcSelectionPreview* pPreview);
int acedSSFree(const ads_name sname);
int acedSSLength(const ads_name sname, Adesk::Int32* len);
// RTERROR past the end; the index is zero-based.
int acedSSName(const ads_name ss, int i, ads_name entres);
// RTERROR after a missed pick or Enter, RTCAN after Escape.
int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres);
int acedEntSel(const ACHAR* str, ads_name entres, ads_point ptres, AcSelectionPreview* pPreview);

// ---- Prompts ----

int acedInitGet(int val, const ACHAR* kwl);
// The buffer length counts characters with the terminator.
int acedGetKword(const ACHAR* str, ACHAR* result, size_t nBufLen);
int acedGetKword(const ACHAR* str, AcString& sOut);
int acedGetString(int cronly, const ACHAR* prompt, ACHAR* result, size_t bufsize);
int acedGetString(int cronly, const ACHAR* prompt, AcString& sOut);
int acedPrompt(const ACHAR* str);

template <size_t nBufLen>
inline int acedGetKword(const ACHAR* str, ACHAR (&result)[nBufLen]) {
    return acedGetKword(str, result, nBufLen);
}

template <size_t nBufLen>
inline int acedGetString(int cronly, const ACHAR* prompt, ACHAR (&result)[nBufLen]) {
    return acedGetString(cronly, prompt, result, nBufLen);
}

// ---- System variables ----

int acedGetVar(const ACHAR* sym, struct resbuf* result);
// The value's restype must suit the variable; integers are 16 bits wide.
int acedSetVar(const ACHAR* sym, const struct resbuf* val);

// ---- Coordinates ----

// from and to: RTSHORT 0 world, 1 user, 2 display. disp other than 0: pt is a displacement.
int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp, ads_point result);

// ---- Windows ----

#ifdef _WINDEF_
HWND adsw_acadMainWnd();
HWND adsw_acadDocWnd();
#define adsw_hwndAcad adsw_acadMainWnd()
#endif
