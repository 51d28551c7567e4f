// The statistics stand-in: events as they arrive, what the journal says, and the order that it insists on.
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
    std::string fields[14];
    PluginStat* Get() { return reinterpret_cast<PluginStat*>(this); }
};
static_assert(sizeof(Record) == sizeof(PluginStat));

Record Numbered() {
    Record record;
    for (int i = 0; i < 14; ++i)
        record.fields[i] = "f" + std::to_string(i + 1);
    record.fields[12].clear();
    return record;
}

class StatisticsLibraryTest : public testing::Test {
 protected:
    void SetUp() override {
        bench::ResetBench();
        bench::ClearStatisticsEvents();
    }
    void TearDown() override { bench::ResetBench(); }
};

TEST_F(StatisticsLibraryTest, AnEventArrivesWithItsFieldsInOrderAndIsSentByFlush) {
    Record record = Numbered();
    {
        Wrapper wrapper(3, L"client", L"key");
        EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{"statistics object client"});
        wrapper.AddInsertStatistics(L"EVENT", record.Get());
        EXPECT_FALSE(bench::StatisticsEvents().at(0).sent);
        wrapper.FlushStatistics();
        wrapper.CloseStatistics();
    }
    ASSERT_EQ(bench::StatisticsEvents().size(), 1u);
    const bench::StatisticsEvent event = bench::StatisticsEvents()[0];
    EXPECT_TRUE(event.sent);
    EXPECT_EQ(event.name, "EVENT");
    EXPECT_EQ(event.fields, std::vector<std::string>(std::begin(record.fields), std::end(record.fields)));
    EXPECT_EQ(
        bench::Journal(),
        (std::vector<std::string>{
            "KlimoraPluginsStatisticsWrapper::KlimoraPluginsStatisticsWrapper 3 client key",
            "KlimoraPluginsStatisticsWrapper::AddInsertStatistics EVENT f1|f2|f3|f4|f5|f6|f7|f8|f9|f10|f11|f12||f14",
            "KlimoraPluginsStatisticsWrapper::FlushStatistics", "KlimoraPluginsStatisticsWrapper::CloseStatistics",
            "KlimoraPluginsStatisticsWrapper::~KlimoraPluginsStatisticsWrapper"}));
    EXPECT_TRUE(bench::BenchBalance().empty());
    EXPECT_TRUE(bench::Accusations().empty());
}

TEST_F(StatisticsLibraryTest, TheWrongOrderIsAccused) {
    Record record = Numbered();
    const struct {
        void (*work)(Wrapper&, PluginStat*);
        std::vector<std::string> accusations;
    } cases[] = {
        {[](Wrapper& w, PluginStat*) { w.CloseStatistics(); }, {}},
        {[](Wrapper&, PluginStat*) {}, {"Statistics: the object was destroyed without CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) { w.FlushStatistics(), w.CloseStatistics(); },
         {"Statistics: FlushStatistics was called with no event to send."}},
        {[](Wrapper& w, PluginStat* r) { w.CloseStatistics(), w.AddInsertStatistics(L"E", r); },
         {"Statistics: AddInsertStatistics was called after CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) { w.CloseStatistics(), w.CloseStatistics(); },
         {"Statistics: CloseStatistics was called after CloseStatistics."}},
        {[](Wrapper& w, PluginStat*) { w.AddInsertStatistics(L"", nullptr), w.CloseStatistics(); },
         {"Statistics: AddInsertStatistics was called without an event name.",
          "Statistics: AddInsertStatistics was called without a record."}},
    };
    for (const auto& c : cases) {
        bench::ClearAccusations();
        {
            Wrapper wrapper(3, L"client", L"key");
            c.work(wrapper, record.Get());
        }
        EXPECT_EQ(bench::Accusations(), c.accusations);
    }
    bench::ClearAccusations();
    std::make_unique<Wrapper>(3, L"", nullptr)->CloseStatistics();
    EXPECT_EQ(bench::Accusations(),
              (std::vector<std::string>{"Statistics: the object was made without the client's name.",
                                        "Statistics: the object was made without the client's key."}));
}

TEST_F(StatisticsLibraryTest, APlannedFailureLosesTheEventOrLeavesItUnsent) {
    Record record = Numbered();
    bench::FailCall("KlimoraPluginsStatisticsWrapper::AddInsertStatistics", 1);
    bench::FailCall("KlimoraPluginsStatisticsWrapper::FlushStatistics", 2);
    Wrapper wrapper(3, L"client", L"key");
    for (int i = 0; i < 2; ++i) {
        wrapper.AddInsertStatistics(L"EVENT", record.Get());
        wrapper.FlushStatistics();
    }
    wrapper.CloseStatistics();
    ASSERT_EQ(bench::StatisticsEvents().size(), 1u);
    EXPECT_FALSE(bench::StatisticsEvents()[0].sent);
    EXPECT_TRUE(bench::Accusations().empty());
}

TEST_F(StatisticsLibraryTest, AnObjectThatIsNeverDestroyedStaysInTheBalance) {
    auto* leaked = new Wrapper(3, L"client", L"key");
    leaked->CloseStatistics();
    EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{"statistics object client"});
    delete leaked;
}

}  // namespace
