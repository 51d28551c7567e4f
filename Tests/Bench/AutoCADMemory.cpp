// Who owns which text and which chain.
#include "AutoCADFixture.h"

#include "acutmem.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

using AutoCADMemory = AutoCADTest;

TEST_F(AutoCADMemory, ChainStaysOwedUntilEveryPartIsReleased) {
    resbuf* chain = acutBuildList(1001, L"SORV", 1000, L"A=1", 1000, L"B=2", RTNONE);
    resbuf* middle = chain->rbnext;
    chain->rbnext = middle->rbnext;
    middle->rbnext = nullptr;
    EXPECT_EQ(acutRelRb(chain), RTNORM);
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("resbuf chain acutBuildList 1001"));
    EXPECT_EQ(acutRelRb(middle), RTNORM);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
}

TEST_F(AutoCADMemory, TextReplacedInAChainMustBeFreed) {
    for (const bool frees : {true, false}) {
        resbuf* chain = acutBuildList(1000, L"A=1", RTNONE);
        if (frees) acutDelString(chain->resval.rstring);
        ASSERT_EQ(acutNewString(L"A=2", chain->resval.rstring), Acad::eOk);
        EXPECT_EQ(acutRelRb(chain), RTNORM);
        EXPECT_EQ(bench::BenchBalance().empty(), frees);
        bench::ClearBalance();
    }
}

TEST_F(AutoCADMemory, JoinedChainsAreReleasedAsOne) {
    resbuf* head = acutNewRb(RTSHORT);
    head->rbnext = acutBuildList(RTSTR, L"tail", RTREAL, 2.5, RTNONE);
    EXPECT_EQ(head->rbnext->rbnext->resval.rreal, 2.5);
    EXPECT_EQ(acutRelRb(head), RTNORM);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
}

TEST_F(AutoCADMemory, WrongReleasesAreAccused) {
    resbuf own = {};
    EXPECT_EQ(acutRelRb(nullptr), RTERROR);
    EXPECT_EQ(acutRelRb(&own), RTERROR);
    resbuf* chain = acutNewRb(RTSHORT);
    EXPECT_EQ(acutRelRb(chain), RTNORM);
    EXPECT_EQ(acutRelRb(chain), RTERROR);
    wchar_t* text = nullptr;
    acutDelString(text);
    ASSERT_EQ(acutNewString(L"text", text), Acad::eOk);
    wchar_t* again = text;
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_NE(again[0], L't');
    acutDelString(again);
    wchar_t foreign[] = L"foreign";
    wchar_t* notOurs = foreign;
    acutDelString(notOurs);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("did not make"), HasSubstr("already released"),
                                               HasSubstr("already released"), HasSubstr("did not hand out")));
}

TEST_F(AutoCADMemory, UnknownTypesBuildNoList) {
    EXPECT_EQ(acutBuildList(RTSTR, L"text", 4711, 5, RTNONE), nullptr);
    EXPECT_EQ(acutBuildList(RTNONE), nullptr);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
    resbuf* start = acutBuildList(AcDb::kDxfStart, L"INSERT", 0);
    EXPECT_STREQ(start->resval.rstring, L"INSERT");
    EXPECT_EQ(start->rbnext, nullptr);
    acutRelRb(start);
}

TEST_F(AutoCADMemory, NewBuffersAreNotZeroed) {
    wchar_t* buffer = nullptr;
    ASSERT_EQ(acutNewString(buffer, 8), Acad::eOk);
    EXPECT_EQ(buffer[0], L'\xCD');
    EXPECT_EQ(acutUpdString(L"now a text", buffer), Acad::eOk);
    EXPECT_STREQ(buffer, L"now a text");
    acutDelString(buffer);
    EXPECT_EQ(acutNewString(buffer, 0), Acad::eInvalidInput);
}
