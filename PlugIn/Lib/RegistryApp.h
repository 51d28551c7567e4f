// Required library; nothing in this module calls it.
// Settings of an application: read from the user's key (under HKEY_CURRENT_USER) and, after a negative result, from the
// machine's (under HKEY_LOCAL_MACHINE); written and deleted in the user's key only. Both keys have the same path.
// Results and outputs are those of Registry.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "Lib/Registry.h"

class PRegistryApp {
 public:
    virtual ~PRegistryApp() = default;

    // `create` applies to the user's key; so does the result.
    virtual int SetKeyPath(const char* keyPath, bool create) = 0;
    // Returns the machine's path.
    virtual std::string GetKeyPath() const = 0;
    virtual bool IsKeyPathValid() const = 0;
    virtual bool KeyExists(const char* keyPath) const = 0;
    virtual bool UserKeyExists(const char* keyPath) const = 0;
    virtual int DeleteKey(const char* keyPath) = 0;

    virtual bool ValueExists(const char* valueName) const = 0;
    virtual int DeleteValue(const char* valueName) = 0;
    virtual int GetValueSize(const char* valueName) const = 0;
    virtual int GetValueType(const char* valueName) const = 0;
    virtual int SetDwordValue(const char* valueName, uint32_t value) = 0;
    virtual int GetDwordValue(const char* valueName, uint32_t& value, uint32_t defaultValue) const = 0;
    // In the order that Registry.h explains.
    virtual int SetStringValue(const char* valueName, const char* value) = 0;
    virtual int SetStringValue(const char* valueName, const std::string& value) = 0;
    virtual int GetStringValue(const char* valueName, char* value, int valueSize, const char* defaultValue) const = 0;
    virtual int GetStringValue(const char* valueName, std::string& value, const char* defaultValue) const = 0;
    virtual int SetBinaryValue(const char* valueName, const void* value, int valueSize) = 0;
    virtual int GetBinaryValue(const char* valueName, void* value, int valueSize, const void* defaultValue) const = 0;

    // Opens the user's key with all rights, creating it when it is missing, and the machine's for reading. Returns the
    // user's result.
    virtual int Open(const char* keyPath) = 0;
    virtual void Close() = 0;
};

class RegistryApp : public PRegistryApp {
 public:
    RegistryApp();
    ~RegistryApp() override;
    RegistryApp(const RegistryApp&) = delete;
    RegistryApp& operator=(const RegistryApp&) = delete;

    int SetKeyPath(const char* keyPath, bool create) override;
    std::string GetKeyPath() const override;
    bool IsKeyPathValid() const override;
    bool KeyExists(const char* keyPath) const override;
    bool UserKeyExists(const char* keyPath) const override;
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
    int Open(const char* keyPath) override;
    void Close() override;

 private:
    std::unique_ptr<PRegistry> machine_;
    std::unique_ptr<PRegistry> user_;
};

// Returns null when memory is exhausted.
std::unique_ptr<PRegistryApp> CreateRegistryApp();
