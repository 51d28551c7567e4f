// Describes a class and its base class. Owned by the host.
#pragma once

#include "rxobject.h"

class ACCORE_PORT AcRxClass : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxClass)
    static bool isDerivedFrom(const AcRxClass* pDerived, const AcRxClass* pBase);

 protected:
    AcRxClass();
    virtual ~AcRxClass();
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
    return AcRxClass::isDerivedFrom(isA(), aClass);
}
