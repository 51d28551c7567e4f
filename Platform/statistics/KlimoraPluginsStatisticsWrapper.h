// The usage-statistics library Klimora.Plugins.Statistics.Sorvik.dll, as far as it is used. A record stays its
// caller's.
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

    // Keeps one event until it is flushed.
    void AddInsertStatistics(const wchar_t* event, PluginStat* record);
    // Sends what was kept.
    void FlushStatistics();
    // Ends the work of the object; nothing but its destructor is called afterwards.
    void CloseStatistics();

 private:
    struct Implementation;
    Implementation* implementation_;
};
