// Fixture for the tests of a fake. An outstanding resource fails the case, as does a contract violation that it did not
// take.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "BenchControl.h"

class FakeTest : public testing::Test {
 protected:
    FakeTest() { bench::ResetBench(); }
    ~FakeTest() override {
        EXPECT_THAT(bench::OutstandingResources(), testing::IsEmpty());
        EXPECT_THAT(TakeViolations(), testing::IsEmpty());
        bench::ResetBench();
    }

    static std::vector<std::string> TakeViolations() {
        std::vector<std::string> violations = bench::Violations();
        bench::ClearViolations();
        return violations;
    }
};
