#include "Lib/Registry.h"

#include "Lib/Diagnostics.h"
#include "Lib/FormatText.h"
#include "Lib/RegistryKey.h"
#include "Lib/Text.h"

Registry::Registry() {
    Registry::Reset();
}

Registry::~Registry() {
    Registry::Reset();
}

int Registry::Open(HKEY rootKey, const char* keyPath, uint32_t accessMask, bool create) {
    Reset();
    SetRootKey(rootKey);
    SetAccessMask(accessMask);
    return SetKeyPath(keyPath, create);
}

void Registry::Reset() {
    rootKey_ = HKEY_CURRENT_USER;
    keyPath_.clear();
    accessMask_ = KEY_QUERY_VALUE;
}

// ---- Root, rights and path ----

int Registry::SetRootKey(HKEY rootKey) {
    if (rootKey != HKEY_CLASSES_ROOT && rootKey != HKEY_CURRENT_USER && rootKey != HKEY_LOCAL_MACHINE &&
        rootKey != HKEY_USERS) {
        const int number = static_cast<int>(reinterpret_cast<intptr_t>(rootKey));
        ReportErrorAndBreak(FormatString("Registry::SetRootKey _RootKey = %d", number), kRegistrySource, 95,
                            "Registry::SetRootKey");
        return kRegistryBadArgument;
    }
    rootKey_ = rootKey;
    return kRegistryDone;
}

HKEY Registry::GetRootKey() const {
    return rootKey_;
}

int Registry::SetAccessMask(uint32_t accessMask) {
    accessMask_ = accessMask;
    return kRegistryDone;
}

uint32_t Registry::GetAccessMask() const {
    return accessMask_;
}

int Registry::SetKeyPath(const char* keyPath, bool create) {
    if (IsNullOrEmpty(keyPath)) {
        ReportErrorAndBreak("Registry::SetKeyPath _KeyPath == NULL", kRegistrySource, 134, "Registry::SetKeyPath");
        return kRegistryBadArgument;
    }
    const RegistryKey key = create ? MakeKey(rootKey_, keyPath, accessMask_) : OpenKey(rootKey_, keyPath, accessMask_);
    if (!key && !create) return kRegistryNotOpened;
    if (!key) {
        ReportErrorAndBreak(FormatString("Registry::SetKeyPath can't create key \"%s\"", keyPath), kRegistrySource, 167,
                            "Registry::SetKeyPath");
        return kRegistryRefused;
    }
    keyPath_ = std::string(keyPath);
    RegFlushKey(key.get());
    return kRegistryDone;
}

std::string Registry::GetKeyPath() const {
    return keyPath_;
}

bool Registry::IsKeyPathValid() const {
    return !keyPath_.empty() && KeyExists(nullptr);
}

// ---- Keys ----

bool Registry::KeyExists(const char* keyPath) const {
    return static_cast<bool>(OpenKey(rootKey_, IsNullOrEmpty(keyPath) ? keyPath_.c_str() : keyPath, accessMask_));
}

int Registry::CreateKey(const char* keyPath) {
    const std::string path = keyPath ? keyPath : keyPath_;
    if (path.empty()) {
        ReportErrorAndBreak("Registry::CreateKey path == NULL", kRegistrySource, 226, "Registry::CreateKey");
        return kRegistryBadArgument;
    }
    const RegistryKey key = MakeKey(rootKey_, path.c_str(), accessMask_);
    if (!key) {
        ReportErrorAndBreak(FormatString("Registry::CreateKey can't create key \"%s\"", path.c_str()), kRegistrySource,
                            244, "Registry::CreateKey");
        return kRegistryRefused;
    }
    keyPath_ = path;
    RegFlushKey(key.get());
    return kRegistryDone;
}

int Registry::DeleteKey(const char* keyPath) {
    const std::string path = keyPath ? keyPath : keyPath_;
    if (path.empty()) {
        ReportErrorAndBreak("Registry::DeleteKey path == NULL", kRegistrySource, 265, "Registry::DeleteKey");
        return kRegistryBadArgument;
    }
    if (!KeyExists(path.c_str())) return kRegistryNoKey;
    if (RegDeleteKeyA(rootKey_, path.c_str()) != ERROR_SUCCESS) {
        ReportErrorAndBreak(FormatString("Registry::DeleteKey can't delete key \"%s\"", path.c_str()), kRegistrySource,
                            278, "Registry::DeleteKey");
        return kRegistryRefused;
    }
    if (!keyPath) keyPath_.clear();
    return kRegistryDone;
}
