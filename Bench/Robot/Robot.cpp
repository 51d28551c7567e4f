#include "Robot.h"

#include <chrono>
#include <iterator>

#include "DialogWindow.h"

namespace bench {
namespace {

constexpr auto kLookAround = std::chrono::milliseconds(10);
constexpr DWORD kLoopBound = 2000;     // for a dialog's loop to run; then the robot checks all dialogs again
constexpr DWORD kAnswerBound = 20000;  // for an answer to be taken, including the work that it starts
constexpr int kAttemptsToClose = 3;

}  // namespace

Robot::Robot(HWND watched) : watched_(watched), thread_([this] { Run(); }) {}

Robot::~Robot() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stop_ = true;
    }
    stopping_.notify_all();
    thread_.join();
}

void Robot::Expect(const Expectation& expectation) {
    std::lock_guard<std::mutex> lock(mutex_);
    expected_.push_back(expectation);
}

std::vector<SeenDialog> Robot::Seen() const {
    std::lock_guard<std::mutex> lock(mutex_);
    return seen_;
}

std::vector<std::string> Robot::Complaints() const {
    std::lock_guard<std::mutex> lock(mutex_);
    std::vector<std::string> all = complaints_;
    for (const Expectation& expectation : expected_)
        all.push_back("Expected, but never shown: " + expectation.name() + ".");
    return all;
}

void Robot::Reset() {
    std::lock_guard<std::mutex> lock(mutex_);
    expected_.clear();
    complaints_.clear();
    seen_.clear();
}

void Robot::Run() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stop_) {
        lock.unlock();
        CheckDialogs();
        lock.lock();
        stopping_.wait_for(lock, kLookAround, [this] { return stop_; });
    }
}

void Robot::CheckDialogs() {
    ForgetClosedWindows();
    for (HWND dialog : OpenDialogs()) {
        if (!HasControls(dialog)) continue;
        const auto attempts = attemptsToClose_.find(dialog);
        if (attempts != attemptsToClose_.end() && attempts->second >= kAttemptsToClose) continue;
        // Only the topmost, because answering it may close those below.
        AnswerDialog(dialog);
        return;
    }
}

// Handles of closed windows may be reused.
void Robot::ForgetClosedWindows() {
    for (auto entry = attemptsToClose_.begin(); entry != attemptsToClose_.end();)
        entry = IsWindow(entry->first) ? std::next(entry) : attemptsToClose_.erase(entry);
}

void Robot::AnswerDialog(HWND dialog) {
    if (WaitForMessageLoop(dialog, kLoopBound) != LoopState::kRunning || !CanBeOperated(dialog)) return;
    const SeenDialog seen = LookAt(dialog, watched_);
    const std::optional<Expectation> expectation = Take(seen);
    if (!expectation) {
        CloseUnexpected(seen);
    } else {
        for (const std::string& difference : expectation->Differences(seen))
            Complain(difference);
        for (const Expectation::Step& step : expectation->steps()) {
            const std::string problem = step(seen);
            if (!problem.empty()) Complain("At " + expectation->name() + " " + problem + ".");
        }
    }
    if (WaitForMessageLoop(dialog, kAnswerBound) == LoopState::kBusy)
        Complain("The answer to " + seen.Describe() + " was not taken.");
}

std::optional<Expectation> Robot::Take(const SeenDialog& seen) {
    std::lock_guard<std::mutex> lock(mutex_);
    seen_.push_back(seen);
    if (expected_.empty()) {
        complaints_.push_back("No further dialog was expected, but found " + seen.Describe() + ".");
        return {};
    }
    if (!expected_.front().Matches(seen)) {
        complaints_.push_back("Expected " + expected_.front().name() + ", but found " + seen.Describe() + ".");
        return {};
    }
    Expectation expectation = expected_.front();
    expected_.pop_front();
    return expectation;
}

// Closes an unexpected dialog with the button that has the least effect.
void Robot::CloseUnexpected(const SeenDialog& seen) {
    ++attemptsToClose_[seen.window];
    for (int button : {IDCANCEL, IDNO, IDOK, IDABORT})
        if (PressButtonOf(seen.window, button).empty()) return;
    PostMessageA(seen.window, WM_CLOSE, 0, 0);
}

void Robot::Complain(const std::string& sentence) {
    std::lock_guard<std::mutex> lock(mutex_);
    complaints_.push_back(sentence);
}

}  // namespace bench
