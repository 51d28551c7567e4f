// Selection by the script: picks, misses, Enter, Escape and words, and the sets that come of it.
#include "AutoCADFixture.h"

using bench::Answer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class AutoCADSelection : public AutoCADTest {
 protected:
    // Handles selected with own prompts, one pick; the code goes to code_.
    std::vector<std::string> SelectOne() {
        const ACHAR* prompts[] = {L"\nSelect a duct:", L"\nRemove a duct:"};
        return Taken(acedSSGet(L"_:$:S", prompts, nullptr, nullptr, set_));
    }
    std::vector<std::string> Taken(int code) {
        code_ = code;
        std::vector<std::string> handles;
        if (code != RTNORM) return handles;
        Adesk::Int32 length = -1;
        EXPECT_EQ(acedSSLength(set_, &length), RTNORM);
        for (int i = 0; i < length; ++i) {
            ads_name name;
            EXPECT_EQ(acedSSName(set_, i, name), RTNORM);
            AcDbObjectId id;
            EXPECT_EQ(acdbGetObjectId(id, name), Acad::eOk);
            ACHAR digits[17];
            id.handle().getIntoAsciiBuffer(digits);
            handles.push_back(Narrowed(digits));
        }
        ads_name past;
        EXPECT_EQ(acedSSName(set_, length, past), RTERROR);
        EXPECT_EQ(acedSSFree(set_), RTNORM);
        return handles;
    }

    ads_name set_ = {};
    int code_ = 0;
};

}  // namespace

TEST_F(AutoCADSelection, SinglePickTakesAnswersInOrder) {
    const std::string duct = AddDuct(), other = AddDuct();
    bench::QueueAnswer({Answer::kPick, other});
    bench::QueueAnswer({Answer::kMiss, ""});
    bench::QueueAnswer({Answer::kEnter, ""});
    bench::QueueAnswer({Answer::kEscape, ""});
    EXPECT_THAT(SelectOne(), ElementsAre(other));
    EXPECT_EQ(bench::LastPick(), other);
    for (const int code : {RTERROR, RTERROR, RTCAN}) {
        EXPECT_THAT(SelectOne(), IsEmpty());
        EXPECT_EQ(code_, code);
    }
    EXPECT_EQ(bench::AnswersLeft(), 0u);
    EXPECT_EQ(bench::Transcript(), "\nSelect a duct:\n\nSelect a duct:\n\nSelect a duct:\n\nSelect a duct:*Cancel*\n");
}

TEST_F(AutoCADSelection, ManyPicksEndWithEnter) {
    const std::string duct = AddDuct(), tagged = AddTaggedReference();
    for (const std::string& handle : {duct, tagged, duct})
        bench::QueueAnswer({Answer::kPick, handle});
    bench::QueueAnswer({Answer::kText, "nonsense"});
    bench::QueueAnswer({Answer::kEnter, ""});
    EXPECT_THAT(Taken(acedSSGet(nullptr, nullptr, nullptr, nullptr, set_)), ElementsAre(duct, tagged));
    EXPECT_THAT(bench::Transcript(), HasSubstr("0 found\n\nSelect objects: nonsense\n*Invalid selection*"));
    resbuf* filter = acutBuildList(AcDb::kDxfStart, L"INSERT", RTNONE);
    EXPECT_THAT(Taken(acedSSGet(L"X", nullptr, nullptr, filter, set_)), ElementsAre(tagged));
    EXPECT_THAT(Taken(acedSSGet(L"_P", nullptr, nullptr, nullptr, set_)), ElementsAre(tagged));
    EXPECT_THAT(Taken(acedSSGet(L"_L", nullptr, nullptr, nullptr, set_)), ElementsAre(tagged));
    acutRelRb(filter);
}

TEST_F(AutoCADSelection, RequestsThatAutoCADRefuses) {
    for (const wchar_t* options : {L"Q", L":Z", L"_:S:", L"XX"})
        EXPECT_EQ(acedSSGet(options, nullptr, nullptr, nullptr, set_), RTREJ) << Narrowed(options);
    EXPECT_EQ(acedSSGet(L":$", nullptr, nullptr, nullptr, set_), RTREJ);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("own prompts")));
    EXPECT_EQ(acedSSGet(L"I", nullptr, nullptr, nullptr, set_), RTERROR);
}

TEST_F(AutoCADSelection, SetsAreReleasedOnceAndNotUsedAfterwards) {
    AddDuct();
    ASSERT_EQ(acedSSGet(L"X", nullptr, nullptr, nullptr, set_), RTNORM);
    EXPECT_THAT(bench::BenchBalance(), ElementsAre(HasSubstr("selection set ")));
    EXPECT_EQ(acedSSFree(set_), RTNORM);
    Adesk::Int32 length;
    EXPECT_EQ(acedSSFree(set_), RTERROR);
    EXPECT_EQ(acedSSLength(set_, &length), RTERROR);
    const ads_name none = {0, 0};
    EXPECT_EQ(acedSSFree(none), RTERROR);
    EXPECT_THAT(TakeAccusations(),
                ElementsAre(HasSubstr("acedSSFree"), HasSubstr("acedSSLength"), HasSubstr("no selection set")));
}

TEST_F(AutoCADSelection, OnlySoManySetsAreOpen) {
    AddDuct();
    std::vector<std::pair<int64_t, int64_t>> open;
    while (open.size() < 200 && acedSSGet(L"X", nullptr, nullptr, nullptr, set_) == RTNORM)
        open.emplace_back(set_[0], set_[1]);
    EXPECT_EQ(open.size(), 128u);
    for (const auto& one : open) {
        const ads_name name = {one.first, one.second};
        EXPECT_EQ(acedSSFree(name), RTNORM);
    }
}

TEST_F(AutoCADSelection, SinglePickGivesPointInUserCoordinatesAndTellsWhyItFailed) {
    const std::string tagged = AddTaggedReference();
    const double origin[] = {100, 0, 0}, x[] = {0, 1, 0}, y[] = {-1, 0, 0};
    bench::SetUcs(origin, x, y);
    ads_name name;
    ads_point point = {-1, -1, -1};
    bench::QueueAnswer({Answer::kPick, tagged});
    ASSERT_EQ(acedEntSel(L"Pick:", name, point), RTNORM);
    EXPECT_NEAR(point[X], 200, 1e-9);
    EXPECT_NEAR(point[Y], 0, 1e-9);
    bench::QueueAnswer({Answer::kMiss, ""});
    EXPECT_EQ(acedEntSel(L"Pick:", name, point), RTERROR);
    EXPECT_EQ(bench::SystemVariable("ERRNO"), "7");
    bench::QueueAnswer({Answer::kEnter, ""});
    EXPECT_EQ(acedEntSel(L"Pick:", name, point), RTERROR);
    EXPECT_EQ(bench::SystemVariable("ERRNO"), "52");
    acedInitGet(0, L"Options Exit");
    bench::QueueAnswer({Answer::kText, "e"});
    EXPECT_EQ(acedEntSel(L"Pick:", name, point), RTKWORD);
}

TEST_F(AutoCADSelection, ScriptsAndAbsentUsersAreAccused) {
    bench::QueueAnswer({Answer::kPick, "FFFF"});
    EXPECT_THAT(SelectOne(), IsEmpty());
    EXPECT_THAT(SelectOne(), IsEmpty());
    EXPECT_EQ(code_, RTCAN);
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("The script picked FFFF"), HasSubstr("Nobody answered")));
    const std::string duct = AddDuct();
    bench::SetUser([&](const std::string& prompt) {
        EXPECT_EQ(prompt, "\nSelect a duct:");
        return Answer{Answer::kPick, duct};
    });
    EXPECT_THAT(SelectOne(), ElementsAre(duct));
}
