// The loader of modules as an object of the system registry. Its calls for the own module are const; appId is what
// kInitAppMsg delivered. acrxDynamicLinker is a macro that looks the object up at each use.
#pragma once

#include "rxdict.h"

class AcRxDynamicLinker : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)
    virtual bool loadModule(const ACHAR* fileName, bool printit, bool asCmd = false) = 0;
    virtual bool unloadModule(const ACHAR* fileName, bool asCmd = false) = 0;
    virtual bool unlockApplication(void* appId) const = 0;
    virtual bool lockApplication(void* appId) const = 0;
    virtual bool isApplicationLocked(const ACHAR* name) const = 0;
    virtual bool registerAppMDIAware(void* appId) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
