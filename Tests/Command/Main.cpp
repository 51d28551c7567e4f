// Test program of whole runs. All cases share one stage.
#include <windows.h>

#include <cstdio>
#include <stdexcept>

#include "CommandBench.h"
#include "TestProgram.h"

namespace {
bench::Stage* g_stage = nullptr;
}

bench::Stage& TheStage() {
    return *g_stage;
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (!BeginTests()) return kWrongUse;
    try {
        bench::Stage stage("catalogue.xml");
        g_stage = &stage;
        return RunTests();
    } catch (const std::runtime_error& problem) {
        std::printf("%s\n", problem.what());
        return kWrongUse;
    }
}
