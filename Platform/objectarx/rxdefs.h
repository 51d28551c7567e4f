// Messages from the host to a module's entry point, and its two results. After kRetError the host unloads the module,
// unless it returned that for an unload message. Only the module declares the entry point: extern "C" AcRx::AppRetCode
// acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt). With kInitAppMsg, pkt is the application id for
// acrxUnlockApplication and registerAppMDIAware.
#pragma once

#include "adesk.h"

struct AcRx {
    enum AppMsgCode { kInitAppMsg = 1, kUnloadAppMsg = 2, kLoadDwgMsg = 3, kUnloadDwgMsg = 4 };
    enum AppRetCode { kRetOK = 0, kRetError = 3 };
};
