#include "PluginStat.h"

PluginStat::PluginStat() = default;
PluginStat::PluginStat(const PluginStat& other) = default;
PluginStat::PluginStat(PluginStat&& other) noexcept = default;
PluginStat& PluginStat::operator=(const PluginStat& other) = default;
PluginStat& PluginStat::operator=(PluginStat&& other) noexcept = default;
PluginStat::~PluginStat() = default;

PMutex::PMutex() {
    InitializeCriticalSection(&section_);
}

PMutex::~PMutex() {
    DeleteCriticalSection(&section_);
}

// Assignment copies nothing: each lock keeps its own critical section.
PMutex& PMutex::operator=(const PMutex&) {
    return *this;
}

void PMutex::Acquire() {
    EnterCriticalSection(&section_);
}

void PMutex::Release() {
    LeaveCriticalSection(&section_);
}
