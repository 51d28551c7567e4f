// Fixed-width types of the host, and the export mark of its libraries. Adesk is a struct, not a namespace; Boolean is
// bool. NULL is a plain 0, as in the host's own header, and prefers an int overload to a pointer.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "AdAChar.h"

// Empty for a module. A library that replaces AutoCAD's defines it to export its functions.
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
