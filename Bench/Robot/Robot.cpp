#include "Robot.h"

#include <chrono>
#include <iterator>

#include "DialogWindow.h"
#include "MessageMarker.h"

namespace bench {
namespace {

constexpr auto kLookAround = std::chrono::milliseconds(10);
constexpr DWORD kLoopBound = 2000;     // until a dialog's loop runs; after it the robot looks around again
constexpr DWORD kAnswerBound = 20000;  // until an answer is taken, with all the work that it sets off
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
        all.push_back("Expected, but it never came: " + expectation.name() + ".");
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
        LookAround();
        lock.lock();
        stopping_.wait_for(lock, kLookAround, [this] { return stop_; });
    }
}

void Robot::LookAround() {
    ForgetClosedWindows();
    for (HWND dialog : OpenDialogs()) {
        if (!HasControls(dialog)) continue;
        const auto attempts = attemptsToClose_.find(dialog);
        if (attempts != attemptsToClose_.end() && attempts->second >= kAttemptsToClose) continue;
        // Only the topmost: what lies under it may be gone once it is answered.
        Meet(dialog);
        return;
    }
}

// A handle may be given to another window later.
void Robot::ForgetClosedWindows() {
    for (auto entry = attemptsToClose_.begin(); entry != attemptsToClose_.end();)
        entry = IsWindow(entry->first) ? std::next(entry) : attemptsToClose_.erase(entry);
}

void Robot::Meet(HWND dialog) {
    if (WaitForMessageLoop(dialog, kLoopBound) != LoopState::kRunning || !CanBeOperated(dialog)) return;
    const SeenDialog seen = LookAt(dialog, watched_);
    const std::optional<Expectation> expectation = Take(seen);
    if (!expectation) {
        PutAway(seen);
    } else {
        for (const std::string& difference : expectation->Differences(seen))
            Complain(difference);
        for (const Expectation::Step& step : expectation->steps()) {
            const std::string trouble = step(seen);
            if (!trouble.empty()) Complain("At " + expectation->name() + " " + trouble + ".");
        }
    }
    if (WaitForMessageLoop(dialog, kAnswerBound) == LoopState::kBusy)
        Complain("The answer to " + seen.Describe() + " was not taken.");
}

std::optional<Expectation> Robot::Take(const SeenDialog& seen) {
    std::lock_guard<std::mutex> lock(mutex_);
    seen_.push_back(seen);
    if (expected_.empty()) {
        complaints_.push_back("Nothing was expected any more, but there came " + seen.Describe() + ".");
        return {};
    }
    if (!expected_.front().Meant(seen)) {
        complaints_.push_back("Expected was " + expected_.front().name() + ", but there came " + seen.Describe() + ".");
        return {};
    }
    Expectation expectation = expected_.front();
    expected_.pop_front();
    return expectation;
}

// Closes an unexpected dialog with the button that changes least.
void Robot::PutAway(const SeenDialog& seen) {
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
