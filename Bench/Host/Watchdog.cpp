#include "Watchdog.h"

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

namespace bench {
namespace {

constexpr UINT kHung = 3;

}  // namespace

struct Watchdog::Implementation {
    std::mutex mutex;
    std::condition_variable changed;
    std::string step;
    int seconds = 0;
    unsigned generation = 0;
    bool stop = false;
    std::thread thread{[this] { Run(); }};

    void Run() {
        std::unique_lock<std::mutex> lock(mutex);
        while (!stop) {
            const unsigned seen = generation;
            const auto moved = [&] { return stop || generation != seen; };
            if (step.empty()) {
                changed.wait(lock, moved);
            } else if (!changed.wait_for(lock, std::chrono::seconds(seconds), moved)) {
                std::printf("\nbenchcad: waited %d seconds for %s, in vain.\n", seconds, step.c_str());
                std::fflush(stdout);
                TerminateProcess(GetCurrentProcess(), kHung);
            }
        }
    }

    void Set(const std::string& text, int bound) {
        {
            std::lock_guard<std::mutex> lock(mutex);
            step = text;
            seconds = bound;
            ++generation;
        }
        changed.notify_all();
    }
};

Watchdog::Watchdog() : implementation_(std::make_unique<Implementation>()) {}

Watchdog::~Watchdog() {
    {
        std::lock_guard<std::mutex> lock(implementation_->mutex);
        implementation_->stop = true;
    }
    implementation_->changed.notify_all();
    implementation_->thread.join();
}

void Watchdog::Step(const std::string& whatIsAwaited, int seconds) {
    implementation_->Set(whatIsAwaited, seconds);
}
void Watchdog::Rest() {
    implementation_->Set({}, 0);
}

}  // namespace bench
