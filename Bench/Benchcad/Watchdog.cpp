#include "Watchdog.h"

#include <cstdio>
#include <stdexcept>

namespace bench {
namespace {

constexpr UINT kHung = 3;

}  // namespace

void Watchdog::Step(const std::string& whatIsAwaited, int seconds) {
    if (timer_) DeleteTimerQueueTimer(nullptr, timer_, INVALID_HANDLE_VALUE);
    timer_ = nullptr;
    step_ = whatIsAwaited;
    seconds_ = seconds;
    if (step_.empty()) return;
    const DWORD milliseconds = static_cast<DWORD>(seconds) * 1000;
    if (!CreateTimerQueueTimer(&timer_, nullptr, EndProcess, this, milliseconds, 0, WT_EXECUTEONLYONCE))
        throw std::runtime_error("The watchdog's timer was not created.");
}

void CALLBACK Watchdog::EndProcess(void* watchdog, BOOLEAN) {
    const Watchdog& self = *static_cast<Watchdog*>(watchdog);
    std::printf("\nbench: timed out after %d seconds waiting for %s.\n", self.seconds_, self.step_.c_str());
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), kHung);
}

}  // namespace bench
