// What all fakes share: fault injection, the call log and resource tracking.
#include "FakeFixture.h"

namespace {

// Makes the calls in order. Returns one letter for each: 'F' failed, 'C' failed with corrupt outputs, '-' succeeded.
std::string Outcomes(const bench::InjectedFault& fault, const std::vector<const char*>& names) {
    bench::ResetBench();
    bench::InjectFault(fault);
    std::string outcomes;
    for (const char* name : names) {
        const bench::Call call(name, "");
        outcomes += !call.fails() ? '-' : call.corruptsOutputs() ? 'C' : 'F';
        if (call.fails()) {
            EXPECT_EQ(call.failureCode(-1), fault.code.value_or(-1)) << name;
        }
    }
    bench::ResetBench();
    return outcomes;
}

TEST(FaultInjection, FailsOneCallOrEveryCallFromItOn) {
    const std::vector<const char*> names = {"kba", "acx", "kbb", "kba", "acx", "kba"};
    // Names, ordinal, code, from there on, corrupt outputs.
    EXPECT_EQ(Outcomes({"", 2, {}, false, false}, names), "-F----");
    EXPECT_EQ(Outcomes({"", 5, 9, true, true}, names), "----CC");
    EXPECT_EQ(Outcomes({"kba", 2, -7, false, false}, names), "---F--");
    EXPECT_EQ(Outcomes({"kb*", 2, 1, false, true}, names), "--C---");
    EXPECT_EQ(Outcomes({"kb*", 2, {}, true, false}, names), "--FF-F");
    EXPECT_EQ(Outcomes({"kbb|ac*", 2, {}, true, false}, names), "--F-F-");
}

using CallLogging = FakeTest;
using ResourceTracking = FakeTest;

TEST_F(CallLogging, IgnoresAResultThatArrivesAfterClearing) {
    bench::Call late("GET", "");
    bench::ClearCallLog();
    const bench::Call other("kba", "");
    late.result(200);
    EXPECT_EQ(bench::CallLog(), std::vector<std::string>{"kba"});
}

TEST_F(ResourceTracking, ReportsAReleaseWithoutAnAcquire) {
    bench::TrackAcquire("record", "A");
    EXPECT_TRUE(bench::TrackRelease("record", "A"));
    EXPECT_FALSE(bench::TrackRelease("record", "A"));
    EXPECT_THAT(TakeViolations(), testing::ElementsAre("A record was released that was not outstanding: A."));
}

}  // namespace
