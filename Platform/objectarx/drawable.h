// Base class of everything that can be drawn.
#pragma once

#include "rxobject.h"

class ACCORE_PORT AcGiDrawable : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcGiDrawable)
    virtual ~AcGiDrawable();

 protected:
    AcGiDrawable();
};
