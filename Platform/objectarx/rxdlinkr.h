// The module loader, an object of the system registry. appId is the packet of kInitAppMsg. acrxDynamicLinker is a macro
// that looks up the object at each use.
#pragma once

#include "rxdict.h"

class ACCORE_PORT AcRxDynamicLinker : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxDynamicLinker)
    virtual bool registerAppMDIAware(void* appId) const = 0;
};

#define acrxDynamicLinker AcRxDynamicLinker::cast(acrxSysRegistry()->at(ACRX_DYNAMIC_LINKER))
