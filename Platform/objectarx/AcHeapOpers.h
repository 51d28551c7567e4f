// Allocates the objects of derived classes in the host's heap, in the host and in modules.
#pragma once

#include "adesk.h"

class ACCORE_PORT AcHeapOperators {
 public:
    static void* operator new(size_t size);
    static void operator delete(void* p);
};
