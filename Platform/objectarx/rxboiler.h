// Declarations of every class with run-time type information. cast() takes a const pointer and returns a non-const one;
// it returns null for a null pointer and for an object of another class.
#pragma once

#include "rxdefs.h"

class AcRxClass;
class AcRxObject;

#define ACRX_DECLARE_MEMBERS(CLASS_NAME)                                       \
    virtual AcRxClass* isA() const;                                            \
    static AcRxClass* desc();                                                  \
    static CLASS_NAME* cast(const AcRxObject* inPtr) {                         \
        return inPtr == nullptr || !inPtr->isKindOf(CLASS_NAME::desc())        \
                   ? nullptr                                                   \
                   : static_cast<CLASS_NAME*>(const_cast<AcRxObject*>(inPtr)); \
    }
