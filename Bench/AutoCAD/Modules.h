// Loading and unloading of ObjectARX modules. The application id that a module gets is the address of its record in the
// session.
#pragma once

#include "rxdefs.h"
#include "rxdlinkr.h"

namespace bench {

AcRxDynamicLinker* TheDynamicLinker();
void SendToModules(AcRx::AppMsgCode message);
void UnloadAllModules();

}  // namespace bench
