#include "BenchStatistics.h"

#include <string>

#include "BenchControl.h"
#include "BenchTexts.h"
#include "KlimoraPluginsStatisticsWrapper.h"
#include "PluginStat.h"

namespace {

std::vector<bench::StatisticsEvent>& Events() {
    static std::vector<bench::StatisticsEvent> events;
    return events;
}

std::string Text(const wchar_t* text) {
    return text ? bench::Utf8(text) : std::string();
}

std::vector<std::string> Fields(const PluginStat& record) {
    return {record.pluginName,      record.pluginVersion,
            record.vendorName,      record.vendorId,
            record.productLineName, record.productLineKey,
            record.product,         record.productFamily,
            record.cadPlatform,     record.cadPlatformVersion,
            record.discipline,      record.deviceClass,
            record.extra,           record.action};
}

}  // namespace

struct KlimoraPluginsStatisticsWrapper::Implementation {
    std::string client;
    std::vector<size_t> kept;  // indices in Events() of unsent events
    bool added = false;        // an event was added since the last flush, even if a fault lost it
    bool closed = false;

    // Every operation calls this first: after CloseStatistics only the destructor may follow.
    void CheckOpen(const char* operation) const {
        if (closed)
            bench::ReportViolation(std::string("Statistics: ") + operation + " was called after CloseStatistics.");
    }
};

KlimoraPluginsStatisticsWrapper::KlimoraPluginsStatisticsWrapper(int channel, const wchar_t* client, const wchar_t* key)
    : implementation_(new Implementation{Text(client), {}, false, false}) {
    const bench::Call call("KlimoraPluginsStatisticsWrapper::KlimoraPluginsStatisticsWrapper",
                           std::to_string(channel) + " " + Text(client) + " " + Text(key));
    if (implementation_->client.empty())
        bench::ReportViolation("Statistics: the object was made without the client's name.");
    if (Text(key).empty()) bench::ReportViolation("Statistics: the object was made without the client's key.");
    bench::TrackAcquire("statistics object", implementation_->client);
}

KlimoraPluginsStatisticsWrapper::~KlimoraPluginsStatisticsWrapper() {
    const bench::Call call("KlimoraPluginsStatisticsWrapper::~KlimoraPluginsStatisticsWrapper", "");
    if (!implementation_->closed)
        bench::ReportViolation("Statistics: the object was destroyed without CloseStatistics.");
    bench::TrackRelease("statistics object", implementation_->client);
    delete implementation_;
}

void KlimoraPluginsStatisticsWrapper::AddInsertStatistics(const wchar_t* event, PluginStat* record) {
    const std::vector<std::string> fields = record ? Fields(*record) : std::vector<std::string>();
    const bench::Call call("KlimoraPluginsStatisticsWrapper::AddInsertStatistics",
                           Text(event) + " " + bench::Join(fields, "|"));
    implementation_->CheckOpen("AddInsertStatistics");
    if (Text(event).empty())
        bench::ReportViolation("Statistics: AddInsertStatistics was called without an event name.");
    if (!record) bench::ReportViolation("Statistics: AddInsertStatistics was called without a record.");
    implementation_->added = true;
    if (call.fails()) return;  // the event is lost; the library reports no error
    implementation_->kept.push_back(Events().size());
    Events().push_back({Text(event), fields, false});
}

void KlimoraPluginsStatisticsWrapper::FlushStatistics() {
    const bench::Call call("KlimoraPluginsStatisticsWrapper::FlushStatistics", "");
    implementation_->CheckOpen("FlushStatistics");
    if (!implementation_->added)
        bench::ReportViolation("Statistics: FlushStatistics was called with no event to send.");
    implementation_->added = false;
    if (call.fails()) return;
    for (size_t place : implementation_->kept)
        if (place < Events().size()) Events()[place].sent = true;
    implementation_->kept.clear();
}

void KlimoraPluginsStatisticsWrapper::CloseStatistics() {
    const bench::Call call("KlimoraPluginsStatisticsWrapper::CloseStatistics", "");
    implementation_->CheckOpen("CloseStatistics");
    implementation_->closed = true;
}

namespace bench {

std::vector<StatisticsEvent> StatisticsEvents() {
    return Events();
}
void ClearStatisticsEvents() {
    Events().clear();
}

}  // namespace bench
