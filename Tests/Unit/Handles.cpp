#include "Lib/Handles.h"

#include <gtest/gtest.h>

TEST(Owner, KeepsTheLastErrorWhenItCloses) {
    KernelHandle invalid(reinterpret_cast<HANDLE>(0xBAD0));
    SetLastError(4711);
    invalid.reset();  // CloseHandle sets ERROR_INVALID_HANDLE
    EXPECT_EQ(GetLastError(), 4711u);
}
