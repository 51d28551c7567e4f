// Vocabulary of the registry tests: keys of this process alone under HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE, gone
// before and after every case; values put there and read without the unit under test; the reports of a call; and the
// calls of the registry that one operation makes.
#pragma once

#include "DiagnosticsFixture.h"
#include "Lib/Registry.h"
#include "RecordedCalls.h"

class RegistryTest : public DiagnosticsTest {
 protected:
    RegistryTest() : path("Software\\SorvikTest-" + std::to_string(GetCurrentProcessId())) {
        g_diagSettings->errorBits = RF_LOG | RF_FILELINE | RF_FUNCTION;
        RemoveKeys();
    }
    ~RegistryTest() override { RemoveKeys(); }

    void RemoveKeys() const {
        RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
        RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
    }
    // Takes the key away.
    static bool WasThere(HKEY root, const std::string& keyPath) { return RegDeleteTreeA(root, keyPath.c_str()) == 0; }
    // Makes the test's key as well.
    void Put(HKEY root, const char* name, DWORD type, const std::string& bytes) const {
        EXPECT_EQ(RegSetKeyValueA(root, path.c_str(), name, type, bytes.data(), static_cast<DWORD>(bytes.size())), 0);
    }
    // "type:bytes", empty when there is none.
    std::string Stored(HKEY root, const char* name) const {
        char bytes[64] = "";
        DWORD type = 0, size = sizeof bytes;
        const LSTATUS status = RegGetValueA(root, path.c_str(), name, RRF_RT_ANY | RRF_NOEXPAND, &type, bytes, &size);
        return status == ERROR_SUCCESS ? std::to_string(type) + ":" + std::string(bytes, size) : "";
    }
    // One report's line.
    static std::string Line(const std::string& function, const std::string& message, int line) {
        return "Error  -  Registry::" + function + "(...)  -  \"" + message + "\"  -  PlugIn/Lib/Registry#" +
               std::to_string(line) + "\n";
    }

    const std::string path;
};
