// The fake statistics library: the required order of calls.
#include "BenchStatistics.h"
#include "FakeFixture.h"
#include "KlimoraPluginsStatisticsWrapper.h"
#include "PluginStat.h"

namespace {

using Wrapper = KlimoraPluginsStatisticsWrapper;

// The memory layout of a record: fourteen narrow strings.
std::string fields[14];
static_assert(sizeof fields == sizeof(PluginStat));
PluginStat* const record = reinterpret_cast<PluginStat*>(fields);

using StatisticsLibrary = FakeTest;

TEST_F(StatisticsLibrary, ReportsCallsInTheWrongOrder) {
    const struct {
        void (*work)(Wrapper&);
        std::vector<std::string> violations;
    } cases[] = {
        {[](Wrapper& w) { w.AddInsertStatistics(L"E", record), w.FlushStatistics(), w.CloseStatistics(); }, {}},
        {[](Wrapper&) {}, {"Statistics: the object was destroyed without CloseStatistics."}},
        {[](Wrapper& w) { w.FlushStatistics(), w.CloseStatistics(); },
         {"Statistics: FlushStatistics was called with no event to send."}},
        {[](Wrapper& w) {
             w.AddInsertStatistics(L"E", record), w.FlushStatistics(), w.FlushStatistics(), w.CloseStatistics();
         },
         {"Statistics: FlushStatistics was called with no event to send."}},
        {[](Wrapper& w) { w.CloseStatistics(), w.AddInsertStatistics(L"E", record); },
         {"Statistics: AddInsertStatistics was called after CloseStatistics."}},
        {[](Wrapper& w) { w.CloseStatistics(), w.CloseStatistics(); },
         {"Statistics: CloseStatistics was called after CloseStatistics."}},
        {[](Wrapper& w) {
             w.AddInsertStatistics(L"", nullptr), w.CloseStatistics();
             Wrapper(3, L"", nullptr).CloseStatistics();
         },
         {"Statistics: AddInsertStatistics was called without an event name.",
          "Statistics: AddInsertStatistics was called without a record.",
          "Statistics: the object was made without the client's name.",
          "Statistics: the object was made without the client's key."}},
    };
    for (const auto& c : cases) {
        {
            Wrapper wrapper(3, L"client", L"key");
            c.work(wrapper);
            EXPECT_EQ(bench::OutstandingResources(), std::vector<std::string>{"statistics object client"});
        }
        EXPECT_EQ(TakeViolations(), c.violations);
    }
}

}  // namespace
