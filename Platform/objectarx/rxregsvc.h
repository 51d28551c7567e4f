// Services and the lock of a module. A module is loaded locked: until it is unlocked it can not be unloaded.
// acrxRegisterService makes the AcRxService itself and puts it into the service dictionary, from which the module
// removes and then deletes it.
#pragma once

#include "adesk.h"

ACCORE_PORT void* acrxRegisterService(const ACHAR* serviceName);
ACCORE_PORT bool acrxUnlockApplication(void* appId);
