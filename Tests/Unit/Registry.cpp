// Registry and RegistryApp in the real registry: keys, the calls of each operation, values, codes, defaults and
// reports, and an application's settings in the user's and the machine's store.
#include <algorithm>

#include "DiagnosticsFixture.h"
#include "Lib/FormatText.h"
#include "Lib/RegistryApp.h"
#include "RecordedCalls.h"

namespace {

// Keys of this process under HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE, removed before and after each case; values
// written and read without the unit under test; and the results of reading a value "v".
class RegistryTest : public ErrorReportsTest {
 protected:
    RegistryTest() : path("Software\\SorvikTest-" + std::to_string(GetCurrentProcessId())) { RemoveKeys(); }
    ~RegistryTest() override { RemoveKeys(); }

    void RemoveKeys() const {
        RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
        RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
    }
    // Deletes the key. Returns whether it existed.
    static bool DeleteKey(HKEY root, const std::string& keyPath) { return RegDeleteTreeA(root, keyPath.c_str()) == 0; }
    // Creates the test's key as well.
    void Put(HKEY root, const char* name, DWORD type, const std::string& bytes) const {
        EXPECT_EQ(RegSetKeyValueA(root, path.c_str(), name, type, bytes.data(), static_cast<DWORD>(bytes.size())), 0);
    }
    // Returns "type:bytes", or an empty string when there is no value.
    std::string Stored(HKEY root, const char* name) const {
        char bytes[64] = "";
        DWORD type = 0, size = sizeof bytes;
        const LSTATUS status = RegGetValueA(root, path.c_str(), name, RRF_RT_ANY | RRF_NOEXPAND, &type, bytes, &size);
        return status == ERROR_SUCCESS ? std::to_string(type) + ":" + std::string(bytes, size) : "";
    }
    // The value in the user's store after writing it.
    std::string Wrote(int result) const {
        EXPECT_EQ(result, 0);
        return Stored(HKEY_CURRENT_USER, "v");
    }
    static std::string Line(const std::string& function, const std::string& message, int line) {
        return ErrorReportsTest::Line("Registry::" + function, "Registry::" + message,
                                      "Lib/Registry#" + std::to_string(line));
    }

    // The result and the output of a read. The output holds the sentinel "PPPP" before; the default is "DDDD".
    template <class Store>
    static std::string ReadDword(const Store& store) {
        uint32_t value = 0x50505050;
        const int result = store.GetDwordValue("v", value, 0x44444444);
        return std::to_string(result) + " " + std::string(reinterpret_cast<const char*>(&value), 4);
    }
    template <class Store>
    static std::string ReadText(const Store& store) {
        std::string value = "PPPP";
        const int result = store.GetStringValue("v", value, "DDDD");
        return std::to_string(result) + " " + value;
    }
    template <class Store>
    static std::string ReadBuffer(const Store& store, int size = 4, bool asBytes = false) {
        char value[] = "PPPPPP";
        const int result =
            asBytes ? store.GetBinaryValue("v", value, size, "DDDDD") : store.GetStringValue("v", value, size, "DDDDD");
        return std::to_string(result) + " " + std::string(value, static_cast<size_t>(std::max(size, 4)));
    }
    template <class Store>
    static std::string ReadBytes(const Store& store, int size = 4) {
        return ReadBuffer(store, size, true);
    }
    // Size and type, then the results of the four reads.
    using Reads = std::vector<std::string>;
    template <class Store>
    static Reads ReadAll(const Store& store) {
        return {std::to_string(store.GetValueSize("v")) + " " + std::to_string(store.GetValueType("v")),
                ReadDword(store), ReadText(store), ReadBuffer(store), ReadBytes(store)};
    }
    static Reads Alike(const std::string& sizeAndType, const std::string& read) {
        return {sizeAndType, read, read, read, read};
    }

    const std::string path;
};

TEST_F(RegistryTest, StartsWithDefaultsAndRestoresThemOnReset) {
    Registry registry;
    const auto state = [&] {
        return FormatString("%lX '%s' %X %d", HandleToUlong(registry.GetRootKey()), registry.GetKeyPath().c_str(),
                            registry.GetAccessMask(), registry.IsKeyPathValid());
    };
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(state(), "80000001 '' 1 0");
        ASSERT_EQ(registry.Open(HKEY_LOCAL_MACHINE, "Software", KEY_ALL_ACCESS, false), 0);
        EXPECT_EQ(state(), "80000002 'Software' F003F 1");
        registry.Reset();
    }
}

TEST_F(RegistryTest, AcceptsFourRootsAndReportsOthers) {
    RecordedCalls calls;
    calls.Record("DebugBreak", DebugBreak, [] {});
    const ImportPatch debugged(
        "IsDebuggerPresent", +[]() -> BOOL { return TRUE; });
    Registry registry;
    for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_USER}) {
        EXPECT_EQ(registry.SetRootKey(root), 0);
        EXPECT_EQ(registry.GetRootKey(), root);
    }
    EXPECT_EQ(registry.SetRootKey(reinterpret_cast<HKEY>(5)), -4002);
    EXPECT_EQ(registry.Open(HKEY_CURRENT_CONFIG, "Software", KEY_READ, false), 0) << "continues with the default";
    EXPECT_EQ(registry.GetRootKey(), HKEY_CURRENT_USER);
    EXPECT_EQ(calls.Take(), "");
    g_diagSettings->errorBits |= RF_BREAK;
    EXPECT_EQ(registry.SetRootKey(nullptr), -4002);
    EXPECT_EQ(calls.Take(), "DebugBreak\n");
    EXPECT_EQ(LogLines(), Line("SetRootKey", "SetRootKey _RootKey = 5", 95) +
                              Line("SetRootKey", "SetRootKey _RootKey = -2147483643", 95) +
                              Line("SetRootKey", "SetRootKey _RootKey = 0", 95));
}

TEST_F(RegistryTest, CreatesSelectsAndDeletesKeys) {
    Registry registry;
    const std::string child = path + "\\A\\B", missing = path + "\\C";
    const std::string tooLong(300, 'k');  // a key's name has at most 255 characters
    const auto after = [&](int result) { return std::to_string(result) + " " + registry.GetKeyPath(); };
    EXPECT_EQ(after(registry.SetKeyPath(nullptr, false)), "-4002 ");
    EXPECT_EQ(after(registry.SetKeyPath("", true)), "-4002 ");
    EXPECT_EQ(after(registry.CreateKey(nullptr)), "-4002 ");
    EXPECT_EQ(after(registry.DeleteKey("")), "-4002 ");
    EXPECT_EQ(after(registry.SetKeyPath(tooLong.c_str(), true)), "-4003 ");
    EXPECT_EQ(after(registry.CreateKey(tooLong.c_str())), "-4003 ");
    EXPECT_EQ(after(registry.SetKeyPath(path.c_str(), false)), "-4004 ");
    EXPECT_EQ(after(registry.SetKeyPath(path.c_str(), true)), "0 " + path);
    EXPECT_EQ(after(registry.SetKeyPath(missing.c_str(), false)), "-4004 " + path);
    EXPECT_EQ(after(registry.CreateKey(child.c_str())), "0 " + child);
    EXPECT_TRUE(registry.KeyExists(nullptr));
    EXPECT_TRUE(registry.KeyExists(path.c_str()));
    EXPECT_FALSE(registry.KeyExists(missing.c_str()));
    EXPECT_EQ(after(registry.DeleteKey(missing.c_str())), "-4005 " + child);
    EXPECT_EQ(after(registry.DeleteKey(path.c_str())), "-4003 " + child);
    EXPECT_EQ(after(registry.DeleteKey(child.c_str())), "0 " + child) << "deleting a named key keeps the path";
    EXPECT_FALSE(registry.KeyExists(""));
    EXPECT_FALSE(registry.IsKeyPathValid());
    EXPECT_EQ(after(registry.CreateKey(nullptr)), "0 " + child) << "creates the current key again";
    EXPECT_TRUE(registry.KeyExists(""));
    EXPECT_EQ(after(registry.DeleteKey(nullptr)), "0 ");
    EXPECT_FALSE(DeleteKey(HKEY_CURRENT_USER, child));
    EXPECT_EQ(after(registry.SetKeyPath(path.c_str(), false)), "0 " + path);
    EXPECT_EQ(after(registry.Open(HKEY_LOCAL_MACHINE, path.c_str(), KEY_READ, false)), "-4004 ")
        << "the old path is cleared";
    EXPECT_EQ(after(registry.Open(HKEY_LOCAL_MACHINE, path.c_str(), KEY_ALL_ACCESS, true)), "0 " + path);
    EXPECT_EQ(after(registry.DeleteKey(nullptr)), "0 ");
    EXPECT_FALSE(DeleteKey(HKEY_LOCAL_MACHINE, path));
    EXPECT_EQ(after(registry.CreateKey(path.c_str())), "0 " + path);
    EXPECT_EQ(registry.SetDwordValue("v", 0x64726F77), 0);
    EXPECT_EQ(Stored(HKEY_LOCAL_MACHINE, "v"), "4:word");
    const std::string noPath = Line("SetKeyPath", "SetKeyPath _KeyPath == NULL", 134);
    EXPECT_EQ(LogLines(), noPath + noPath + Line("CreateKey", "CreateKey path == NULL", 226) +
                              Line("DeleteKey", "DeleteKey path == NULL", 265) +
                              Line("SetKeyPath", "SetKeyPath can't create key \"" + tooLong + "\"", 167) +
                              Line("CreateKey", "CreateKey can't create key \"" + tooLong + "\"", 244) +
                              Line("DeleteKey", "DeleteKey can't delete key \"" + path + "\"", 278))
        << "a missing key only has a code";
}

class RegistryValues : public RegistryTest {
 protected:
    RegistryValues() { EXPECT_EQ(registry_.Open(HKEY_CURRENT_USER, path.c_str(), KEY_ALL_ACCESS, true), 0); }

    Registry registry_;
};

TEST_F(RegistryValues, OpensFlushesAndClosesInEveryOperation) {
    RecordedCalls calls({{HKEY_CURRENT_USER, "USER"}});
    calls.Record("RegOpenKeyExA", RegOpenKeyExA);
    calls.Record("RegCreateKeyExA", RegCreateKeyExA);
    calls.Record("RegCloseKey", RegCloseKey);
    calls.Record("RegFlushKey", RegFlushKey);
    const std::string key = "USER \"" + path + "\"";
    const std::string open = "RegOpenKeyExA " + key + " 0x0 0xF003F &\n";
    const std::string close = "RegCloseKey RegOpenKeyExA\n";
    const std::string flush = "RegFlushKey RegOpenKeyExA\n" + close;
    const std::string create = "RegCreateKeyExA " + key + " 0x0 null 0x0 0xF003F null & null\n" +
                               "RegFlushKey RegCreateKeyExA\nRegCloseKey RegCreateKeyExA\n";
    // Each step opens the key again: does it exist, does the value exist, and the operation itself.
    const std::string write = open + close + open + flush;
    const std::string read = open + close + open + close + open + close;
    const std::string deletion = open + close + open + close + open + flush;
    const auto expectCalls = [&](int result, const std::string& expected) {
        EXPECT_EQ(calls.Take(), expected);
        return result;
    };
    uint32_t number = 0;
    char bytes[4];
    Registry& r = registry_;
    EXPECT_EQ(expectCalls(r.SetKeyPath(path.c_str(), true), create), 0);
    EXPECT_EQ(expectCalls(r.SetKeyPath(path.c_str(), false), open + flush), 0);
    EXPECT_EQ(expectCalls(r.CreateKey(nullptr), create), 0);
    EXPECT_EQ(expectCalls(r.KeyExists(nullptr), open + close), 1);
    EXPECT_EQ(expectCalls(r.SetStringValue("v", "text"), write), 0);
    EXPECT_EQ(expectCalls(r.SetDwordValue("v", 1), write), 0);
    EXPECT_EQ(expectCalls(r.GetValueSize("v"), read), 4);
    EXPECT_EQ(expectCalls(r.GetValueType("v"), read), REG_DWORD);
    EXPECT_EQ(expectCalls(r.GetDwordValue("v", number, 5), read), 0);
    EXPECT_EQ(expectCalls(r.GetBinaryValue("v", bytes, 4, nullptr), read), 0);
    EXPECT_EQ(expectCalls(r.DeleteValue("v"), deletion), 0);
    EXPECT_EQ(expectCalls(r.DeleteKey(nullptr), open + close), 0);
}

TEST_F(RegistryValues, ReadsBackWhatWasWritten) {
    EXPECT_EQ(Wrote(registry_.SetDwordValue("v", 0xFF636261)), "4:abc\xFF");
    EXPECT_EQ(ReadDword(registry_), "0 abc\xFF");
    EXPECT_EQ(Wrote(registry_.SetBinaryValue("v", "a\0b\0", 4)), std::string("3:a\0b\0", 6));
    EXPECT_EQ(ReadText(registry_), "0 a") << "up to the first zero";
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "abc");
    EXPECT_EQ(ReadBuffer(registry_), std::string("0 abc\0", 6)) << "terminated when the buffer has space";
    EXPECT_EQ(Wrote(registry_.SetStringValue("v", std::string("abc"))), "1:abc") << "without a terminator";
    EXPECT_EQ(ReadAll(registry_),
              (Reads{"3 1", std::string("0 abc\0", 6), "0 abc", std::string("0 abc\0", 6), "-4006 DDDD"}));
    EXPECT_EQ(ReadBuffer(registry_, 5), std::string("0 abc\0P", 7));
    EXPECT_EQ(ReadBuffer(registry_, 3), "0 abcP") << "a full buffer has no terminator";
    EXPECT_EQ(ReadBuffer(registry_, 2), "-4006 DDPP");
    EXPECT_EQ(ReadBytes(registry_, 2), "-4006 DDPP") << "bytes have the stored size";
    EXPECT_EQ(ReadBytes(registry_, 3), "0 abcP");
    EXPECT_EQ(registry_.SetStringValue("v", ""), 0);
    EXPECT_EQ(registry_.GetValueSize("v"), 0);
    EXPECT_EQ(ReadText(registry_), "0 ");
    for (const size_t length : {40u, 256u, 8193u}) {
        EXPECT_EQ(registry_.SetStringValue("v", std::string(length, 'x').c_str()), 0);
        // Fills the heap, so that a missing terminator is not hidden by zeroed memory.
        std::vector<std::string>(8, std::string(length, 'y')).clear();
        EXPECT_EQ(ReadText(registry_), "0 " + std::string(length, 'x'));
    }
    EXPECT_EQ(ReadDword(registry_), "-4006 DDDD") << "more than four bytes are not a number";
    EXPECT_EQ(Wrote(registry_.DeleteValue("v")), "");
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValues, ReturnsTheDefaultForAMissingKeyOrValue) {
    for (const int code : {-4006, -4005}) {
        const std::string text = std::to_string(code);
        EXPECT_EQ(ReadAll(registry_), Alike(text + " " + text, text + " DDDD"));
        EXPECT_FALSE(registry_.ValueExists("v"));
        EXPECT_EQ(registry_.DeleteValue("v"), code);
        RemoveKeys();
    }
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4005);
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValues, ReturnsTheCodeOfEachFailedOpen) {
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    // Fails the first, the second or the third time that the operation opens the key.
    const auto failOpens = [](auto&& operation) {
        std::string results;
        for (int opened = 0; opened < 3; ++opened) {
            RecordedCalls calls;
            calls.Return("RegOpenKeyExA", RegOpenKeyExA, ERROR_ACCESS_DENIED, opened);
            results += operation() + "|";
        }
        return results;
    };
    const std::string read = "-4005 DDDD|-4006 DDDD|-4004 PPPP|";
    EXPECT_EQ(failOpens([&] { return ReadDword(registry_); }), read);
    EXPECT_EQ(failOpens([&] { return ReadText(registry_); }), read);
    EXPECT_EQ(failOpens([&] { return ReadBuffer(registry_); }), read);
    EXPECT_EQ(failOpens([&] { return ReadBytes(registry_); }), read);
    EXPECT_EQ(failOpens([&] { return std::to_string(registry_.GetValueType("v")); }), "-4005|-4006|-4004|");
    EXPECT_EQ(failOpens([&] { return std::to_string(registry_.DeleteValue("v")); }), "-4005|-4006|-4004|");
    EXPECT_EQ(failOpens([&] { return std::to_string(registry_.SetBinaryValue("v", "1234", 4)); }), "-4005|-4004|0|");
}

TEST_F(RegistryValues, LimitsAccessToTheMask) {
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    registry_.SetAccessMask(KEY_QUERY_VALUE);
    EXPECT_EQ(ReadBytes(registry_), "0 1234");
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4003);
    EXPECT_EQ(registry_.DeleteValue("v"), -4003);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "3:1234");
    registry_.SetAccessMask(KEY_SET_VALUE);
    EXPECT_EQ(ReadAll(registry_), Alike("-4006 -4006", "-4006 DDDD"));
    EXPECT_EQ(LogLines(), "") << "rejected writes only have a code";

    RecordedCalls calls;
    // Allows the query whether a value exists, which has no outputs, and denies the others.
    calls.Record("RegQueryValueExA", RegQueryValueExA, [](HKEY, auto, auto, DWORD* type, BYTE* data, DWORD* size) {
        return type || data || size ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
    });
    EXPECT_EQ(ReadAll(registry_), (Reads{"-4003 -4003", "-4006 DDDD", "-4003 PPPP", "-4006 DDDD", "-4006 DDDD"}));
}

TEST_F(RegistryValues, ReportsBadArguments) {
    std::string text = "P";
    uint32_t number = 5;
    for (const char* const name : {static_cast<const char*>(nullptr), ""}) {
        EXPECT_FALSE(registry_.ValueExists(name));
        for (const int result :
             {registry_.DeleteValue(name), registry_.GetValueSize(name), registry_.GetValueType(name),
              registry_.SetDwordValue(name, 1), registry_.SetStringValue(name, "x"),
              registry_.GetDwordValue(name, number, 1), registry_.GetStringValue(name, text, "x")})
            EXPECT_EQ(result, -4002);
    }
    EXPECT_EQ(registry_.SetStringValue("v", static_cast<const char*>(nullptr)), -4002);
    EXPECT_EQ(text, "P");
    EXPECT_EQ(number, 5u);
    EXPECT_EQ(LogLines(), "") << "only the code is returned";

    char value[] = "abc";
    const char* const place = reinterpret_cast<const char*>(0x1234);
    const std::string at = FormatString("%p", value);
    const auto getter = [](const std::string& values) {
        return Line("GetStringValue", "GetStringValue " + values, 568);
    };
    const auto setter = [](const std::string& values) {
        return Line("SetBinaryValue", "GetStringValue " + values, 626);
    };
    const auto bytes = [](const std::string& values) {
        return Line("GetBinaryValue", "GetBinaryValue " + values + ", DefaultValue=\"0000000000001234\"", 669);
    };
    Registry& r = registry_;
    const std::pair<int, std::string> reports[] = {
        {r.GetStringValue(nullptr, value, 3, "d"),
         getter(R"(ValueName="NULL", Value="abc", ValueSize=3, DefaultValue="d")")},
        {r.GetStringValue("", value, 2, nullptr),
         getter(R"(ValueName="", Value="ab", ValueSize=2, DefaultValue="NULL")")},
        {r.GetStringValue("n", nullptr, 4, "d"),
         getter(R"(ValueName="n", Value="NULL", ValueSize=4, DefaultValue="d")")},
        {r.GetStringValue("n", value, 0, "d"), getter(R"(ValueName="n", Value="abc", ValueSize=0, DefaultValue="d")")},
        {r.SetBinaryValue(nullptr, "abc", 2), setter(R"(ValueName="NULL", Value="ab", ValueSize=2)")},
        {r.SetBinaryValue("n", nullptr, 2), setter(R"(ValueName="n", Value="NULL", ValueSize=2)")},
        {r.SetBinaryValue("n", "abc", 0), setter(R"(ValueName="n", Value="abc", ValueSize=0)")},
        {r.SetBinaryValue("n", "abc", -1), setter(R"(ValueName="n", Value="abc", ValueSize=-1)")},
        {r.GetBinaryValue("", value, 3, place), bytes("ValueName=\"\", Value=\"" + at + "\", ValueSize=3")},
        {r.GetBinaryValue("n", value, 0, place), bytes("ValueName=\"n\", Value=\"" + at + "\", ValueSize=0")},
        {r.GetBinaryValue("n", nullptr, 3, place), bytes(R"(ValueName="n", Value="0000000000000000", ValueSize=3)")}};
    std::string lines;
    for (const auto& [result, line] : reports) {
        EXPECT_EQ(result, -4002);
        lines += line;
    }
    EXPECT_EQ(LogLines(), lines);
    EXPECT_STREQ(value, "abc") << "the default is not copied";
}

class RegistryAppTest : public RegistryTest {
 protected:
    const std::unique_ptr<PRegistryApp> app_ = CreateRegistryApp();
};

TEST_F(RegistryAppTest, CreatesOnlyTheUsersKeyOnOpen) {
    Put(HKEY_LOCAL_MACHINE, "v", REG_BINARY, "");
    EXPECT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(app_->GetKeyPath(), path);
    RemoveKeys();
    RecordedCalls calls({{HKEY_CURRENT_USER, "USER"}, {HKEY_LOCAL_MACHINE, "MACHINE"}});
    calls.Record("RegOpenKeyExA", RegOpenKeyExA);
    calls.Record("RegCreateKeyExA", RegCreateKeyExA);
    EXPECT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(calls.Take(), "RegOpenKeyExA MACHINE \"" + path + "\" 0x0 0x1 &\nRegCreateKeyExA USER \"" + path +
                                "\" 0x0 null 0x0 0xF003F null & null\n");
    EXPECT_TRUE(app_->IsKeyPathValid());
    EXPECT_EQ(app_->GetKeyPath(), "") << "the machine's path";
    EXPECT_EQ(LogLines(), "") << "a missing key of the machine is not a failure";
    app_->Close();
    EXPECT_FALSE(app_->IsKeyPathValid());

    const std::string tooLong = path + "\\" + std::string(300, 'k');
    EXPECT_EQ(app_->Open(tooLong.c_str()), -4003) << "a key's name has at most 255 characters";
}

TEST_F(RegistryAppTest, SetsThePathInBothStores) {
    const std::string other = path + "\\Other";
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, other.c_str(), "v", REG_BINARY, "", 0);
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(app_->SetKeyPath(other.c_str(), false), -4004);
    EXPECT_EQ(app_->GetKeyPath(), other);
    EXPECT_EQ(app_->SetKeyPath(other.c_str(), true), 0);
    EXPECT_TRUE(DeleteKey(HKEY_CURRENT_USER, other));
    EXPECT_EQ(app_->SetKeyPath((other + "\\New").c_str(), true), 0);
    EXPECT_FALSE(DeleteKey(HKEY_LOCAL_MACHINE, other + "\\New"));
    EXPECT_EQ(app_->SetKeyPath("", true), -4002);
    const std::string line = Line("SetKeyPath", "SetKeyPath _KeyPath == NULL", 134);
    EXPECT_EQ(LogLines(), line + line) << "one report from each store";
    app_->Close();
    EXPECT_EQ(app_->GetKeyPath(), "");
}

TEST_F(RegistryAppTest, FindsKeysOfEitherStoreAndDeletesOnlyTheUsers) {
    Put(HKEY_LOCAL_MACHINE, "other", REG_BINARY, "");
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_TRUE(app_->UserKeyExists(path.c_str()));
    EXPECT_EQ(app_->DeleteKey(path.c_str()), 0);
    EXPECT_FALSE(app_->UserKeyExists(path.c_str()));
    EXPECT_TRUE(app_->KeyExists(path.c_str()));
    EXPECT_TRUE(app_->IsKeyPathValid());
    EXPECT_EQ(app_->DeleteKey(path.c_str()), -4005);
    RemoveKeys();
    EXPECT_FALSE(app_->KeyExists(path.c_str()));
}

TEST_F(RegistryAppTest, FallsBackToTheMachineWhenReading) {
    Put(HKEY_LOCAL_MACHINE, "other", REG_BINARY, "");
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(ReadAll(*app_), Alike("-4006 -4006", "-4006 DDDD"));
    EXPECT_FALSE(app_->ValueExists("v"));
    Put(HKEY_LOCAL_MACHINE, "v", REG_BINARY, "mach");
    EXPECT_TRUE(app_->ValueExists("v"));
    EXPECT_EQ(ReadAll(*app_), Alike("4 3", "0 mach"));
    Put(HKEY_CURRENT_USER, "v", REG_DWORD, "user");
    EXPECT_EQ(ReadAll(*app_), Alike("4 4", "0 user"));
    RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
    EXPECT_EQ(ReadAll(*app_), Alike("4 3", "0 mach")) << "without the user's key";
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, path.c_str());
    EXPECT_EQ(ReadAll(*app_), Alike("-4005 -4005", "-4005 DDDD"));
}

TEST_F(RegistryAppTest, WritesOnlyForTheUser) {
    Put(HKEY_LOCAL_MACHINE, "v", REG_BINARY, "mach");
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(Wrote(app_->SetDwordValue("v", 0x72657375)), "4:user");
    EXPECT_EQ(Wrote(app_->SetStringValue("v", "text")), "1:text");
    EXPECT_EQ(Wrote(app_->SetStringValue("v", std::string("more"))), "1:more");
    EXPECT_EQ(Wrote(app_->SetBinaryValue("v", "byte", 4)), "3:byte");
    EXPECT_EQ(Wrote(app_->DeleteValue("v")), "");
    EXPECT_EQ(app_->DeleteValue("v"), -4006) << "the machine's value is not deleted";
    EXPECT_EQ(Stored(HKEY_LOCAL_MACHINE, "v"), "3:mach");
}

}  // namespace
