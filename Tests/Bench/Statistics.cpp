// The fake statistics library: the required order of calls.
#include "BenchStatistics.h"
#include "FakeFixture.h"
#include "KlimoraPluginsStatisticsWrapper.h"
#include "PluginStat.h"

namespace {

using Wrapper = KlimoraPluginsStatisticsWrapper;

// The memory layout of a record: fourteen narrow strings.
struct Record {
    std::string fields[14] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "", "14"};
    PluginStat* Get() { return reinterpret_cast<PluginStat*>(this); }
};
static_assert(sizeof(Record) == sizeof(PluginStat));

using StatisticsLibrary = FakeTest;

TEST_F(StatisticsLibrary, ReportsCallsInTheWrongOrder) {
    Record record;
    const struct {
        void (*work)(Wrapper&, PluginStat*);
        std::vector<std::string> violations;
    } cases[] = {
        {[](Wrapper& w, PluginStat* r) { w.AddInsertStatistics(L"E", r), w.FlushStatistics(), w.CloseStatistics(); },
         {}},
        {[](Wrapper&, PluginStat*) {}, {"Statistics: the object was destroyed without CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) { w.FlushStatistics(), w.CloseStatistics(); },
         {"Statistics: FlushStatistics was called with no event to send."}},
        {[](Wrapper& w, PluginStat* r) {
             w.AddInsertStatistics(L"E", r), w.FlushStatistics(), w.FlushStatistics(), w.CloseStatistics();
         },
         {"Statistics: FlushStatistics was called with no event to send."}},
        {[](Wrapper& w, PluginStat* r) { w.CloseStatistics(), w.AddInsertStatistics(L"E", r); },
         {"Statistics: AddInsertStatistics was called after CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) { w.CloseStatistics(), w.CloseStatistics(); },
         {"Statistics: CloseStatistics was called after CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) {
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
            c.work(wrapper, record.Get());
            EXPECT_EQ(bench::OutstandingResources(), std::vector<std::string>{"statistics object client"});
        }
        EXPECT_EQ(TakeViolations(), c.violations);
    }
}

}  // namespace
