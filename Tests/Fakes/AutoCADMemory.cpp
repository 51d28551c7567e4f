// Ownership of strings and result buffer chains.
#include "AutoCADFixture.h"

using testing::ElementsAre;
using testing::HasSubstr;

using AutoCADMemory = AutoCADTest;

TEST_F(AutoCADMemory, TracksAChainUntilEveryNodeAndStringIsReleased) {
    resbuf* chain = acutBuildList(1001, L"SORV", 1000, L"A=1", 1000, L"B=2", RTNONE);
    resbuf* middle = chain->rbnext;
    chain->rbnext = middle->rbnext;
    middle->rbnext = nullptr;
    EXPECT_EQ(acutRelRb(chain), RTNORM);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("resbuf chain acutBuildList 1001"));
    ACHAR* text = middle->resval.rstring;
    middle->resval.rstring = nullptr;
    EXPECT_EQ(acutRelRb(middle), RTNORM);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("resbuf chain acutBuildList 1001"));
    acutDelString(text);
}

TEST_F(AutoCADMemory, ReportsWrongReleases) {
    resbuf own = {};
    EXPECT_EQ(acutRelRb(nullptr), RTERROR);
    EXPECT_EQ(acutRelRb(&own), RTERROR);
    resbuf* chain = acutNewRb(RTSHORT);
    chain->rbnext = nullptr;  // acutNewRb only sets the type
    EXPECT_EQ(acutRelRb(chain), RTNORM);
    EXPECT_EQ(acutRelRb(chain), RTERROR);
    EXPECT_EQ(acedGetVar(L"CMDECHO", chain), RTERROR);
    EXPECT_EQ(acedSetVar(L"CMDECHO", chain), RTERROR);
    wchar_t* text = nullptr;
    acutDelString(text);
    ASSERT_EQ(acutUpdString(L"text", text), Acad::eOk);
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("string acutUpdString text"));
    wchar_t* again = text;
    acutDelString(text);
    EXPECT_EQ(text, nullptr);
    EXPECT_STREQ(again, L"\xDD\xDD\xDD\xDD");
    acutDelString(again);
    wchar_t foreign[] = L"foreign";
    wchar_t* notOurs = foreign;
    acutDelString(notOurs);
    EXPECT_THAT(TakeViolations(),
                ElementsAre(HasSubstr("did not allocate"), HasSubstr("already released"), HasSubstr("acedGetVar"),
                            HasSubstr("acedSetVar"), HasSubstr("already released"), HasSubstr("did not allocate")));
}

TEST_F(AutoCADMemory, RejectsInvalidXdata) {
    acdbRegApp(L"SORV");
    const std::wstring much(9000, L'x');
    const std::pair<resbuf*, Acad::ErrorStatus> cases[] = {
        {acutBuildList(1001, L"UNKNOWN", 1000, L"A=2", RTNONE), Acad::eRegappIdNotFound},
        {acutBuildList(1000, L"A=2", RTNONE), Acad::eBadDxfSequence},
        {acutBuildList(1001, L"SORV", RTSHORT, 5, RTNONE), Acad::eInvalidDxfCode},
        {acutBuildList(1001, L"SORV", 1000, much.c_str(), 1000, much.c_str(), RTNONE), Acad::eXdataSizeExceeded},
    };
    AcDbEntity* entity = Opened(AddDuct(), AcDb::kForWrite);
    for (const auto& [chain, status] : cases) {
        EXPECT_EQ(entity->setXData(chain), status);
        acutRelRb(chain);
    }
    EXPECT_EQ(entity->xData(), nullptr);
    EXPECT_EQ(entity->setXData(cases[0].first), Acad::eInvalidResBuf);
    entity->close();
    EXPECT_THAT(TakeViolations(), ElementsAre(HasSubstr("setXData was called on a result buffer that was already")));
}
