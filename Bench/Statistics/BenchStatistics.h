// Bench interface of the statistics fake: the events in order of arrival, each with its fourteen fields.
// docs/contracts/statistics.md states what is known and what is assumed about the real library. Calls out of order are
// reported as violations; a "statistics object" is outstanding until it is destroyed. An injected fault loses the event
// or leaves it unsent, without an error for the module.
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
    bool sent = false;                // FlushStatistics was called after it
};

BENCH_STATISTICS_API std::vector<StatisticsEvent> StatisticsEvents();
BENCH_STATISTICS_API void ClearStatisticsEvents();

}  // namespace bench
