// What all stand-ins share: the plan of failures and the spelling of texts.
#include <vector>

#include "BenchControl.h"
#include "BenchTexts.h"
#include "gtest/gtest.h"

namespace {

// Makes the calls in order; one letter a call: F failed, P failed with poisoned outputs, - did not.
std::string Outcomes(const bench::PlannedFailure& failure, const std::vector<const char*>& names) {
    bench::ResetBench();
    bench::FailCalls(failure);
    std::string outcomes;
    for (const char* name : names) {
        const bench::Call call(name, "");
        outcomes += !call.fails() ? '-' : call.poisonsOutputs() ? 'P' : 'F';
        if (call.fails()) {
            EXPECT_EQ(call.failureCode(-1), failure.code.value_or(-1)) << name;
        }
    }
    bench::ResetBench();
    return outcomes;
}

TEST(FailurePlan, MeansOneCallOrEveryoneFromItOn) {
    const std::vector<const char*> names = {"kba", "acx", "kbb", "kba", "acx", "kba"};
    EXPECT_EQ(Outcomes({"", 2, {}, false, false}, names), "-F----");
    EXPECT_EQ(Outcomes({"", 5, 9, true, true}, names), "----PP");
    EXPECT_EQ(Outcomes({"kba", 2, -7, false, false}, names), "---F--");
    EXPECT_EQ(Outcomes({"kb*", 2, 1, false, true}, names), "--P---");
    EXPECT_EQ(Outcomes({"kb*", 2, {}, true, false}, names), "--FF-F");
    EXPECT_EQ(Outcomes({"kbb|ac*", 2, {}, true, false}, names), "--F-F-");
}

TEST(FailurePlan, LeavesAStandInsOwnCallsAlone) {
    bench::ResetBench();
    bench::FailCall(1);
    {
        const bench::Quiet quiet;
        EXPECT_FALSE(bench::Call("kba", "").fails());
    }
    EXPECT_EQ(bench::CallCount(), 0);
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_TRUE(bench::Call("kba", "").fails());
    bench::ResetBench();
}

TEST(Balance, GivingBackWhatIsNotOwedIsAccused) {
    bench::ResetBench();
    bench::Owe("record", "A");
    EXPECT_TRUE(bench::Settle("record", "A"));
    EXPECT_FALSE(bench::Settle("record", "A"));
    EXPECT_EQ(bench::Accusations(), std::vector<std::string>{"A record was given back that was not owed: A."});
    bench::ResetBench();
}

TEST(Texts, EveryByteSurvivesItsSpelling) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    std::string back;
    ASSERT_TRUE(bench::FromHex(bench::Hex(all), back));
    EXPECT_EQ(back, all);
    ASSERT_TRUE(bench::FromEscaped(bench::Escaped(all), back));
    EXPECT_EQ(back, all);
    EXPECT_EQ(bench::Escaped("a\"\\\n\r\x1F"), R"("a\"\\\n\r\x1F")");
    for (const char* broken : {"\"", "\"a", "a\"", "\"a\"b\"", "\"\\\"", "\"\\x4\"", "\"\\xZZ\""})
        EXPECT_FALSE(bench::FromEscaped(broken, back)) << broken;
}

}  // namespace
