#include "Run.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchTexts.h"
#include "KeyboardLines.h"
#include "Output.h"
#include "PlanWindow.h"
#include "ProjectPlan.h"

namespace bench {
namespace {

constexpr char kHelp[] =
    "Commands: SorvSIL inserts a silencer; parts lists the parts; help shows this; quit ends.\n"
    "At a prompt: a click in AutoCAD's window, a handle (2A3) or a number of the list (#4) picks a part, parts shows "
    "the\n"
    "list, an empty line is Enter, esc is Escape, everything else is typed as text.\n";
constexpr char kMiss[] = "#0";  // no part has this number
constexpr char kPromptHint[] = "(a click, handle or #number picks a part; Enter; esc) ";

// Returns true when the line requested help or the list, after printing it.
bool HandleHelpOrParts(const std::string& line) {
    if (line == "help") Say(kHelp);
    if (line == "parts") Say("\n" + Join(PartList(PlanOfProject("", "", {})), "\n") + "\n");
    return line == "help" || line == "parts";
}

Answer AnswerTo(const std::string& prompt, KeyboardLines& keyboard) {
    const bool endsWithSpace = !prompt.empty() && prompt.back() == ' ';
    std::string line;
    for (;;) {
        Say(endsWithSpace ? kPromptHint : std::string(" ") + kPromptHint);
        if (!keyboard.Next(line) || line == "esc") return {Answer::kEscape, ""};
        if (line.empty()) return {Answer::kEnter, ""};
        if (!HandleHelpOrParts(line)) break;
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

int RunInteractively(const Options& options) {
    Run run(options);
    if (!run.Open()) return kFailure;
    KeyboardLines keyboard;
    bool asked = false;  // clicks are ignored except at a prompt
    PlanWindow window(MainWindow(), [&](const std::string& handle) {
        if (!asked) return;
        Say(handle + "\n");
        keyboard.Type(handle.empty() ? kMiss : handle);
    });
    window.Show(run.Plan("The project"));
    SetUser([&](const std::string& prompt) {
        asked = true;
        const Answer answer = AnswerTo(prompt, keyboard);
        asked = false;
        return answer;
    });
    Say(std::string("\n") + kHelp);
    std::string line;
    for (;;) {
        Say("\nCommand: ");
        if (!keyboard.Next(line) || line == "quit" || line == "exit") break;
        if (!line.empty() && !HandleHelpOrParts(line)) run.Command(line, "ask", 0);
        window.Show(run.Plan("The project"));
    }
    SetUser(nullptr);
    return run.Finish();
}

}  // namespace bench
