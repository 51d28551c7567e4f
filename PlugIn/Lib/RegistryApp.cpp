#include "Lib/RegistryApp.h"

#include <new>

namespace {

// Reads the user's key, and after a negative result the machine's.
template <class Read>
int UserFirst(const PRegistry& user, const PRegistry& machine, const Read& read) {
    const int result = read(user);
    return result < 0 ? read(machine) : result;
}

}  // namespace

RegistryApp::RegistryApp() : machine_(std::make_unique<Registry>()), user_(std::make_unique<Registry>()) {}

RegistryApp::~RegistryApp() {
    RegistryApp::Close();
}

int RegistryApp::Open(const char* keyPath) {
    Close();
    machine_->Open(HKEY_LOCAL_MACHINE, keyPath, KEY_QUERY_VALUE, false);
    return user_->Open(HKEY_CURRENT_USER, keyPath, KEY_ALL_ACCESS, true);
}

void RegistryApp::Close() {
    machine_->Reset();
    user_->Reset();
}

int RegistryApp::SetKeyPath(const char* keyPath, bool create) {
    machine_->SetKeyPath(keyPath, false);
    return user_->SetKeyPath(keyPath, create);
}

std::string RegistryApp::GetKeyPath() const {
    return machine_->GetKeyPath();
}

bool RegistryApp::IsKeyPathValid() const {
    return user_->IsKeyPathValid() || machine_->IsKeyPathValid();
}

bool RegistryApp::KeyExists(const char* keyPath) const {
    return user_->KeyExists(keyPath) || machine_->KeyExists(keyPath);
}

bool RegistryApp::UserKeyExists(const char* keyPath) const {
    return user_->KeyExists(keyPath);
}

int RegistryApp::DeleteKey(const char* keyPath) {
    return user_->DeleteKey(keyPath);
}

bool RegistryApp::ValueExists(const char* valueName) const {
    return user_->ValueExists(valueName) || machine_->ValueExists(valueName);
}

int RegistryApp::DeleteValue(const char* valueName) {
    return user_->DeleteValue(valueName);
}

int RegistryApp::GetValueSize(const char* valueName) const {
    return UserFirst(*user_, *machine_, [&](const PRegistry& store) { return store.GetValueSize(valueName); });
}

int RegistryApp::GetValueType(const char* valueName) const {
    return UserFirst(*user_, *machine_, [&](const PRegistry& store) { return store.GetValueType(valueName); });
}

int RegistryApp::SetDwordValue(const char* valueName, uint32_t value) {
    return user_->SetDwordValue(valueName, value);
}

int RegistryApp::GetDwordValue(const char* valueName, uint32_t& value, uint32_t defaultValue) const {
    return UserFirst(*user_, *machine_,
                     [&](const PRegistry& store) { return store.GetDwordValue(valueName, value, defaultValue); });
}

int RegistryApp::SetStringValue(const char* valueName, const std::string& value) {
    return user_->SetStringValue(valueName, value);
}

int RegistryApp::SetStringValue(const char* valueName, const char* value) {
    return user_->SetStringValue(valueName, value);
}

int RegistryApp::GetStringValue(const char* valueName, std::string& value, const char* defaultValue) const {
    return UserFirst(*user_, *machine_,
                     [&](const PRegistry& store) { return store.GetStringValue(valueName, value, defaultValue); });
}

int RegistryApp::GetStringValue(const char* valueName, char* value, int valueSize, const char* defaultValue) const {
    return UserFirst(*user_, *machine_, [&](const PRegistry& store) {
        return store.GetStringValue(valueName, value, valueSize, defaultValue);
    });
}

int RegistryApp::SetBinaryValue(const char* valueName, const void* value, int valueSize) {
    return user_->SetBinaryValue(valueName, value, valueSize);
}

int RegistryApp::GetBinaryValue(const char* valueName, void* value, int valueSize, const void* defaultValue) const {
    return UserFirst(*user_, *machine_, [&](const PRegistry& store) {
        return store.GetBinaryValue(valueName, value, valueSize, defaultValue);
    });
}

std::unique_ptr<PRegistryApp> CreateRegistryApp() {
    try {
        return std::make_unique<RegistryApp>();
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}
