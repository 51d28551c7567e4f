// The key of a Registry: root, rights, path, and making and removing keys in the real registry.
#include "RegistryFixture.h"

namespace {

TEST_F(RegistryTest, StartsWithItsDefaultsAndResetRestoresThem) {
    Registry registry;
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(registry.GetRootKey(), HKEY_CURRENT_USER);
        EXPECT_EQ(registry.GetKeyPath(), "");
        EXPECT_EQ(registry.GetAccessMask(), 1u);
        EXPECT_FALSE(registry.IsKeyPathValid());
        ASSERT_EQ(registry.Open(HKEY_LOCAL_MACHINE, "Software", KEY_ALL_ACCESS, false), 0);
        EXPECT_EQ(registry.GetRootKey(), HKEY_LOCAL_MACHINE);
        EXPECT_EQ(registry.GetKeyPath(), "Software");
        EXPECT_EQ(registry.GetAccessMask(), 0xF003Fu);
        EXPECT_TRUE(registry.IsKeyPathValid());
        registry.Reset();
    }
}

TEST_F(RegistryTest, TakesFourRootsAndReportsOthers) {
    RecordedCalls calls;
    calls.Record("DebugBreak", DebugBreak, [] {});
    Registry registry;
    for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_USER}) {
        EXPECT_EQ(registry.SetRootKey(root), 0);
        EXPECT_EQ(registry.GetRootKey(), root);
    }
    EXPECT_EQ(registry.SetRootKey(reinterpret_cast<HKEY>(5)), -4002);
    EXPECT_EQ(registry.Open(HKEY_CURRENT_CONFIG, "Software", KEY_READ, false), 0) << "goes on with the default";
    EXPECT_EQ(registry.GetRootKey(), HKEY_CURRENT_USER);
    EXPECT_EQ(calls.Take(), "");
    g_diagSettings->errorBits |= RF_BREAK;
    EXPECT_EQ(registry.SetRootKey(nullptr), -4002);
    EXPECT_EQ(calls.Take(), "DebugBreak\n");
    EXPECT_EQ(LogLines(), Line("SetRootKey", "Registry::SetRootKey _RootKey = 5", 95) +
                              Line("SetRootKey", "Registry::SetRootKey _RootKey = -2147483643", 95) +
                              Line("SetRootKey", "Registry::SetRootKey _RootKey = 0", 95));
}

TEST_F(RegistryTest, PathIsTakenOnlyWhenItsKeyIsThereOrMade) {
    Registry registry;
    EXPECT_EQ(registry.SetKeyPath(path.c_str(), false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), "");
    EXPECT_EQ(registry.SetKeyPath(path.c_str(), true), 0);
    EXPECT_EQ(registry.GetKeyPath(), path);
    EXPECT_TRUE(WasThere(HKEY_CURRENT_USER, path));
    EXPECT_EQ(registry.SetKeyPath((path + "\\Missing").c_str(), false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), path);
    EXPECT_EQ(LogLines(), "") << "a missing key is told by the code alone";
    EXPECT_EQ(registry.Open(HKEY_LOCAL_MACHINE, path.c_str(), KEY_READ, false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), "") << "the old path is gone first";
}

TEST_F(RegistryTest, EmptyAndRefusedPathsAreReported) {
    Registry registry;
    const std::string tooLong(300, 'k');  // a key's name has at most 255 characters
    EXPECT_EQ(registry.SetKeyPath(nullptr, false), -4002);
    EXPECT_EQ(registry.SetKeyPath("", true), -4002);
    EXPECT_EQ(registry.CreateKey(nullptr), -4002);
    EXPECT_EQ(registry.DeleteKey(""), -4002);
    EXPECT_EQ(registry.SetKeyPath(tooLong.c_str(), true), -4003);
    EXPECT_EQ(registry.CreateKey(tooLong.c_str()), -4003);
    EXPECT_EQ(registry.GetKeyPath(), "");
    const std::string noPath = Line("SetKeyPath", "Registry::SetKeyPath _KeyPath == NULL", 134);
    EXPECT_EQ(LogLines(), noPath + noPath + Line("CreateKey", "Registry::CreateKey path == NULL", 226) +
                              Line("DeleteKey", "Registry::DeleteKey path == NULL", 265) +
                              Line("SetKeyPath", "Registry::SetKeyPath can't create key \"" + tooLong + "\"", 167) +
                              Line("CreateKey", "Registry::CreateKey can't create key \"" + tooLong + "\"", 244));
}

TEST_F(RegistryTest, KeysAreMadeAndBecomeCurrent) {
    Registry registry;
    const std::string child = path + "\\A\\B";
    EXPECT_EQ(registry.CreateKey(child.c_str()), 0);
    EXPECT_EQ(registry.GetKeyPath(), child);
    EXPECT_TRUE(registry.KeyExists(nullptr));
    EXPECT_TRUE(registry.KeyExists(""));
    EXPECT_TRUE(registry.KeyExists(path.c_str()));
    EXPECT_FALSE(registry.KeyExists((path + "\\C").c_str()));
    RemoveKeys();
    EXPECT_FALSE(registry.KeyExists(""));
    EXPECT_FALSE(registry.IsKeyPathValid());
    EXPECT_EQ(registry.CreateKey(nullptr), 0) << "the current key once more";
    EXPECT_TRUE(WasThere(HKEY_CURRENT_USER, child));
}

TEST_F(RegistryTest, KeysAreRemovedWhenTheyHaveNoSubkeys) {
    Registry registry;
    const std::string child = path + "\\A";
    ASSERT_EQ(registry.SetKeyPath(child.c_str(), true), 0);
    EXPECT_EQ(registry.DeleteKey((path + "\\Missing").c_str()), -4005);
    EXPECT_EQ(LogLines(), "");
    EXPECT_EQ(registry.DeleteKey(path.c_str()), -4003);
    EXPECT_EQ(LogLines(), Line("DeleteKey", "Registry::DeleteKey can't delete key \"" + path + "\"", 278));
    EXPECT_EQ(registry.DeleteKey(child.c_str()), 0) << "named, the path stays";
    EXPECT_EQ(registry.GetKeyPath(), child);
    ASSERT_EQ(registry.SetKeyPath(path.c_str(), false), 0);
    EXPECT_EQ(registry.DeleteKey(nullptr), 0);
    EXPECT_EQ(registry.GetKeyPath(), "");
    EXPECT_FALSE(WasThere(HKEY_CURRENT_USER, path));
}

}  // namespace
