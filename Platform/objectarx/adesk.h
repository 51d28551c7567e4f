// Fixed-width types of the host, and the mark of what its libraries export. Adesk is a struct, not a namespace; Boolean
// is bool. Like the host's own header this one leaves NULL as a plain 0, so that NULL prefers an int overload to a
// pointer.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "AdAChar.h"

// Nothing for a module; whoever builds the library in AutoCAD's place exports by it.
#ifndef ACCORE_PORT
#define ACCORE_PORT
#endif

struct Adesk {
    typedef int16_t Int16;
    typedef int32_t Int32;
    typedef uint32_t UInt32;
    typedef uint64_t UInt64;
    typedef int64_t LongPtr;
    typedef LongPtr IntDbId;
    typedef bool Boolean;
};

#undef NULL
#define NULL 0
