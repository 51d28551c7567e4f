#include "Run.h"

#include <fstream>
#include <iterator>
#include <string>

#include "BenchAutoCAD.h"
#include "Output.h"
#include "Robot.h"
#include "Script.h"

namespace bench {
namespace {

constexpr int kCommandSeconds = 180;

std::string Contents(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void RunOne(Run& run, const ScriptCommand& command, Robot& robot) {
    const std::string name = "The command " + command.name;
    for (const Answer& answer : command.answers)
        QueueAnswer(answer);
    for (const Expectation& dialog : command.dialogs)
        robot.Expect(dialog);
    const CommandReport report = run.Command(command.name, command.configurator, kCommandSeconds);
    if (!report.known) run.Fail(name + " is not known.");
    if (!report.committed) run.Fail(name + " did not commit.");
    if (!report.queued.empty() && report.inserted.empty())
        run.Fail(name + " queued Klimora's insert command, but no part was inserted.");
    if (const size_t left = AnswersLeft(); left > 0)
        run.Fail(name + " left " + std::to_string(left) + (left == 1 ? " answer" : " answers") +
                 " of the script unused.");
    ClearAnswers();
    for (const std::string& complaint : robot.Complaints())
        run.Fail(complaint);
    robot.Reset();
}

}  // namespace

int RunScript(const Options& options) {
    Script script;
    const std::string problem = ReadScript(Contents(options.script), options.outputFolder, script);
    if (!problem.empty()) {
        Say("benchcad: " + options.script + ": " + problem + "\n");
        return kUsageError;
    }
    Run run(options);
    if (!run.Open()) return kFailure;
    {
        Robot robot(MainWindow());
        for (const ScriptCommand& command : script)
            RunOne(run, command, robot);
    }
    return run.Finish();
}

}  // namespace bench
