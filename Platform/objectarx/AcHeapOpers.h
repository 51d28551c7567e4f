// Classes whose objects live in the host's heap, whoever makes or deletes them.
#pragma once

#include "adesk.h"

class ACCORE_PORT AcHeapOperators {
 public:
    static void* operator new(size_t size);
    static void operator delete(void* p);
};
