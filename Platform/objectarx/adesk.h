// Fixed-width types of the host. Adesk is a struct, not a namespace; Boolean is bool. Like the host's own header this
// one leaves NULL as a plain 0, so that NULL prefers an int overload to a pointer.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "AdAChar.h"

struct Adesk {
    typedef int8_t Int8;
    typedef int16_t Int16;
    typedef int32_t Int32;
    typedef int64_t Int64;
    typedef uint8_t UInt8;
    typedef uint16_t UInt16;
    typedef uint32_t UInt32;
    typedef uint64_t UInt64;
    typedef int64_t LongPtr;
    typedef uint64_t ULongPtr;
    typedef int64_t IntPtr;
    typedef uint64_t UIntPtr;
    typedef LongPtr IntDbId;
    typedef IntPtr GsMarker;
    typedef bool Boolean;
    static const bool kFalse = false;
    static const bool kTrue = true;
};

#undef NULL
#define NULL 0
