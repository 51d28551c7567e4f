// The statistics library: one event on its way, and the order of calls that it insists on.
#include <gtest/gtest.h>

#include <memory>

#include "BenchControl.h"
#include "BenchStatistics.h"
#include "KlimoraPluginsStatisticsWrapper.h"
#include "PluginStat.h"

namespace {

using Wrapper = KlimoraPluginsStatisticsWrapper;

// A record as it lies in memory: fourteen narrow strings and nothing else.
struct Record {
    std::string fields[14] = {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "", "14"};
    PluginStat* Get() { return reinterpret_cast<PluginStat*>(this); }
};
static_assert(sizeof(Record) == sizeof(PluginStat));

TEST(StatisticsLibrary, AnEventArrivesWithItsFieldsInOrderAndIsSentByFlush) {
    bench::ResetBench();
    bench::ClearStatisticsEvents();
    Record record;
    bench::FailCalls({"KlimoraPluginsStatisticsWrapper::FlushStatistics", 2, {}});
    auto wrapper = std::make_unique<Wrapper>(3, L"client", L"key");
    for (int i = 0; i < 2; ++i) {
        wrapper->AddInsertStatistics(L"EVENT", record.Get());
        EXPECT_FALSE(bench::StatisticsEvents().at(i).sent);
        wrapper->FlushStatistics();
    }
    wrapper->CloseStatistics();
    EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{"statistics object client"});
    wrapper.reset();
    const std::vector<bench::StatisticsEvent> events = bench::StatisticsEvents();
    EXPECT_TRUE(events[0].sent);
    EXPECT_FALSE(events[1].sent) << "a planned failure sends nothing";
    EXPECT_EQ(events[0].name, "EVENT");
    EXPECT_EQ(events[0].fields, std::vector<std::string>(std::begin(record.fields), std::end(record.fields)));
    EXPECT_TRUE(bench::Accusations().empty() && bench::BenchBalance().empty());
    bench::ResetBench();
}

TEST(StatisticsLibrary, TheWrongOrderIsAccused) {
    Record record;
    const struct {
        void (*work)(Wrapper&, PluginStat*);
        std::vector<std::string> accusations;
    } cases[] = {
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
        bench::ResetBench();
        {
            Wrapper wrapper(3, L"client", L"key");
            c.work(wrapper, record.Get());
        }
        EXPECT_EQ(bench::Accusations(), c.accusations);
    }
    bench::ResetBench();
}

}  // namespace
