// Tests of the fakes. Each suite starts and stops what it needs; main initialises COM for all of them.
#include <windows.h>
#include <ole2.h>

#include <gmock/gmock.h>

#include "TestProgram.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    if (!BeginTests()) return kWrongUse;
    OleInitialize(nullptr);
    const int failed = RunTests();
    OleUninitialize();
    return failed;
}
