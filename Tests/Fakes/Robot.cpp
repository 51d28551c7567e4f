// The robot with real message boxes: that it reports everything that the script did not expect.
#include "Robot.h"

#include <windows.h>

#include <gmock/gmock.h>

#include <iterator>

namespace bench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

int ShowBox(const char* text, UINT style) {
    return MessageBoxA(nullptr, text, "Robot at work", style);
}

TEST(RobotTest, ReportsEveryDifferenceAndStillAnswers) {
    Robot robot;
    robot.Expect(Box("Sure?").Captioned("Other").Icon(BoxIcon::kError).Buttons({"No", "Yes"}).AnswerWith("Yes"));
    EXPECT_EQ(IDYES, ShowBox("Sure?", MB_YESNO | MB_ICONWARNING));
    EXPECT_THAT(
        robot.Complaints(),
        ElementsAre("The caption of the box \"Sure?\" was expected to be \"Other\" and is \"Robot at work\".",
                    "The icon of the box \"Sure?\" was expected to be \"error icon\" and is \"warning icon\".",
                    "The row of buttons of the box \"Sure?\" was expected to be \"No Yes\" and is \"Yes No\"."));

    SeenDialog dialog;
    dialog.edits = {{1102, "SORV1", 10}};
    EXPECT_FALSE(Dialog("Code").Matches(dialog));
    EXPECT_THAT(Dialog("Code").Shows(1102, "SORV2").Shows(7, "").Differences(dialog),
                ElementsAre("The field 1102 of the dialog \"Code\" was expected to be \"SORV2\" and is \"SORV1\".",
                            "There is no field 7 in the dialog \"Code\"."));
}

TEST(RobotTest, ClosesUnexpectedBoxesAndReportsUnmetExpectations) {
    const struct {
        UINT style;
        int result;
    } cases[] = {{MB_OK, IDOK}, {MB_YESNO, IDNO}, {MB_OKCANCEL, IDCANCEL}, {MB_ABORTRETRYIGNORE, IDABORT}};
    Robot robot;
    for (const auto& c : cases)
        EXPECT_EQ(c.result, ShowBox("Surprise", c.style)) << c.style;
    robot.Expect(Box("Never shown").AnswerWith("OK"));
    EXPECT_EQ(IDOK, ShowBox("Another", MB_OK));
    const std::vector<std::string> complaints = robot.Complaints();
    ASSERT_EQ(std::size(cases) + 2, complaints.size());
    EXPECT_THAT(complaints.front(), HasSubstr("No further dialog was expected, but found the box \"Surprise\""));
    EXPECT_THAT(complaints[4], HasSubstr("Expected the box \"Never shown\", but found the box \"Another\""));
    EXPECT_THAT(complaints[5], HasSubstr("never shown: the box \"Never shown\""));
    robot.Reset();
    EXPECT_THAT(robot.Complaints(), IsEmpty());
}

TEST(RobotTest, ReportsControlsThatTheBoxLacks) {
    Robot robot;
    robot.Expect(Box("Choose").Type(1102, "A").Press(IDRETRY).AnswerWith("Maybe"));
    EXPECT_EQ(IDNO, ShowBox("Choose", MB_YESNO));
    EXPECT_THAT(robot.Complaints(), ElementsAre("At the box \"Choose\" there is no control 1102 to type into.",
                                                "At the box \"Choose\" there is no button 4.",
                                                "At the box \"Choose\" there is no button \"Maybe\".",
                                                HasSubstr("No further dialog was expected")));
}

}  // namespace
}  // namespace bench
