// The benchmark's table: the time of the module's work against a peer, the same work without the module. Both take
// turns in one process: one warm-up round and kRounds measured ones; a round is the fastest of several short turns
// each. The figure is the median of the rounds' ratios, which hardly depends on the machine's load. A row beyond its
// limit is measured once more, and the second result counts. If the peer's interquartile range exceeds half of its
// median, the row is reported as not measurable. Counts have no peer and are taken once. A limit is the largest of
// three medians plus a third, so that only a real regression exceeds it; the time per item for many items may be 1.3
// times that for few; counts are exact.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

inline double Milliseconds() {
    LARGE_INTEGER now, frequency;
    QueryPerformanceCounter(&now);
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The program's calls of `operator new` so far.
extern long long allocations;

// Runs some work and returns its time in milliseconds.
using Run = std::function<double()>;

// Returns a Run that does the work `times` times and returns the time of one.
template <class Work>
Run Timed(Work work, int times = 1) {
    return [=] {
        const double start = Milliseconds();
        for (int i = 0; i < times; ++i)
            work();
        return (Milliseconds() - start) / times;
    };
}

class Table {
 public:
    static constexpr int kRounds = 9;

    // Skips rows whose name does not contain `wanted`.
    explicit Table(const std::string& wanted) : wanted_(wanted) {}

    // Requires at most `limit` times the peer's time.
    void Ratio(const std::string& name, double limit, const Run& ours, const Run& peer) {
        Compare(name, limit, "", ours, peer);
    }
    // Requires at most `limit` milliseconds more than the peer.
    void Delay(const std::string& name, double limit, const Run& ours, const Run& peer) {
        Compare(name, limit, " ms", ours, peer);
    }
    void AtMost(const std::string& name, long long limit, long long ours);
    // Checks that both sides of the last measured row had the same result; throws if not.
    void Same(const std::function<bool()>& same) const;

    // Prints a summary. Returns 0 when all rows are within their limits, 1 when one is not, 2 when one could not be
    // measured.
    int Conclude() const;

 private:
    // Compares the difference if there is a unit, else the ratio.
    void Compare(const std::string& name, double limit, const char* unit, const Run& ours, const Run& peer);
    void Print(const std::string& name, const std::string& ours, const std::string& peer, const std::string& ratio,
               const std::string& limit, const std::string& remark);

    // Whether the row is selected; if so, it becomes the last row.
    bool Wants(const std::string& name);

    const std::string wanted_;
    std::string last_;  // empty when it was skipped
    int rows_ = 0;
    int broken_ = 0;
    int unmeasured_ = 0;
};
