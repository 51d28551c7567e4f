// Services and the lock of a module. A module is locked when it is loaded, and cannot be unloaded until it is unlocked.
// acrxRegisterService creates the AcRxService in the service dictionary; the module removes and deletes it.
#pragma once

#include "adesk.h"

ACCORE_PORT void* acrxRegisterService(const ACHAR* serviceName);
ACCORE_PORT bool acrxUnlockApplication(void* appId);
