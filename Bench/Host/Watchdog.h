// Ends the process with exit code 3 and one line when a step takes longer than its bound. The thread belongs to the
// object; the destructor joins it.
#pragma once

#include <memory>
#include <string>

namespace bench {

class Watchdog {
 public:
    Watchdog();
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    // The step before is over; this one may take `seconds`.
    void Step(const std::string& whatIsAwaited, int seconds);
    // Nothing is awaited.
    void Rest();

 private:
    struct Implementation;
    std::unique_ptr<Implementation> implementation_;
};

}  // namespace bench
