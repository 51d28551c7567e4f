// What all stand-ins share: the plan of failures and the balance.
#include "StandInFixture.h"

namespace {

// Makes the calls in order; one letter a call: F failed, P failed with poisoned outputs, - did not.
std::string Outcomes(const bench::InjectedFault& failure, const std::vector<const char*>& names) {
    bench::ResetBench();
    bench::InjectFault(failure);
    std::string outcomes;
    for (const char* name : names) {
        const bench::Call call(name, "");
        outcomes += !call.fails() ? '-' : call.corruptsOutputs() ? 'P' : 'F';
        if (call.fails()) {
            EXPECT_EQ(call.failureCode(-1), failure.code.value_or(-1)) << name;
        }
    }
    bench::ResetBench();
    return outcomes;
}

TEST(FailurePlan, FailsOneCallOrEveryCallFromItOn) {
    const std::vector<const char*> names = {"kba", "acx", "kbb", "kba", "acx", "kba"};
    EXPECT_EQ(Outcomes({"", 2, {}, false, false}, names), "-F----");
    EXPECT_EQ(Outcomes({"", 5, 9, true, true}, names), "----PP");
    EXPECT_EQ(Outcomes({"kba", 2, -7, false, false}, names), "---F--");
    EXPECT_EQ(Outcomes({"kb*", 2, 1, false, true}, names), "--P---");
    EXPECT_EQ(Outcomes({"kb*", 2, {}, true, false}, names), "--FF-F");
    EXPECT_EQ(Outcomes({"kbb|ac*", 2, {}, true, false}, names), "--F-F-");
}

using Balance = StandInTest;
using Journal = StandInTest;

TEST_F(Journal, IgnoresAResultThatArrivesAfterClearing) {
    bench::Call late("GET", "");
    bench::ClearCallLog();
    const bench::Call other("kba", "");
    late.result(200);
    EXPECT_EQ(bench::CallLog(), std::vector<std::string>{"kba"});
}

TEST_F(Balance, ReportsAReleaseWithoutAnAcquire) {
    bench::TrackAcquire("record", "A");
    EXPECT_TRUE(bench::TrackRelease("record", "A"));
    EXPECT_FALSE(bench::TrackRelease("record", "A"));
    EXPECT_THAT(TakeViolations(), testing::ElementsAre("A record was given back that was not owed: A."));
}

}  // namespace
