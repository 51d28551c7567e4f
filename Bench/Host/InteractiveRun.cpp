#include "InteractiveRun.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "KeyboardLines.h"
#include "Output.h"
#include "ProjectPlan.h"
#include "Run.h"

namespace bench {
namespace {

constexpr char kHelp[] =
    "Commands: SorvSIL inserts a silencer; parts lists the parts; help shows this; quit ends.\n"
    "At a prompt: a handle (2A3) or a number of the list (#4) picks a part, parts shows the list, an empty line is\n"
    "Enter, esc is Escape, everything else is typed as text.\n";

// True when the line asked for help or the list and was answered.
bool Informs(const std::string& line) {
    if (line == "help") Say(kHelp);
    if (line == "parts") Say("\n" + JoinLines(PartList(PlanOfProject("", "", {}))));
    return line == "help" || line == "parts";
}

Answer AnswerTo(const std::string& prompt, KeyboardLines& keyboard) {
    std::string line;
    for (;;) {
        if (!keyboard.Next(line) || line == "esc") return {Answer::kEscape, ""};
        if (line.empty()) return {Answer::kEnter, ""};
        if (!Informs(line)) break;
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

}  // namespace

int RunInteractively(const HostOptions& options) {
    Run run(options);
    if (!run.Open()) return kWentWrong;
    KeyboardLines keyboard;
    SetUser([&](const std::string& prompt) { return AnswerTo(prompt, keyboard); });
    Say(std::string("\n") + kHelp);
    std::string line;
    for (;;) {
        Say("\nCommand: ");
        if (!keyboard.Next(line) || line == "quit" || line == "exit") break;
        if (!line.empty() && !Informs(line)) run.Command(line, "ask", 0);
    }
    SetUser(nullptr);
    return run.Finish();
}

}  // namespace bench
