// One run of the bench host from end to end, whoever the user is: the stage is set, commands run on it, and at the end
// what they did lies in the output folder and the verdict on the console.
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

// Exit codes; a run that hung gives 3 and one that crashed 4.
inline constexpr int kAllWell = 0;
inline constexpr int kWentWrong = 1;
inline constexpr int kWrongUse = 2;

class Run {
 public:
    explicit Run(const HostOptions& options) : options_(options) {}

    // Sets the stage and draws the plan before the run; false, after a sentence on the console, when that failed.
    bool Open();
    // Runs one command and says what it did. `configurator` steers the configurator window; the command may take
    // `seconds`, or any time when that is 0.
    CommandReport Command(const std::string& name, const std::string& configurator, int seconds);
    // The project now; what is new since the run began is marked.
    FloorPlan Plan(const char* title) const;
    // Everything that was wrong, one sentence each, ends up in the verdict.
    void Fail(const std::string& sentence) { failures_.push_back(sentence); }
    // Writes the folder, closes the stage, says the verdict and gives the exit code.
    int Finish();

 private:
    void Save(const char* file, const std::string& text);

    const HostOptions& options_;
    Watchdog watchdog_;
    std::unique_ptr<Stage> stage_;
    std::set<std::string> handlesBefore_;
    std::vector<std::string> failures_;
};

}  // namespace bench
