// Run-time classes: what isKindOf, cast and acdbOpenObject compare. Asking for a class is no call that could fail, so
// none is journaled.
#pragma once

#include <string>

#include "rxclass.h"

namespace bench {

// The description of a class, made at its first use.
AcRxClass* DescribeClass(const std::wstring& name, AcRxClass* parent);
const std::wstring& ClassName(const AcRxClass* description);

}  // namespace bench

// The members that ACRX_DECLARE_MEMBERS declares.
#define ACRX_DEFINE_MEMBERS(CLASS_NAME, PARENT_CLASS)                       \
    AcRxClass* CLASS_NAME::desc() {                                         \
        return bench::DescribeClass(L"" #CLASS_NAME, PARENT_CLASS::desc()); \
    }                                                                       \
    AcRxClass* CLASS_NAME::isA() const {                                    \
        return desc();                                                      \
    }
