// Ends the process with exit code 3 and one line when a step takes longer than its bound. The thread belongs to the
// object; the destructor joins it.
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

    // The step before is over; this one may take `seconds`. An empty text: nothing is awaited.
    void Step(const std::string& whatIsAwaited, int seconds);

 private:
    void Watch();

    std::mutex mutex_;
    std::condition_variable changed_;
    std::string step_;
    int seconds_ = 0;
    unsigned generation_ = 0;
    bool stop_ = false;
    std::thread thread_;  // last: it uses all the others
};

}  // namespace bench
