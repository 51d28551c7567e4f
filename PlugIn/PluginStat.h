// One usage event as the statistics library takes it, and a lock for the library's users. Both classes are exported for
// other modules, so that library and module share one layout: fourteen narrow strings in this order, and one critical
// section. Nothing in this module uses the lock.
#pragma once

#include <windows.h>

#include <string>

#ifdef SORVIK_MODULE_BUILD
#define SORVIK_CLASS_EXPORT __declspec(dllexport)
#else
#define SORVIK_CLASS_EXPORT
#endif

class SORVIK_CLASS_EXPORT PluginStat {
 public:
    PluginStat();
    PluginStat(const PluginStat& other);
    PluginStat(PluginStat&& other) noexcept;
    PluginStat& operator=(const PluginStat& other);
    PluginStat& operator=(PluginStat&& other) noexcept;
    ~PluginStat();

    std::string pluginName;
    std::string pluginVersion;
    std::string vendorName;
    std::string vendorId;  // GUID in text form, 36 characters
    std::string productLineName;
    std::string productLineKey;  // 32 hexadecimal digits
    std::string product;
    std::string productFamily;
    std::string cadPlatform;
    std::string cadPlatformVersion;
    std::string discipline;
    std::string deviceClass;
    std::string extra;
    std::string action;
};

// A critical section. A thread may acquire it more than once.
class SORVIK_CLASS_EXPORT PMutex {
 public:
    PMutex();
    ~PMutex();
    PMutex& operator=(const PMutex& other);

    void Acquire();
    void Release();

 private:
    PMutex(const PMutex& other);

    CRITICAL_SECTION section_;
};
