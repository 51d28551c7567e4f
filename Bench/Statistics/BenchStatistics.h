// The bench's side of the statistics stand-in: the events as they arrived, in order, each with its fourteen fields.
// What of this is known of the real library, and what is assumed, stands in docs/contracts/statistics.md. The order of
// calls is watched: what is out of order is accused, and an object is owed ("statistics object") until it is destroyed.
// A planned failure loses the event, or leaves it unsent, without a sign to the module.
#pragma once

#include <string>
#include <vector>

#ifdef BENCH_STATISTICS_BUILD
#define BENCH_STATISTICS_API __declspec(dllexport)
#else
#define BENCH_STATISTICS_API __declspec(dllimport)
#endif

namespace bench {

struct StatisticsEvent {
    std::string name;
    std::vector<std::string> fields;  // in the order of PluginStat
    bool sent = false;                // FlushStatistics came after it
};

BENCH_STATISTICS_API std::vector<StatisticsEvent> StatisticsEvents();
BENCH_STATISTICS_API void ClearStatisticsEvents();

}  // namespace bench
