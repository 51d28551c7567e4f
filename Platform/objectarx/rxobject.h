// Base class of the host's classes.
#pragma once

#include "rxboiler.h"

class ACCORE_PORT AcRxObject {
 public:
    static AcRxObject* cast(const AcRxObject* inPtr) { return const_cast<AcRxObject*>(inPtr); }
    static AcRxClass* desc();
    virtual ~AcRxObject();
    virtual AcRxClass* isA() const;
    bool isKindOf(const AcRxClass* aClass) const;

 protected:
    AcRxObject();

 private:
    AcRxObject(const AcRxObject&) = delete;
    AcRxObject& operator=(const AcRxObject&) = delete;
};

#include "rxclass.h"
