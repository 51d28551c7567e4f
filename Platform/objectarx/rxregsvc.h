// Services and the locks of modules. A module is loaded locked: until it is unlocked it can not be unloaded. The first
// form of acrxRegisterService makes the AcRxService itself and puts it into the service dictionary, from which the
// module removes and then deletes it.
#pragma once

#include "AdAChar.h"

class AcRxService;

bool acrxLoadModule(const ACHAR* moduleName, bool printit, bool asCmd = false);
void* acrxRegisterService(const ACHAR* serviceName);
AcRxService* acrxRegisterService(const ACHAR* serviceName, AcRxService* pSvc);
bool acrxServiceIsRegistered(const ACHAR* serviceName);
bool acrxUnlockApplication(void* appId);
bool acrxLockApplication(void* appId);
bool acrxRegisterAppMDIAware(void* appId);
