#include "Watchdog.h"

#include <windows.h>

#include <chrono>
#include <cstdio>

namespace bench {
namespace {

constexpr UINT kHung = 3;

}  // namespace

Watchdog::Watchdog() : thread_([this] { Watch(); }) {}

Watchdog::~Watchdog() {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        stop_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void Watchdog::Watch() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stop_) {
        const unsigned seen = generation_;
        const auto moved = [&] { return stop_ || generation_ != seen; };
        if (step_.empty()) {
            changed_.wait(lock, moved);
        } else if (!changed_.wait_for(lock, std::chrono::seconds(seconds_), moved)) {
            std::printf("\nbench: timed out after %d seconds waiting for %s.\n", seconds_, step_.c_str());
            std::fflush(stdout);
            TerminateProcess(GetCurrentProcess(), kHung);
        }
    }
}

void Watchdog::Step(const std::string& whatIsAwaited, int seconds) {
    {
        std::lock_guard<std::mutex> lock(mutex_);
        step_ = whatIsAwaited;
        seconds_ = seconds;
        ++generation_;
    }
    changed_.notify_all();
}

}  // namespace bench
