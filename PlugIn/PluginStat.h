// One usage event as it crosses the border to the statistics library, and the small lock offered to users of it. Both
// are exported so that library and module share one layout: fourteen narrow strings in this order, and one critical
// section.
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

// A critical section, entered by Acquire and left by Release; the same thread may enter more than once.
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
