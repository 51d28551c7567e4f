// Checks a module's use of the C runtime's heap for the length of a scope. TakeErrors returns a sentence for each block
// that was released twice or written beyond its end. Released blocks are filled with 0xDD and not reused until the next
// TakeErrors, so that a second release is detected. One at a time.
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

    // The checked malloc, for suites that patch malloc themselves.
    static void* Allocate(size_t size);

 private:
    const ImportPatch malloc_, realloc_, free_;
};
