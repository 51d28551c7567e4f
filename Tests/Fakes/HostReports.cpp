// The parts of the bench host that need no fake: its scripts and the report of a run.
#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "Report.h"
#include "Robot.h"
#include "Script.h"

namespace bench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

TEST(HostScript, ReportsErrorsWithTheirLine) {
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"# job\n\ncommand X\r\n  pick 2A3\n  dialog type 1 A B\n  dialog press OK\n  enter\n", ""},
        {"# nothing\n", "The script has no command."},
        {"pick 2A3\n", "Line 1: \"pick\" comes before the first command."},
        {"command X\ndance\n", "Line 2: \"dance\" is not a step."},
        {"command X\n\npick\n", "Line 3: \"pick\" needs a value."},
        {"command X\nenter now\n", "Line 2: \"enter\" takes no value."},
        {"command X\ndialog type field A\n", "Line 2: \"dialog type\" needs the number of a field."},
        {"command X\ndialog type 1 A\ncommand Y\n", "Line 3: the dialog before is neither answered nor closed."},
        {"command X\nbox\n", "Line 2: \"box\" needs a button."},
        {"command X\ndialog type 1 A\nbox Yes\n", "Line 3: the dialog before is neither answered nor closed."},
        {"command X\ndialog type 1 A\n", "the dialog before is neither answered nor closed."},
    };
    for (const auto& c : cases) {
        Script script;
        EXPECT_EQ(c.error, ReadScript(c.text, "out", script)) << c.text;
    }
}

TEST(HostScript, PressesTheNamedButtonOfABox) {
    Script script;
    ASSERT_EQ("", ReadScript("command X\n  box Yes\n  box Maybe\n", "out", script));
    Robot robot;
    for (const Expectation& box : script[0].dialogs)
        robot.Expect(box);
    EXPECT_EQ(IDYES, MessageBoxA(nullptr, "Replace?", "X", MB_YESNO));
    EXPECT_THAT(robot.Complaints(), ElementsAre("Expected, but never shown: a box."));
    EXPECT_EQ(IDNO, MessageBoxA(nullptr, "Replace?", "X", MB_YESNO));
    EXPECT_THAT(robot.Complaints(), Contains("At a box there is no button \"Maybe\"."));
}

TEST(HostReport, ReportsOnlyAnEndedTransactionAsCommitted) {
    const std::string start = "AcTransactionManager::startTransaction -> 1";
    const std::string end = "AcTransactionManager::endTransaction -> 0";
    const std::string abort = "AcTransactionManager::abortTransaction -> 0";
    EXPECT_TRUE(Committed({start, end}));
    EXPECT_FALSE(Committed({start}));
    EXPECT_FALSE(Committed({start, end, start, abort}));
    EXPECT_FALSE(Committed({start, "AcTransactionManager::endTransaction -> 40"}));
}

}  // namespace
}  // namespace bench
