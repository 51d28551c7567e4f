// What the bench host makes without any stand-in: its switches, its scripts, the decoded record and the floor plan.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FloorPlanSvg.h"
#include "Options.h"
#include "ProductRecord.h"
#include "RunReport.h"
#include "Script.h"
#include "SvgWriter.h"

namespace bench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

TEST(HostOptions, TakeWhatIsLeftOutFromTheProgramsFolder) {
    HostOptions options;
    ASSERT_EQ("", ReadOptions({"/LD", "other.arx", "/out", "here"}, "C:\\bench", options));
    EXPECT_EQ("other.arx", options.module);
    EXPECT_EQ("C:\\bench\\office.xml", options.project);
    EXPECT_EQ("C:\\bench\\sample.script", options.script);
    EXPECT_EQ("here", options.outputFolder);
    ASSERT_EQ("", ReadOptions({"/interactive"}, "C:\\bench", options));
    EXPECT_EQ("", options.script) << "nothing of the run before stays, and an interactive run has no script";
}

TEST(HostOptions, WrongUseIsOneSentence) {
    HostOptions options;
    EXPECT_THAT(ReadOptions({"/nonsense"}, "", options), HasSubstr("/nonsense is not known"));
    EXPECT_THAT(ReadOptions({"/i"}, "", options), HasSubstr("/i needs a value"));
    EXPECT_THAT(ReadOptions({"/s", "a", "/interactive"}, "", options), HasSubstr("not both"));
    ASSERT_EQ("", ReadOptions({"/i", "no such file"}, "", options));
    EXPECT_THAT(MissingFile(options), HasSubstr("project no such file"));
}

TEST(HostScript, GathersTheStepsOfACommand) {
    Script script;
    ASSERT_EQ("", ReadScript("# job\n\ncommand SorvSIL\r\n  pick 2A3\n  configurator choose first\n  miss\n"
                             "  dialog type 1102 MY CODE\n  dialog press OK\n  box says In use.\\nReplace?\n"
                             "  box answer No\n  text a b\n  enter\ncommand OTHER\n  escape\n",
                             "out", script));
    ASSERT_EQ(2u, script.commands.size());
    const ScriptCommand& command = script.commands[0];
    EXPECT_EQ("SorvSIL", command.name);
    EXPECT_EQ(3, command.line);
    EXPECT_EQ("choose first", command.configurator);
    std::vector<int> kinds;
    for (const Answer& answer : command.answers)
        kinds.push_back(answer.kind);
    EXPECT_THAT(kinds, ElementsAre(Answer::kPick, Answer::kMiss, Answer::kText, Answer::kEnter));
    EXPECT_EQ("a b", command.answers[2].value);
    ASSERT_EQ(2u, command.dialogs.size());
    ASSERT_EQ(2u, command.dialogs[0].steps().size());
    EXPECT_EQ("MY CODE", std::get<TypeText>(command.dialogs[0].steps()[0]).text);
    SeenDialog box;
    box.text = "In use.\nReplace?";
    EXPECT_TRUE(command.dialogs[1].Meant(box));
    ASSERT_EQ(1u, script.commands[1].answers.size());
    EXPECT_EQ(Answer::kEscape, script.commands[1].answers[0].kind);
}

TEST(HostScript, ErrorsNameTheLine) {
    const struct {
        const char* text;
        const char* error;
    } cases[] = {
        {"# nothing\n", "The script has no command."},
        {"pick 2A3\n", "Line 1: \"pick\" comes before the first command."},
        {"command X\ndance\n", "Line 2: \"dance\" is no step."},
        {"command X\n\npick\n", "Line 3: \"pick\" needs a value."},
        {"command X\nenter now\n", "Line 2: \"enter\" takes no value."},
        {"command X\ndialog type field A\n", "Line 2: \"dialog type\" needs the number of a field."},
        {"command X\ndialog type 1 A\nbox answer OK\n", "Line 3: the dialog before is neither answered nor closed."},
        {"command X\nbox says A\ncommand Y\n", "Line 3: the box before has no answer."},
        {"command X\ndialog type 1 A\n", "the dialog before is neither answered nor closed."},
    };
    for (const auto& c : cases) {
        Script script;
        EXPECT_EQ(c.error, ReadScript(c.text, "out", script)) << c.text;
    }
}

TEST(HostScript, AScreenshotBelongsToTheNextDialog) {
    Script script;
    ASSERT_EQ("",
              ReadScript("command X\nbox answer OK\nscreenshot a.png\nbox answer OK\nbox answer OK\n", "out", script));
    std::vector<size_t> steps;
    for (const Expectation& dialog : script.commands[0].dialogs)
        steps.push_back(dialog.steps().size());
    EXPECT_THAT(steps, ElementsAre(1, 2, 1));
    EXPECT_EQ("out\\a.png", std::get<TakePicture>(script.commands[0].dialogs[1].steps()[0]).file);
}

TEST(HostReports, OnlyACommandThatEndedAndNeverAbortedIsCommitted) {
    const std::string start = "AcTransactionManager::startTransaction -> 1";
    const std::string end = "AcTransactionManager::endTransaction -> 0";
    const std::string abort = "AcTransactionManager::abortTransaction -> 0";
    EXPECT_TRUE(Committed({start, end}));
    EXPECT_FALSE(Committed({start}));
    EXPECT_FALSE(Committed({start, abort}));
    EXPECT_FALSE(Committed({start, end, start, abort}));
    EXPECT_FALSE(Committed({start, "AcTransactionManager::endTransaction -> 40"}));
}

TEST(HostReports, VerdictNamesEveryFailure) {
    RunReport report;
    report.events = {{"INSERT", {"Plug-in", "1.2"}, true}};
    EXPECT_THAT(VerdictText(report), HasSubstr("All went as it should."));
    EXPECT_THAT(SummaryText(report), HasSubstr("   2  plug-in version       1.2\n"));
    report.failures = {"First.", "Second."};
    EXPECT_THAT(VerdictText(report), HasSubstr("  First.\n  Second.\n"));
    EXPECT_THAT(VerdictText(report), Not(HasSubstr("All went")));
}

TEST(HostReports, TheRecordIsTheOneThatWasSavedLast) {
    KbaseDictionary dictionary;
    std::string error;
    ASSERT_TRUE(dictionary.Read("sorvik.ddk", error)) << error;
    KbaseRecord record;
    const std::vector<std::string> unsaved = {"kbcreaterec 1 dSilencerType 'A-1' -> record",
                                              "kbinsertatt 1503 count=6 'O'Neil' -> 0"};
    EXPECT_FALSE(SavedRecord(unsaved, dictionary, record));
    std::vector<std::string> journal = unsaved;
    journal.insert(journal.end(),
                   {"kbinsertatt 1651 count=1 8 bytes 0000484200009040 -> 0", "kbinsertatt 1562 count=3 'bad' -> -1",
                    "kbsaverec 1 dSilencerType 'A-1' -> 0", "kbcreaterec 1 dSilencerType 'B-2' -> record"});
    ASSERT_TRUE(SavedRecord(journal, dictionary, record));
    EXPECT_EQ("A-1", record.key);
    EXPECT_EQ(2u, record.attributes.size()) << "a refused value is none";
    EXPECT_EQ("O'Neil", record.BytesOf(1503));
    EXPECT_THAT(RecordReport(record), HasSubstr("1651  DpCurve              Qv=50 Dp=4.5\n"));
}

size_t Count(const std::string& text, const std::string& word) {
    size_t count = 0;
    for (size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
        ++count;
    return count;
}

TEST(HostFloorPlan, IsDrawnToScaleWithTheNewSilencerCircled) {
    PlanPart duct;
    duct.handle = "2A3";
    duct.direction = {1, 0};
    duct.length = 10000;
    duct.across = 1000;
    duct.size = "1000";
    duct.airflow = "120";
    PlanPart silencer = duct;
    silencer.kind = PlanPart::Kind::kSilencer;
    silencer.start = {2000, 0};
    silencer.length = 1000;
    silencer.userCode = "A<B";
    FloorPlan plan{"Title & more", "", {{"S1", "Supply", 0}}, {duct, silencer}};

    const std::string before = FloorPlanSvg(plan);
    // 10 m of duct and 1.2 m of paper at each end fill 1260 pixels: the duct is ten times as long as wide.
    EXPECT_THAT(before, HasSubstr("<polygon points='191.94 175.13, 1208.06 175.13, 1208.06 276.74, 191.94 276.74'"));
    EXPECT_THAT(before, HasSubstr("Title &amp; more"));
    EXPECT_THAT(before, HasSubstr("A&lt;B"));
    plan.parts[1].marked = true;
    EXPECT_EQ(Count(before, "#c8102e") + 2, Count(FloorPlanSvg(plan), "#c8102e"));
}

TEST(HostFloorPlan, NumbersHaveNoUselessDigits) {
    EXPECT_EQ("1.5", SvgNumber(1.5));
    EXPECT_EQ("100", SvgNumber(100));
    EXPECT_EQ("0", SvgNumber(-0.001));
    EXPECT_EQ("-2.25", SvgNumber(-2.25));
}

}  // namespace
}  // namespace bench
