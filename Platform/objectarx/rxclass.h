// Description of one class: its name and what it derives from. Owned by the host.
#pragma once

#include "rxobject.h"

class AcRxImpClass;

class AcRxClass : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxClass)
    virtual ~AcRxClass();
    const ACHAR* name() const;
    const ACHAR* dxfName() const;
    bool isDerivedFrom(const AcRxClass* pOtherClass) const;
    static bool isDerivedFrom(const AcRxClass* pDerived, const AcRxClass* pBase);

 private:
    friend class AcRxImpClass;
    AcRxClass();
    AcRxImpClass* m_pImp;
};

inline bool AcRxObject::isKindOf(const AcRxClass* aClass) const {
    return AcRxClass::isDerivedFrom(isA(), aClass);
}
