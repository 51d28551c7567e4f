// The command KLIMSILX: a silencer goes into the middle of a duct, and all that touched the duct stays connected.
#include <cstdlib>

#include "KlimoraClient.h"

namespace {

using bench::Answer;

class KlimoraInsertTest : public KlimoraBench {
 protected:
    // Two lines of input and the answers of the user.
    void Insert(const std::string& key, const std::string& userCode, const std::vector<Answer>& answers) {
        bench::QueueAnswer({Answer::kText, key});
        bench::QueueAnswer({Answer::kText, userCode});
        for (const Answer& answer : answers)
            bench::QueueAnswer(answer);
        bench::ClearTranscript();
        ASSERT_TRUE(bench::RunCommand("KLIMSILX"));
        EXPECT_EQ(bench::AnswersLeft(), 0u);
        bench::ClearAnswers();
    }
    bool Said(const std::string& text) { return bench::Transcript().find(text) != std::string::npos; }
    std::string Ends(const std::string& handle) {
        return bench::PartAttribute(handle, "/Part/Connection[0]/ConnectedTo") + " " +
               bench::PartAttribute(handle, "/Part/Connection[1]/ConnectedTo");
    }
    std::string Run(const std::string& handle) {
        return bench::PartAttribute(handle, "/Part/Position/WCS") + " length " +
               bench::PartAttribute(handle, "/Part/Length");
    }
    // Every connection leads to a part that leads back.
    void ExpectConnectionsBothWays() {
        std::string error;
        const std::string project = bench::ProjectXml();
        EXPECT_TRUE(bench::OpenProjectText(project, error)) << error;
    }
};

TEST_F(KlimoraInsertTest, SplitsTheDuctAndRewiresItsNeighbours) {
    Insert("SRC-400-1200", "SORV1", {{Answer::kPick, "2B3"}});
    const std::vector<std::string> handles = bench::PartHandles();
    ASSERT_EQ(handles.size(), 32u);
    size_t at = 0;
    while (handles[at] != "2B3")
        ++at;
    const std::string silencer = handles[at + 1];
    const std::string second = handles[at + 2];
    EXPECT_EQ(Ends("2B3"), "2B0 " + silencer);
    EXPECT_EQ(Ends(silencer), "2B3 " + second);
    EXPECT_EQ(Ends(second), silencer + " 2B4");
    EXPECT_EQ(bench::PartAttribute("2B4", "/Part/Connection[0]/ConnectedTo"), second);
    EXPECT_EQ(Run("2B3"), "13500 6000 2800 length 3650");
    EXPECT_EQ(Run(silencer), "17150 6000 2800 length 1200");
    EXPECT_EQ(Run(second), "18350 6000 2800 length 3650");
    EXPECT_EQ(Get(silencer, "/Part/Type/Define").text, "EWAPART_SILENCER");
    EXPECT_EQ(Get(silencer, "/part/system/type/id").text + " " + Get(silencer, "/part/diameter").text + " " +
                  Get(silencer, "/Part/UserCode").text,
              "1 315 SORV1");
    EXPECT_EQ(Get(second, "/part/qv_sizingflow/ls").text, "350");
    EXPECT_TRUE(InDrawing(silencer));
    EXPECT_TRUE(InDrawing(second));
    EXPECT_TRUE(Said("\nKlimora: Select the duct for silencer SORV1 or press Enter for the duct picked last:"));
    EXPECT_TRUE(Said("Silencer SORV1 was inserted as part " + silencer + " between ducts 2B3 and " + second +
                     ", 3650 mm from the start of the duct."));
    ExpectConnectionsBothWays();
}

TEST_F(KlimoraInsertTest, GoesAlongTheDuctsOwnDirectionAndLeavesFreeEndsFree) {
    Insert("SRC-400-1200", "SORV1", {{Answer::kPick, "2B1"}});
    EXPECT_EQ(Run("2B1"), "13250 5800 2800 length 1550");
    EXPECT_EQ(Run(bench::PartAttribute("2B1", "/Part/Connection[1]/ConnectedTo")), "13250 4250 2800 length 1200");
    Insert("SRC-400-1200", "SORV1", {{Answer::kPick, "2BB"}});
    EXPECT_EQ(bench::PartAttribute("2BB", "/Part/Connection[0]/ConnectedTo"), "0");
    ExpectConnectionsBothWays();
}

TEST_F(KlimoraInsertTest, AMissAsksAgainAndEnterTakesTheDuctPickedLast) {
    Insert("SRC-400-1200", "SORV1", {{Answer::kMiss, ""}, {Answer::kPick, "2A1"}});
    EXPECT_TRUE(Said("between ducts 2A1 and"));
    Insert("SRC-400-1200", "SORV1", {{Answer::kEnter, ""}});
    EXPECT_EQ(std::atof(bench::PartAttribute("2A1", "/Part/Length").c_str()), 1100);
    ExpectConnectionsBothWays();
}

TEST_F(KlimoraInsertTest, WhatCannotBeDoneIsSaidAndChangesNothing) {
    const struct {
        const char* key;
        const char* userCode;
        std::vector<Answer> answers;
        const char* said;
    } cases[] = {
        {"SRC-400-1200", "SORV2", {}, "KLIMSILX: product SRC-400-1200 with user code SORV2 is not in the project."},
        {"SRC-400", "SORV1", {}, "KLIMSILX: product SRC-400 with user code SORV1 is not in the project."},
        {"SRC-400-1200", "SORV1", {{Answer::kPick, "2AA"}}, "KLIMSILX: part 2AA is not a duct"},
        {"SRC-400-1200", "SORV1", {{Answer::kPick, "900"}}, "KLIMSILX: There is no Klimora part 900."},
        {"SRC-400-1200", "SORV1", {{Answer::kEscape, ""}}, "KLIMSILX: no duct was selected."},
        {"SRC-400-1200", "SORV1", {{Answer::kPick, "2A5"}}, "too short for a silencer of 1200 mm"},
    };
    bench::AddEntity({"900", "AcDbLine", "0"});
    EXPECT_EQ(Set("2A5", "/Part/Length", "1200").result, 0);
    const std::string before = bench::ProjectXml();
    const size_t entities = bench::Entities().size();
    for (const auto& c : cases) {
        Insert(c.key, c.userCode, c.answers);
        EXPECT_TRUE(Said(c.said)) << bench::Transcript();
        EXPECT_EQ(bench::ProjectXml(), before) << c.said;
        EXPECT_EQ(bench::Entities().size(), entities) << c.said;
    }
    bench::EraseEntity("900");
}

TEST_F(KlimoraInsertTest, TheCommandsOwnCallsAreNotInTheJournal) {
    bench::ClearJournal();
    bench::FailCall("acedGetString", 1);
    Insert("SRC-400-1200", "SORV1", {{Answer::kPick, "2A1"}});
    EXPECT_TRUE(Said("between ducts 2A1 and"));
    for (const std::string& line : bench::Journal())
        EXPECT_EQ(line.find("aced"), std::string::npos) << line;
}

}  // namespace
