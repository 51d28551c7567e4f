// Ends the process with exit code 3 and a line of output when a step exceeds its time limit.
#pragma once

#include <windows.h>

#include <string>

namespace bench {

class Watchdog {
 public:
    Watchdog() = default;
    ~Watchdog() { Step({}, 0); }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // Ends the previous step and allows `seconds` for this one. An empty string means that there is no step.
    void Step(const std::string& whatIsAwaited, int seconds);

 private:
    static void CALLBACK EndProcess(void* watchdog, BOOLEAN);

    HANDLE timer_ = nullptr;
    std::string step_;
    int seconds_ = 0;
};

}  // namespace bench
