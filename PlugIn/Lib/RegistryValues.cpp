#include "Lib/Registry.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <new>

#include "Lib/Diagnostics.h"
#include "Lib/FormatText.h"
#include "Lib/RegistryKey.h"
#include "Lib/Text.h"

namespace {

const char* OrNull(const char* text) {
    return text ? text : "NULL";
}

// Returns a buffer's text for a report, up to its terminator but no longer than its size, or than a report when the
// size is the bad argument.
std::string BufferText(const void* buffer, int size) {
    constexpr size_t kMaxReportLength = 8191;
    if (!buffer) return "NULL";
    const char* text = static_cast<const char*>(buffer);
    return std::string(text, strnlen(text, size > 0 ? static_cast<size_t>(size) : kMaxReportLength));
}

// `type`, `data` and `size` may be null.
bool Query(const RegistryKey& key, const char* valueName, DWORD* type, void* data, DWORD* size) {
    return RegQueryValueExA(key.get(), valueName, nullptr, type, static_cast<BYTE*>(data), size) == ERROR_SUCCESS;
}

// Checks the key, then the value, and opens the key: the order of the codes that readers return.
int OpenForReading(const Registry& registry, const char* valueName, RegistryKey& key) {
    if (!registry.KeyExists(nullptr)) return kRegistryNoKey;
    if (!registry.ValueExists(valueName)) return kRegistryNoValue;
    key = OpenKey(registry.GetRootKey(), registry.GetKeyPath().c_str(), registry.GetAccessMask());
    return key ? kRegistryDone : kRegistryNotOpened;
}

bool TakesDefault(int result) {
    return result == kRegistryNoKey || result == kRegistryNoValue;
}

}  // namespace

bool Registry::ValueExists(const char* valueName) const {
    if (IsNullOrEmpty(valueName)) return false;
    const RegistryKey key = OpenKey(rootKey_, keyPath_.c_str(), accessMask_);
    return key && Query(key, valueName, nullptr, nullptr, nullptr);
}

int Registry::DeleteValue(const char* valueName) {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    RegistryKey key;
    const int result = OpenForReading(*this, valueName, key);
    if (result != kRegistryDone) return result;
    if (RegDeleteValueA(key.get(), valueName) != ERROR_SUCCESS) return kRegistryRefused;
    RegFlushKey(key.get());
    return kRegistryDone;
}

int Registry::GetValueSize(const char* valueName) const {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    RegistryKey key;
    const int result = OpenForReading(*this, valueName, key);
    if (result != kRegistryDone) return result;
    DWORD size = 0;
    return Query(key, valueName, nullptr, nullptr, &size) ? static_cast<int>(size) : kRegistryRefused;
}

int Registry::GetValueType(const char* valueName) const {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    RegistryKey key;
    const int result = OpenForReading(*this, valueName, key);
    if (result != kRegistryDone) return result;
    DWORD type = 0;
    return Query(key, valueName, &type, nullptr, nullptr) ? static_cast<int>(type) : kRegistryRefused;
}

int Registry::Write(const char* valueName, uint32_t type, const void* data, size_t size) {
    if (!KeyExists(nullptr)) return kRegistryNoKey;
    const RegistryKey key = OpenKey(rootKey_, keyPath_.c_str(), accessMask_);
    if (!key) return kRegistryNotOpened;
    const LSTATUS status =
        RegSetValueExA(key.get(), valueName, 0, type, static_cast<const BYTE*>(data), static_cast<DWORD>(size));
    if (status != ERROR_SUCCESS) return kRegistryRefused;
    RegFlushKey(key.get());
    return kRegistryDone;
}

// ---- Numbers ----

int Registry::SetDwordValue(const char* valueName, uint32_t value) {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    return Write(valueName, REG_DWORD, &value, sizeof value);
}

int Registry::GetDwordValue(const char* valueName, uint32_t& value, uint32_t defaultValue) const {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    RegistryKey key;
    int result = OpenForReading(*this, valueName, key);
    if (result == kRegistryDone) {
        uint32_t stored = 0;
        DWORD size = sizeof stored;
        if (Query(key, valueName, nullptr, &stored, &size)) {
            value = stored;
        } else {
            result = kRegistryNoValue;
        }
    }
    if (TakesDefault(result)) value = defaultValue;
    return result;
}

// ---- Texts ----

int Registry::SetStringValue(const char* valueName, const std::string& value) {
    return SetStringValue(valueName, value.c_str());
}

int Registry::SetStringValue(const char* valueName, const char* value) {
    if (IsNullOrEmpty(valueName) || !value) return kRegistryBadArgument;
    // Windows also stores a zero that follows the given bytes. Another character follows them here, so that the string
    // is stored without a terminator.
    const size_t length = std::strlen(value);
    const std::string unterminated = std::string(value, length) + '.';
    return Write(valueName, REG_SZ, unterminated.data(), length);
}

int Registry::GetStringValue(const char* valueName, std::string& value, const char* defaultValue) const {
    if (IsNullOrEmpty(valueName)) return kRegistryBadArgument;
    const std::string byDefault = defaultValue ? defaultValue : "";
    const int size = GetValueSize(valueName);
    if (TakesDefault(size)) value = byDefault;
    if (size < 0) return size;
    if (size == 0) {
        value.clear();
        return kRegistryDone;
    }
    // The stored bytes have no terminator; the buffer's last byte is one.
    const std::unique_ptr<char[]> buffer(new (std::nothrow) char[static_cast<size_t>(size) + 1]());
    if (!buffer) return kRegistryDone;  // there is no code for it; the output stays unchanged
    const int result = GetStringValue(valueName, buffer.get(), size, nullptr);
    value = result == kRegistryDone ? std::string(buffer.get()) : byDefault;
    return result;
}

int Registry::GetStringValue(const char* valueName, char* value, int valueSize, const char* defaultValue) const {
    if (IsNullOrEmpty(valueName) || !value || valueSize <= 0) {
        ReportErrorAndBreak(
            FormatString("Registry::GetStringValue ValueName=\"%s\", Value=\"%s\", ValueSize=%d, DefaultValue=\"%s\"",
                         OrNull(valueName), BufferText(value, valueSize).c_str(), valueSize, OrNull(defaultValue)),
            kRegistrySource, 568, "Registry::GetStringValue");
        return kRegistryBadArgument;
    }
    RegistryKey key;
    int result = OpenForReading(*this, valueName, key);
    if (result == kRegistryDone) {
        DWORD size = static_cast<DWORD>(valueSize);
        if (!Query(key, valueName, nullptr, value, &size)) {
            result = kRegistryNoValue;
        } else if (size < static_cast<DWORD>(valueSize)) {
            value[size] = '\0';
        }
    }
    if (TakesDefault(result) && defaultValue) std::strncpy(value, defaultValue, static_cast<size_t>(valueSize));
    return result;
}

// ---- Bytes ----

int Registry::SetBinaryValue(const char* valueName, const void* value, int valueSize) {
    if (IsNullOrEmpty(valueName) || !value || valueSize <= 0) {
        // The setter's report names the getter; readers of logs know it so.
        ReportErrorAndBreak(FormatString("Registry::GetStringValue ValueName=\"%s\", Value=\"%s\", ValueSize=%d",
                                         OrNull(valueName), BufferText(value, valueSize).c_str(), valueSize),
                            kRegistrySource, 626, "Registry::SetBinaryValue");
        return kRegistryBadArgument;
    }
    return Write(valueName, REG_BINARY, value, static_cast<size_t>(valueSize));
}

int Registry::GetBinaryValue(const char* valueName, void* value, int valueSize, const void* defaultValue) const {
    if (IsNullOrEmpty(valueName) || !value || valueSize <= 0) {
        ReportErrorAndBreak(
            FormatString("Registry::GetBinaryValue ValueName=\"%s\", Value=\"%p\", ValueSize=%d, DefaultValue=\"%p\"",
                         OrNull(valueName), value, valueSize, defaultValue),
            kRegistrySource, 669, "Registry::GetBinaryValue");
        return kRegistryBadArgument;
    }
    RegistryKey key;
    int result = OpenForReading(*this, valueName, key);
    if (result == kRegistryDone) {
        DWORD size = 0;
        const bool read = Query(key, valueName, nullptr, nullptr, &size) && size == static_cast<DWORD>(valueSize) &&
                          Query(key, valueName, nullptr, value, &size);
        if (!read) result = kRegistryNoValue;
    }
    if (TakesDefault(result) && defaultValue) std::memcpy(value, defaultValue, static_cast<size_t>(valueSize));
    return result;
}
