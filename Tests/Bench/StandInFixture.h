// A case of a stand-in ends with an empty balance and without accusations but for those that it took.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "BenchControl.h"

class StandInTest : public testing::Test {
 protected:
    StandInTest() { bench::ResetBench(); }
    ~StandInTest() override {
        EXPECT_THAT(bench::OutstandingResources(), testing::IsEmpty());
        EXPECT_THAT(TakeViolations(), testing::IsEmpty());
        bench::ResetBench();
    }

    static std::vector<std::string> TakeViolations() {
        std::vector<std::string> accusations = bench::Violations();
        bench::ClearViolations();
        return accusations;
    }
};
