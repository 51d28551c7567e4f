// Settings of an application over both stores: the user's value first, the machine's where there is none, and writing
// for the user alone.
#include "Lib/RegistryApp.h"
#include "RegistryFixture.h"

namespace {

class RegistryAppTest : public RegistryTest {
 protected:
    RegistryAppTest() : app_(CreateRegistryApp()) {}

    static HKEY User() { return HKEY_CURRENT_USER; }
    static HKEY Machine() { return HKEY_LOCAL_MACHINE; }

    // What the readers of "v" give, whose outputs and results are the same: size, type, result and output.
    std::string ReadAll() {
        char number[5] = "", buffer[5] = "", bytes[5] = "";
        std::string text;
        const int result = app_->GetStringValue("v", text, "DDDD");
        EXPECT_EQ(app_->GetDwordValue("v", reinterpret_cast<uint32_t&>(number), 0x44444444), result);
        EXPECT_EQ(app_->GetStringValue("v", buffer, 4, "DDDD"), result);
        EXPECT_EQ(app_->GetBinaryValue("v", bytes, 4, "DDDD"), result);
        EXPECT_TRUE(text == number && text == buffer && text == bytes);
        return std::to_string(app_->GetValueSize("v")) + " " + std::to_string(app_->GetValueType("v")) + " " +
               std::to_string(result) + " " + text;
    }

    std::unique_ptr<PRegistryApp> app_;
};

TEST_F(RegistryAppTest, OpenMakesTheUsersKeyAloneAndGivesItsResult) {
    Put(Machine(), "v", REG_BINARY, "");
    EXPECT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(app_->GetKeyPath(), path);
    RemoveKeys();
    RecordedCalls calls;
    calls.Name(User(), "USER");
    calls.Name(Machine(), "MACHINE");
    calls.Record("RegOpenKeyExA", RegOpenKeyExA);
    calls.Record("RegCreateKeyExA", RegCreateKeyExA);
    EXPECT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(calls.Take(), "RegOpenKeyExA MACHINE \"" + path + "\" 0x0 0x1 &\nRegCreateKeyExA USER \"" + path +
                                "\" 0x0 null 0x0 0xF003F null & null\n");
    EXPECT_TRUE(app_->IsKeyPathValid());
    EXPECT_EQ(app_->GetKeyPath(), "") << "the machine's path";
    EXPECT_EQ(LogLines(), "") << "a machine's key that is not there is no failure";
    app_->Close();
    EXPECT_FALSE(app_->IsKeyPathValid());

    const std::string tooLong = path + "\\" + std::string(300, 'k');
    EXPECT_EQ(app_->Open(tooLong.c_str()), -4003) << "no key has a name of 300 characters";
}

TEST_F(RegistryAppTest, PathIsSetInBothStores) {
    const std::string other = path + "\\Other";
    RegSetKeyValueA(Machine(), other.c_str(), "v", REG_BINARY, "", 0);
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(app_->SetKeyPath(other.c_str(), false), -4004);
    EXPECT_EQ(app_->GetKeyPath(), other);
    EXPECT_EQ(app_->SetKeyPath(other.c_str(), true), 0);
    EXPECT_TRUE(WasThere(User(), other));
    EXPECT_EQ(app_->SetKeyPath((other + "\\New").c_str(), true), 0);
    EXPECT_FALSE(WasThere(Machine(), other + "\\New"));
    EXPECT_EQ(app_->SetKeyPath("", true), -4002);
    const std::string line = Line("SetKeyPath", "Registry::SetKeyPath _KeyPath == NULL", 134);
    EXPECT_EQ(LogLines(), line + line) << "one report from each store";
    app_->Close();
    EXPECT_EQ(app_->GetKeyPath(), "");
}

TEST_F(RegistryAppTest, KeysOfEitherStoreExistAndTheUsersAreDeleted) {
    Put(Machine(), "other", REG_BINARY, "");
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

TEST_F(RegistryAppTest, ReadersFallBackToTheMachine) {
    Put(Machine(), "other", REG_BINARY, "");
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(ReadAll(), "-4006 -4006 -4006 DDDD");
    EXPECT_FALSE(app_->ValueExists("v"));
    Put(Machine(), "v", REG_BINARY, "mach");
    EXPECT_TRUE(app_->ValueExists("v"));
    EXPECT_EQ(ReadAll(), "4 3 0 mach");
    Put(User(), "v", REG_DWORD, "user");
    EXPECT_EQ(ReadAll(), "4 4 0 user");
    RegDeleteTreeA(User(), path.c_str());
    EXPECT_EQ(ReadAll(), "4 3 0 mach") << "without the user's key";
    RegDeleteTreeA(Machine(), path.c_str());
    EXPECT_EQ(ReadAll(), "-4005 -4005 -4005 DDDD");
}

TEST_F(RegistryAppTest, WritersWriteForTheUserAlone) {
    Put(Machine(), "v", REG_BINARY, "mach");
    ASSERT_EQ(app_->Open(path.c_str()), 0);
    EXPECT_EQ(app_->SetDwordValue("v", 0x72657375), 0);
    EXPECT_EQ(ReadAll(), "4 4 0 user");
    EXPECT_EQ(app_->SetStringValue("v", "text"), 0);
    EXPECT_EQ(ReadAll(), "4 1 0 text");
    EXPECT_EQ(app_->SetStringValue("v", std::string("more")), 0);
    EXPECT_EQ(ReadAll(), "4 1 0 more");
    EXPECT_EQ(app_->SetBinaryValue("v", "byte", 4), 0);
    EXPECT_EQ(ReadAll(), "4 3 0 byte");
    EXPECT_EQ(app_->DeleteValue("v"), 0);
    EXPECT_EQ(ReadAll(), "4 3 0 mach");
    EXPECT_EQ(app_->DeleteValue("v"), -4006) << "the machine's value is not the user's to delete";
    EXPECT_EQ(Stored(Machine(), "v"), "3:mach");
}

}  // namespace
