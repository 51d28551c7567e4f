// Messages that the host sends to a module's entry point, and the two answers to them. kRetError makes the host unload
// the module again, except in answer to the unload messages. The entry point itself is declared by nobody but the
// module: extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode msg, void* pkt). On kInitAppMsg pkt is the
// application id that acrxUnlockApplication and registerAppMDIAware want.
#pragma once

#include "adesk.h"

struct AcRx {
    enum AppMsgCode { kInitAppMsg = 1, kUnloadAppMsg = 2, kLoadDwgMsg = 3, kUnloadDwgMsg = 4 };
    enum AppRetCode { kRetOK = 0, kRetError = 3 };
};
