#include "InteractiveRun.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "BenchStage.h"
#include "CommandRun.h"
#include "FloorPlanSvg.h"
#include "KeyboardLines.h"
#include "Output.h"
#include "ProjectPlan.h"
#include "RunReport.h"
#include "ScriptRun.h"

namespace bench {
namespace {

constexpr char kHelp[] =
    "Commands: SorvSIL inserts a silencer; parts lists the parts; help shows this; quit ends.\n"
    "At a prompt: a handle (2A3) or a number of the list (#4) picks a part, parts shows the list, an empty line is\n"
    "Enter, esc is Escape, everything else is typed as text.\n";

class Session {
 public:
    explicit Session(const HostOptions& options) : options_(options) {}

    int Run() {
        const std::string problem = stage_.Open(options_, Say);
        if (!problem.empty()) {
            Say("benchcad: " + problem + "\n");
            return kWentWrong;
        }
        handlesBefore_ = HandlesOfProject();
        SetUser([this](const std::string& prompt) { return AnswerTo(prompt); });
        Say(std::string("\n") + kHelp);
        ReadCommands();
        SetUser(nullptr);
        return Finish();
    }

 private:
    void ReadCommands() {
        std::string line;
        for (;;) {
            Say("\nCommand: ");
            if (!keyboard_.Next(line) || line == "quit" || line == "exit") return;
            if (line.empty()) continue;
            if (line == "help")
                Say(kHelp);
            else if (line == "parts")
                ShowParts();
            else
                RunOne(line);
        }
    }

    void RunOne(const std::string& command) {
        RunReport report;
        report.commands.push_back(RunAndReport(stage_, command, "ask", options_.outputFolder + "\\configurator.txt"));
        if (!report.commands.back().known) return;
        report.after = PlanOfProject("", "", handlesBefore_);
        for (const std::string& sentence : Accusations())
            report.failures.push_back(sentence);
        ClearAccusations();
        accused_ = accused_ || !report.failures.empty();
        Say(SummaryText(report) + (report.failures.empty() ? "" : VerdictText(report)));
    }

    Answer AnswerTo(const std::string& prompt) {
        std::string line;
        for (;;) {
            if (!keyboard_.Next(line) || line == "esc") return {Answer::kEscape, ""};
            if (line.empty()) return {Answer::kEnter, ""};
            if (line != "parts" && line != "help") break;
            if (line == "parts")
                ShowParts();
            else
                Say(kHelp);
            Say(prompt);
        }
        const std::vector<PlanPart> parts = PlanOfProject("", "", {}).parts;
        if (line[0] == '#') {
            const size_t number = static_cast<size_t>(std::atoi(line.c_str() + 1));
            if (number >= 1 && number <= parts.size()) return {Answer::kPick, parts[number - 1].handle};
            return {Answer::kMiss, ""};
        }
        for (const PlanPart& part : parts)
            if (part.handle == line) return {Answer::kPick, line};
        return {Answer::kText, line};
    }

    static void ShowParts() { Say("\n" + JoinLines(PartList(PlanOfProject("", "", {})))); }

    int Finish() {
        const FloorPlan after = PlanOfProject("Floor plan after the session", "What is new is circled", handlesBefore_);
        std::vector<std::string> problems;
        for (const std::string& problem :
             {WriteText(options_.outputFolder + "\\floor-after.svg", FloorPlanSvg(after)),
              WriteText(options_.outputFolder + "\\project.xml", ProjectXml()),
              WriteText(options_.outputFolder + "\\transcript.txt", Transcript()), stage_.Close(),
              WriteText(options_.outputFolder + "\\journal.txt", JoinLines(Journal()))})
            if (!problem.empty()) problems.push_back(problem);
        for (const std::string& sentence : Accusations())
            problems.push_back(sentence);
        for (const std::string& owed : BenchBalance())
            problems.push_back("Not given back: " + owed + ".");
        Say("\n" + JoinLines(problems) + "Written to " + ShownPath(options_.outputFolder) + "\n");
        return problems.empty() && !accused_ ? kAllWell : kWentWrong;
    }

    const HostOptions& options_;
    KeyboardLines keyboard_;
    BenchStage stage_;
    std::set<std::string> handlesBefore_;
    bool accused_ = false;
};

}  // namespace

int RunInteractively(const HostOptions& options) {
    return Session(options).Run();
}

}  // namespace bench
