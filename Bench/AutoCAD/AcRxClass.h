// Run-time classes, which isKindOf, cast and acdbOpenObject compare. Requesting a class cannot fail and is not logged.
#pragma once

#include <string>

#include "rxclass.h"

namespace bench {

// Returns the description of a class, creating it on first use.
AcRxClass* DescribeClass(const std::wstring& name, AcRxClass* parent);
const std::wstring& ClassName(const AcRxClass* description);

}  // namespace bench

// Defines the members that ACRX_DECLARE_MEMBERS declares.
#define ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                       \
    AcRxClass* CLASS_NAME::desc() {                                         \
        return bench::DescribeClass(L"" #CLASS_NAME, PARENT_CLASS::desc()); \
    }                                                                       \
    AcRxClass* CLASS_NAME::isA() const {                                    \
        return desc();                                                      \
    }
