#include "ScriptRun.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "BenchStage.h"
#include "CommandRun.h"
#include "FloorPlanSvg.h"
#include "Output.h"
#include "ProductRecord.h"
#include "ProjectPlan.h"
#include "Robot.h"
#include "RunReport.h"
#include "Script.h"
#include "Watchdog.h"

namespace bench {
namespace {

constexpr int kSetUpSeconds = 60;
constexpr int kCommandSeconds = 180;
constexpr int kCloseSeconds = 30;
constexpr char kUsualConfigurator[] = "choose first";

std::string Contents(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::string FolderOf(const std::string& file) {
    const size_t end = file.find_last_of("\\/");
    return end == std::string::npos ? "." : file.substr(0, end);
}

class ScriptedRun {
 public:
    ScriptedRun(const HostOptions& options, const Script& script) : options_(options), script_(script) {}

    int Run() {
        watchdog_.Step("the stand-ins and the module to start", kSetUpSeconds);
        const std::string problem = stage_.Open(options_, Say);
        if (!problem.empty()) {
            Say("\nbenchcad: " + problem + "\n");
            return kWentWrong;
        }
        Save("floor-before.svg",
             FloorPlanSvg(PlanOfProject("Floor plan before the run", Subtitle(), HandlesOfProject())));
        RunCommands();
        Collect();
        watchdog_.Step("the module to unload and the stand-ins to close", kCloseSeconds);
        const std::string unloading = stage_.Close();
        watchdog_.Rest();
        if (!unloading.empty()) Fail(unloading);
        CheckBench();
        Save("journal.txt", JoinLines(Journal()));
        Say(SummaryText(report_) + VerdictText(report_));
        Say("\nWritten to " + ShownPath(options_.outputFolder) + "\n");
        return report_.failures.empty() ? kAllWell : kWentWrong;
    }

 private:
    void RunCommands() {
        handlesBefore_ = HandlesOfProject();
        Robot robot(MainWindow());
        for (const ScriptCommand& command : script_.commands) {
            const std::string name = "The command " + command.name;
            watchdog_.Step("the command " + command.name + " (line " + std::to_string(command.line) + " of the script)",
                           kCommandSeconds);
            for (const Answer& answer : command.answers)
                QueueAnswer(answer);
            for (const Expectation& dialog : command.dialogs)
                robot.Expect(dialog);
            report_.commands.push_back(RunAndReport(
                stage_, command.name, command.configurator.empty() ? kUsualConfigurator : command.configurator,
                options_.outputFolder + "\\configurator.txt"));
            const CommandReport& report = report_.commands.back();
            if (!report.known) Fail(name + " is not known.");
            if (!report.committed) Fail(name + " did not commit.");
            if (!report.queued.empty() && report.inserted.empty())
                Fail(name + " queued Klimora's insert command, but no part was inserted.");
            if (AnswersLeft() > 0)
                Fail(name + " left " + std::to_string(AnswersLeft()) + " answers of the script unused.");
            ClearAnswers();
            for (const std::string& complaint : robot.Complaints())
                Fail(complaint);
            robot.Reset();
        }
    }

    void Collect() {
        report_.after = PlanOfProject("Floor plan after the run", Subtitle(), handlesBefore_);
        report_.events = StatisticsEvents();
        KbaseDictionary dictionary;
        KbaseRecord record;
        std::string reason;
        if (!dictionary.Read(FolderOf(options_.catalogue) + "\\sorvik.ddk", reason)) Fail(reason);
        if (SavedRecord(Journal(), dictionary, record)) report_.productRecord = RecordReport(record);
        Save("record.txt", report_.productRecord);
        Save("project.xml", ProjectXml());
        Save("statistics.txt", StatisticsText(report_.events));
        Save("floor-after.svg", FloorPlanSvg(report_.after));
        Save("transcript.txt", Transcript());
    }

    void CheckBench() {
        for (const std::string& sentence : Accusations())
            Fail(sentence);
        for (const std::string& owed : BenchBalance())
            Fail("Not given back: " + owed + ".");
    }

    std::string Subtitle() const {
        const Quiet quiet;
        return "Drawn from " + PartAttribute("", "/dwg/kpjfilename");
    }

    void Save(const char* file, const std::string& text) {
        const std::string problem = WriteText(options_.outputFolder + "\\" + file, text);
        if (!problem.empty()) Fail(problem);
    }
    void Fail(const std::string& sentence) { report_.failures.push_back(sentence); }

    const HostOptions& options_;
    const Script& script_;
    Watchdog watchdog_;
    BenchStage stage_;
    RunReport report_;
    std::set<std::string> handlesBefore_;
};

}  // namespace

int RunScript(const HostOptions& options) {
    Script script;
    const std::string problem = ReadScript(Contents(options.script), options.outputFolder, script);
    if (!problem.empty()) {
        Say("benchcad: " + options.script + ": " + problem + "\n");
        return kWrongUse;
    }
    return ScriptedRun(options, script).Run();
}

}  // namespace bench
