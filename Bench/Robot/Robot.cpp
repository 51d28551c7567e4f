#include "Robot.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>

#include "DialogWindow.h"
#include "MessageMarker.h"
#include "WindowPicture.h"

namespace bench {
namespace {

constexpr auto kLookAround = std::chrono::milliseconds(10);
constexpr DWORD kLoopBound = 2000;     // until a dialog's loop runs; after it the robot looks around again
constexpr DWORD kAnswerBound = 20000;  // until an answer is taken, with all the work that it sets off
constexpr int kAttemptsToClose = 3;

}  // namespace

class Robot::Implementation {
 public:
    explicit Implementation(HWND watched) : watched_(watched), thread_([this] { Run(); }) {}

    ~Implementation() {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
        }
        changed_.notify_all();
        thread_.join();
    }

    void Expect(const Expectation& expectation) {
        std::lock_guard<std::mutex> lock(mutex_);
        expected_.push_back(expectation);
    }

    bool WaitUntilMet(DWORD milliseconds) {
        std::unique_lock<std::mutex> lock(mutex_);
        return changed_.wait_for(lock, std::chrono::milliseconds(milliseconds),
                                 [this] { return expected_.empty() && !answering_; });
    }

    std::vector<SeenDialog> Seen() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return seen_;
    }

    std::vector<SeenDialog> Waiting() const {
        std::lock_guard<std::mutex> lock(mutex_);
        return waiting_;
    }

    std::vector<std::string> Complaints() const {
        std::lock_guard<std::mutex> lock(mutex_);
        std::vector<std::string> all = complaints_;
        for (const Expectation& expectation : expected_)
            all.push_back("Expected, but it never came: " + expectation.Describe() + ".");
        return all;
    }

    void Reset() {
        std::lock_guard<std::mutex> lock(mutex_);
        expected_.clear();
        complaints_.clear();
        seen_.clear();
        waiting_.clear();
        knownWaiting_.clear();
    }

 private:
    void Run() {
        std::unique_lock<std::mutex> lock(mutex_);
        while (!stop_) {
            lock.unlock();
            LookAround();
            lock.lock();
            changed_.wait_for(lock, kLookAround, [this] { return stop_; });
        }
    }

    void LookAround() {
        ForgetClosedWindows();
        for (HWND dialog : OpenDialogs()) {
            if (!HasControls(dialog)) {
                NoteWaiting(dialog);
            } else if (!attemptsToClose_.count(dialog) || attemptsToClose_.at(dialog) < kAttemptsToClose) {
                // Only the topmost: what lies under it may be gone once it is answered.
                Meet(dialog);
                return;
            }
        }
    }

    // A handle may be given to another window later.
    void ForgetClosedWindows() {
        for (auto entry = attemptsToClose_.begin(); entry != attemptsToClose_.end();)
            entry = IsWindow(entry->first) ? std::next(entry) : attemptsToClose_.erase(entry);
        std::lock_guard<std::mutex> lock(mutex_);
        for (auto window = knownWaiting_.begin(); window != knownWaiting_.end();)
            window = IsWindow(*window) ? std::next(window) : knownWaiting_.erase(window);
    }

    void NoteWaiting(HWND dialog) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            if (!knownWaiting_.insert(dialog).second) return;
        }
        const SeenDialog seen = LookAt(dialog, watched_);
        std::lock_guard<std::mutex> lock(mutex_);
        waiting_.push_back(seen);
    }

    void Meet(HWND dialog) {
        if (WaitForMessageLoop(dialog, kLoopBound) != LoopState::kRunning || !CanBeOperated(dialog)) return;
        const SeenDialog seen = LookAt(dialog, watched_);
        const std::optional<Expectation> expectation = Take(seen);
        if (!expectation) {
            PutAway(seen);
        } else {
            for (const std::string& difference : expectation->Differences(seen))
                Complain(difference);
            for (const DialogStep& step : expectation->steps()) {
                const std::string trouble = std::visit([&](const auto& what) { return Do(seen, what); }, step);
                if (!trouble.empty()) Complain("At " + expectation->Describe() + " " + trouble + ".");
            }
        }
        if (WaitForMessageLoop(dialog, kAnswerBound) == LoopState::kBusy)
            Complain("The answer to " + seen.Describe() + " was not taken.");
        std::lock_guard<std::mutex> lock(mutex_);
        answering_ = false;
        changed_.notify_all();
    }

    // The next expectation, when this dialog is the one that it means; otherwise a complaint.
    std::optional<Expectation> Take(const SeenDialog& seen) {
        std::lock_guard<std::mutex> lock(mutex_);
        answering_ = true;
        seen_.push_back(seen);
        if (expected_.empty()) {
            complaints_.push_back("Nothing was expected any more, but there came " + seen.Describe() + ".");
            return {};
        }
        if (!expected_.front().Meant(seen)) {
            complaints_.push_back("Expected was " + expected_.front().Describe() + ", but there came " +
                                  seen.Describe() + ".");
            return {};
        }
        Expectation expectation = expected_.front();
        expected_.pop_front();
        return expectation;
    }

    // Closes an unexpected dialog with the button that changes least.
    void PutAway(const SeenDialog& seen) {
        ++attemptsToClose_[seen.window];
        for (int button : {IDCANCEL, IDNO, IDOK, IDABORT})
            if (PressButtonOf(seen.window, button).empty()) return;
        PostMessageA(seen.window, WM_CLOSE, 0, 0);
    }

    void Complain(const std::string& sentence) {
        std::lock_guard<std::mutex> lock(mutex_);
        complaints_.push_back(sentence);
    }

    static std::string Do(const SeenDialog& seen, const TypeText& step) {
        return TypeInto(seen.window, step.control, step.text);
    }
    static std::string Do(const SeenDialog& seen, const PressButton& step) {
        return PressButtonOf(seen.window, step.id);
    }
    static std::string Do(const SeenDialog& seen, const PressNamed& step) {
        const int id = ButtonNamed(seen, step.text);
        return id ? PressButtonOf(seen.window, id) : "there is no button \"" + step.text + "\"";
    }
    static std::string Do(const SeenDialog& seen, const PressKey& step) { return PressKeyIn(seen.window, step.key); }
    static std::string Do(const SeenDialog& seen, const CloseWindowByFrame&) { return CloseByFrame(seen.window); }
    static std::string Do(const SeenDialog& seen, const TakePicture& step) {
        return SavePictureOf(seen.window, step.file);
    }
    static std::string Do(const SeenDialog& seen, const Observe& step) {
        step.observer(seen);
        return {};
    }

    const HWND watched_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    bool stop_ = false;
    bool answering_ = false;
    std::deque<Expectation> expected_;
    std::vector<SeenDialog> seen_;
    std::vector<SeenDialog> waiting_;
    std::set<HWND> knownWaiting_;
    std::vector<std::string> complaints_;
    std::map<HWND, int> attemptsToClose_;  // the robot's thread only
    std::thread thread_;                   // last: it uses all the others
};

Robot::Robot(HWND watched) : implementation_(std::make_unique<Implementation>(watched)) {}
Robot::~Robot() = default;

void Robot::Expect(const Expectation& expectation) {
    implementation_->Expect(expectation);
}
bool Robot::WaitUntilMet(DWORD milliseconds) {
    return implementation_->WaitUntilMet(milliseconds);
}
std::vector<SeenDialog> Robot::Seen() const {
    return implementation_->Seen();
}
std::vector<SeenDialog> Robot::Waiting() const {
    return implementation_->Waiting();
}
std::vector<std::string> Robot::Complaints() const {
    return implementation_->Complaints();
}
void Robot::Reset() {
    implementation_->Reset();
}

}  // namespace bench
