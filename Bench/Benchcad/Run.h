// One run of benchcad, scripted or interactive: sets the stage, runs commands, writes the output folder and prints the
// verdict.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Options.h"
#include "Report.h"
#include "Stage.h"
#include "Watchdog.h"

namespace bench {

// Exit codes; a run that hangs exits with 3, one that crashes with 4.
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;
inline constexpr int kUsageError = 2;

class Run {
 public:
    explicit Run(const Options& options) : options_(options) {}

    // Sets the stage and draws the plan before the run. Prints a sentence and returns false on failure.
    bool Open();
    // Runs one command and prints its report. `configurator` is the instruction for the configurator simulator; the
    // command is limited to `seconds`, or unlimited when that is 0.
    CommandReport Command(const std::string& name, const std::string& configurator, int seconds);
    // Returns the plan of the current project; parts added since the run began are marked.
    FloorPlan Plan(const char* title) const;
    // Adds a failure, one sentence, to the verdict.
    void Fail(const std::string& sentence) { failures_.push_back(sentence); }
    // Writes the output folder, closes the stage, prints the verdict and returns the exit code.
    int Finish();

 private:
    void Save(const char* file, const std::string& text);

    const Options& options_;
    Watchdog watchdog_;
    std::unique_ptr<Stage> stage_;
    std::set<std::string> handlesBefore_;
    std::vector<std::string> failures_;
};

// Both return the exit code. Runs the script's commands, with the robot operating the dialogs.
int RunScript(const Options& options);
// The user types commands and answers to prompts, sees the configurator's window, dialogs and message boxes, and reads
// a report after every command.
int RunInteractively(const Options& options);

}  // namespace bench
