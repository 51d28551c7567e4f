// Ends the process with exit code 3 and a line of output when a step exceeds its time limit. The object owns its
// thread; the destructor joins it.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace bench {

class Watchdog {
 public:
    Watchdog();
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // Ends the previous step and allows `seconds` for this one. An empty string means that there is no step.
    void Step(const std::string& whatIsAwaited, int seconds);

 private:
    void Watch();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::string step_;
    int seconds_ = 0;
    unsigned generation_ = 0;
    bool stop_ = false;
    std::thread thread_;  // declared last: uses the members above
};

}  // namespace bench
