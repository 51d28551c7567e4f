// A named service of a module, kept in the service dictionary.
#pragma once

#include "rxobject.h"

class ACCORE_PORT AcRxService : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxService)
    AcRxService();
    virtual ~AcRxService();
};
