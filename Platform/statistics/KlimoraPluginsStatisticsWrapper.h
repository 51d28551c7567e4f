// The part of the usage-statistics library Klimora.Plugins.Statistics.Sorvik.dll that the module uses. The caller keeps
// ownership of a record.
#pragma once

#ifndef KLIMORA_STATISTICS_API
#define KLIMORA_STATISTICS_API __declspec(dllimport)
#endif

class PluginStat;

class KLIMORA_STATISTICS_API KlimoraPluginsStatisticsWrapper {
 public:
    KlimoraPluginsStatisticsWrapper(int channel, const wchar_t* client, const wchar_t* key);
    ~KlimoraPluginsStatisticsWrapper();
    KlimoraPluginsStatisticsWrapper(const KlimoraPluginsStatisticsWrapper&) = delete;
    KlimoraPluginsStatisticsWrapper& operator=(const KlimoraPluginsStatisticsWrapper&) = delete;

    // Queues one event.
    void AddInsertStatistics(const wchar_t* event, PluginStat* record);
    // Sends the queued events.
    void FlushStatistics();
    // Closes the object; call only its destructor afterwards.
    void CloseStatistics();

 private:
    struct Implementation;
    Implementation* implementation_;
};
