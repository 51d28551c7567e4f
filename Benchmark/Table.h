// The benchmark's table: what the module needs against what the same work needs without it. Ours and the peer take
// turns in one process, one warm-up and then kRounds rounds; a round is the fastest of a few turns each where they are
// short. What counts is the median of the rounds' ratios, which the load of the machine hardly moves. A row beyond its
// limit is measured once more, and the second time counts. Where the middle half of the peer's rounds lies further
// apart than half of their median, the machine gives no answer; such a row is told and counts as neither. Counts have
// no peer and are taken once. A limit is the largest of three medians plus a third, so that only a real regression
// breaks it; work for many may take 1.3 times as long for each as work for few; counts are exact.
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

// Calls of `operator new` by this program so far.
extern long long allocations;

// Does a piece of work and gives the milliseconds that it took.
using Run = std::function<double()>;

// One that is only this work, done so many times; gives the time of one.
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

    // Rows without `wanted` in their name are left out.
    explicit Table(const std::string& wanted) : wanted_(wanted) {}

    // At most `limit` times as long as the peer.
    void Ratio(const std::string& name, double limit, const Run& ours, const Run& peer) {
        Compare(name, limit, "", ours, peer);
    }
    // At most `limit` milliseconds longer than the peer.
    void Delay(const std::string& name, double limit, const Run& ours, const Run& peer) {
        Compare(name, limit, " ms", ours, peer);
    }
    void AtMost(const std::string& name, long long limit, long long ours);
    // Whether both sides of the row that was measured last came to the same; throws when they did not.
    void Same(const std::function<bool()>& same) const;

    // 0 all within their limits, 1 one is not, 2 one could not be measured. Prints it in words.
    int Conclude() const;

 private:
    // With a unit it is the difference that counts, else the ratio.
    void Compare(const std::string& name, double limit, const char* unit, const Run& ours, const Run& peer);
    void Print(const std::string& name, const std::string& ours, const std::string& peer, const std::string& ratio,
               const std::string& limit, const std::string& remark);

    // Whether the row is wanted; it is the last one then.
    bool Wants(const std::string& name);

    const std::string wanted_;
    std::string last_;  // empty when it was left out
    int rows_ = 0;
    int broken_ = 0;
    int unmeasured_ = 0;
};
