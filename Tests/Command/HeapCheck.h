// Checks a module's use of the C runtime's heap while it lives: a release of a block that is not allocated and a write
// behind a block's end become a sentence in TakeErrors. Released blocks stay filled and unused until the next
// TakeErrors, so that a second release is seen. One at a time.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "Unit/ImportPatch.h"

class HeapCheck {
 public:
    explicit HeapCheck(HMODULE module);
    ~HeapCheck();
    HeapCheck(const HeapCheck&) = delete;
    HeapCheck& operator=(const HeapCheck&) = delete;

    std::vector<std::string> TakeErrors();

    // What the module's malloc does, for suites that put their own in its place.
    static void* Allocate(size_t size);

 private:
    const ImportPatch malloc_, realloc_, free_;
};
