// The user in front of the dialogs: a thread that finds the dialog windows and message boxes of its own process, notes
// what they show, and answers them by a script. The robot owns its thread; the destructor joins it. Every box that is
// met must be expected, in order: an unexpected one is noted as a complaint and closed, an expectation that no dialog
// met is a complaint too. A dialog is touched only when its own message loop runs, and an answer counts as given when
// that loop has taken it, so nothing depends on time. A dialog that stays open after its answer is met again by the
// next expectation. Dialogs without controls ask nothing and are left alone.
#pragma once

#include <windows.h>

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "Expectation.h"
#include "SeenDialog.h"

namespace bench {

class Robot {
 public:
    // `watched` is a window whose enabled state is noted with every dialog (an application's main window), or null.
    explicit Robot(HWND watched = nullptr);
    ~Robot();
    Robot(const Robot&) = delete;
    Robot& operator=(const Robot&) = delete;

    // Safe from any thread and at any time; expectations are met in the order in which they were given.
    void Expect(const Expectation& expectation);

    // Dialogs answered so far, a dialog that stayed open once for every answer.
    std::vector<SeenDialog> Seen() const;
    // What went wrong so far, with one sentence for every expectation that is still unmet. Empty after a good run.
    std::vector<std::string> Complaints() const;
    // Forgets expectations, complaints and what was seen.
    void Reset();

 private:
    void Run();
    void LookAround();
    void ForgetClosedWindows();
    void Meet(HWND dialog);
    // The next expectation, when this dialog is the one that it means; otherwise a complaint.
    std::optional<Expectation> Take(const SeenDialog& seen);
    void PutAway(const SeenDialog& seen);
    void Complain(const std::string& sentence);

    const HWND watched_;
    mutable std::mutex mutex_;
    std::condition_variable stopping_;
    bool stop_ = false;
    std::deque<Expectation> expected_;
    std::vector<SeenDialog> seen_;
    std::vector<std::string> complaints_;
    std::map<HWND, int> attemptsToClose_;  // the robot's thread only
    std::thread thread_;                   // last: it uses all the others
};

}  // namespace bench
