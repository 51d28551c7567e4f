// Required library; nothing in this module calls it.
// Values under one key of the Windows registry: a root key, a path below it and the access rights for opening the key.
// Nothing stays open between calls. Strings are narrow; sizes are in bytes. Results are 0 or one of the codes below.
// Bad arguments, and keys that cannot be created or deleted, are also reported as errors. Readers with a default write
// it when the key or value does not exist or cannot be read; when the key cannot be opened the output stays unchanged.
// A null default means no default.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

inline constexpr int kRegistryDone = 0;
inline constexpr int kRegistryBadArgument = -4002;
inline constexpr int kRegistryRefused = -4003;  // failed create, delete, write, or query of a size or type
inline constexpr int kRegistryNotOpened = -4004;
inline constexpr int kRegistryNoKey = -4005;
inline constexpr int kRegistryNoValue = -4006;  // value missing or unreadable

class PRegistry {
 public:
    virtual ~PRegistry() = default;

    // HKEY_CLASSES_ROOT, HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE or HKEY_USERS.
    virtual int SetRootKey(HKEY rootKey) = 0;
    virtual HKEY GetRootKey() const = 0;
    virtual int SetAccessMask(uint32_t accessMask) = 0;
    virtual uint32_t GetAccessMask() const = 0;
    // Makes the path current when the key can be opened, or with `create` opened or created.
    virtual int SetKeyPath(const char* keyPath, bool create) = 0;
    virtual std::string GetKeyPath() const = 0;
    virtual bool IsKeyPathValid() const = 0;

    // A null path means the current one; for KeyExists an empty path does too.
    virtual bool KeyExists(const char* keyPath) const = 0;
    virtual int CreateKey(const char* keyPath) = 0;
    // Deletes a key without subkeys. With a null path the current path becomes empty.
    virtual int DeleteKey(const char* keyPath) = 0;

    virtual bool ValueExists(const char* valueName) const = 0;
    virtual int DeleteValue(const char* valueName) = 0;
    // Return the size or the type, or a negative code.
    virtual int GetValueSize(const char* valueName) const = 0;
    virtual int GetValueType(const char* valueName) const = 0;
    virtual int SetDwordValue(const char* valueName, uint32_t value) = 0;
    virtual int GetDwordValue(const char* valueName, uint32_t& value, uint32_t defaultValue) const = 0;
    // Visual C++ orders the virtual table's slots of overloads from the last declared to the first: the overload with a
    // std::string, declared second, has the first slot. Strings are stored without their terminator.
    virtual int SetStringValue(const char* valueName, const char* value) = 0;
    virtual int SetStringValue(const char* valueName, const std::string& value) = 0;
    // Terminates the string if the buffer has space for it; ignores the stored type.
    virtual int GetStringValue(const char* valueName, char* value, int valueSize, const char* defaultValue) const = 0;
    virtual int GetStringValue(const char* valueName, std::string& value, const char* defaultValue) const = 0;
    virtual int SetBinaryValue(const char* valueName, const void* value, int valueSize) = 0;
    // `valueSize` must be the stored size; it is also the default's.
    virtual int GetBinaryValue(const char* valueName, void* value, int valueSize, const void* defaultValue) const = 0;

    // Resets, sets root key and access rights, and returns SetKeyPath's result.
    virtual int Open(HKEY rootKey, const char* keyPath, uint32_t accessMask, bool create) = 0;
    // Sets HKEY_CURRENT_USER, an empty path and KEY_QUERY_VALUE.
    virtual void Reset() = 0;
};

class Registry : public PRegistry {
 public:
    Registry();
    ~Registry() override;
    Registry(const Registry&) = delete;
    Registry& operator=(const Registry&) = delete;

    int SetRootKey(HKEY rootKey) override;
    HKEY GetRootKey() const override;
    int SetAccessMask(uint32_t accessMask) override;
    uint32_t GetAccessMask() const override;
    int SetKeyPath(const char* keyPath, bool create) override;
    std::string GetKeyPath() const override;
    bool IsKeyPathValid() const override;
    bool KeyExists(const char* keyPath) const override;
    int CreateKey(const char* keyPath) override;
    int DeleteKey(const char* keyPath) override;
    bool ValueExists(const char* valueName) const override;
    int DeleteValue(const char* valueName) override;
    int GetValueSize(const char* valueName) const override;
    int GetValueType(const char* valueName) const override;
    int SetDwordValue(const char* valueName, uint32_t value) override;
    int GetDwordValue(const char* valueName, uint32_t& value, uint32_t defaultValue) const override;
    int SetStringValue(const char* valueName, const char* value) override;
    int SetStringValue(const char* valueName, const std::string& value) override;
    int GetStringValue(const char* valueName, char* value, int valueSize, const char* defaultValue) const override;
    int GetStringValue(const char* valueName, std::string& value, const char* defaultValue) const override;
    int SetBinaryValue(const char* valueName, const void* value, int valueSize) override;
    int GetBinaryValue(const char* valueName, void* value, int valueSize, const void* defaultValue) const override;
    int Open(HKEY rootKey, const char* keyPath, uint32_t accessMask, bool create) override;
    void Reset() override;

 private:
    int Write(const char* valueName, uint32_t type, const void* data, size_t size);

    HKEY rootKey_ = nullptr;
    std::string keyPath_;
    uint32_t accessMask_ = 0;
};
