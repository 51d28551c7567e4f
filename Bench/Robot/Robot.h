// Simulates the user at dialogs: a thread that finds the dialog windows and message boxes of its own process, records
// their contents and answers them by a script. The robot owns its thread; the destructor joins it. Dialogs must appear
// as expected, in order: an unexpected one is recorded as a complaint and closed; an expectation without a dialog is a
// complaint too. A dialog is operated only while its own message loop runs, and an answer counts as given when that
// loop has taken it, so results do not depend on timing. A dialog that stays open after its answer must meet the next
// expectation. Dialogs without controls are ignored.
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
    // `watched` is a window whose enabled state is recorded with every dialog (an application's main window), or null.
    explicit Robot(HWND watched = nullptr);
    ~Robot();
    Robot(const Robot&) = delete;
    Robot& operator=(const Robot&) = delete;

    // Adds an expectation to the end of the queue. Thread-safe.
    void Expect(const Expectation& expectation);

    // Returns the dialogs answered so far; one that stayed open appears once per answer.
    std::vector<SeenDialog> Seen() const;
    // Returns the complaints so far and a sentence for every unmet expectation. Empty after a good run.
    std::vector<std::string> Complaints() const;
    // Clears expectations, complaints and recorded dialogs.
    void Reset();

 private:
    void Run();
    void CheckDialogs();
    void ForgetClosedWindows();
    void AnswerDialog(HWND dialog);
    // Takes the next expectation if it matches this dialog; otherwise records a complaint.
    std::optional<Expectation> Take(const SeenDialog& seen);
    void CloseUnexpected(const SeenDialog& seen);
    void Complain(const std::string& sentence);

    const HWND watched_;
    mutable std::mutex mutex_;
    std::condition_variable stopping_;
    bool stop_ = false;
    std::deque<Expectation> expected_;
    std::vector<SeenDialog> seen_;
    std::vector<std::string> complaints_;
    std::map<HWND, int> attemptsToClose_;  // used by the robot's thread only
    std::thread thread_;                   // declared last: uses the members above
};

}  // namespace bench
