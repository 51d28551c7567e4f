// Vocabulary of the registry tests: keys of this process alone under HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE, gone
// after every case; values put there and read without the unit under test; the reports of a call; and opens that fail.
#pragma once

#include "DiagnosticsFixture.h"
#include "ImportPatch.h"
#include "Lib/Registry.h"

class RegistryTest : public DiagnosticsTest {
 protected:
    RegistryTest() : path("Software\\SorvikTest-" + std::to_string(GetCurrentProcessId())) {
        g_diagSettings->errorBits = RF_LOG | RF_FILELINE | RF_FUNCTION;
    }
    ~RegistryTest() override {
        for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
            RegDeleteTreeA(root, path.c_str());
            EXPECT_FALSE(IsThere(root, path)) << "a key of this case is left";
        }
    }

    static bool IsThere(HKEY root, const std::string& keyPath) {
        HKEY key = nullptr;
        if (RegOpenKeyExA(root, keyPath.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return false;
        RegCloseKey(key);
        return true;
    }
    static void Make(HKEY root, const std::string& keyPath) {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExA(root, keyPath.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr), 0);
        RegCloseKey(key);
    }
    // Makes the test's key as well.
    void Put(HKEY root, const char* name, DWORD type, const std::string& bytes) const {
        EXPECT_EQ(RegSetKeyValueA(root, path.c_str(), name, type, bytes.data(), static_cast<DWORD>(bytes.size())), 0);
    }
    // "type:bytes", empty when there is none.
    std::string Stored(HKEY root, const char* name) const {
        HKEY key = nullptr;
        if (RegOpenKeyExA(root, path.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) return "";
        char bytes[64] = "";
        DWORD type = 0, size = sizeof bytes;
        const LSTATUS status = RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(bytes), &size);
        RegCloseKey(key);
        return status == ERROR_SUCCESS ? std::to_string(type) + ":" + std::string(bytes, size) : "";
    }
    // One report's line.
    static std::string Line(const std::string& function, const std::string& message, int line) {
        return "Error  -  Registry::" + function + "(...)  -  \"" + message + "\"  -  PlugIn/Lib/Registry#" +
               std::to_string(line) + "\n";
    }

    const std::string path;
};

// Lets opens of keys succeed until the given one, which is refused, and all later ones.
class RefusedOpen {
 public:
    explicit RefusedOpen(int ordinal) : patch_("RegOpenKeyExA", Open) {
        left_ = ordinal;
        original_ = patch_.original<Function>();
    }

 private:
    using Function = LSTATUS WINAPI(HKEY, LPCSTR, DWORD, REGSAM, PHKEY);

    static LSTATUS WINAPI Open(HKEY root, LPCSTR path, DWORD options, REGSAM rights, PHKEY key) {
        return --left_ > 0 ? original_(root, path, options, rights, key) : ERROR_ACCESS_DENIED;
    }

    static inline int left_ = 0;
    static inline Function* original_ = nullptr;
    ImportPatch patch_;
};
