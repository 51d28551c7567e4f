// The key of a Registry: root, rights, path, and making and removing keys in the real registry.
#include "RegistryFixture.h"

namespace {

int breaks = 0;

void WINAPI CountBreak() {
    ++breaks;
}

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
    Registry registry;
    for (const HKEY root : {HKEY_CLASSES_ROOT, HKEY_LOCAL_MACHINE, HKEY_USERS, HKEY_CURRENT_USER}) {
        EXPECT_EQ(registry.SetRootKey(root), 0);
        EXPECT_EQ(registry.GetRootKey(), root);
    }
    EXPECT_EQ(registry.SetRootKey(reinterpret_cast<HKEY>(5)), -4002);
    EXPECT_EQ(registry.SetRootKey(HKEY_CURRENT_CONFIG), -4002);
    EXPECT_EQ(registry.SetRootKey(nullptr), -4002);
    EXPECT_EQ(registry.GetRootKey(), HKEY_CURRENT_USER);
    EXPECT_EQ(LogLines(), Line("SetRootKey", "Registry::SetRootKey _RootKey = 5", 95) +
                              Line("SetRootKey", "Registry::SetRootKey _RootKey = -2147483643", 95) +
                              Line("SetRootKey", "Registry::SetRootKey _RootKey = 0", 95));
}

TEST_F(RegistryTest, ReportsBreakWhenTheirLevelSaysSo) {
    breaks = 0;
    const ImportPatch patch("DebugBreak", CountBreak);
    Registry registry;
    registry.SetRootKey(nullptr);
    EXPECT_EQ(breaks, 0);
    g_diagSettings->errorBits |= RF_BREAK;
    registry.SetRootKey(nullptr);
    EXPECT_EQ(breaks, 1);
}

TEST_F(RegistryTest, PathIsTakenOnlyWhenItsKeyIsThereOrMade) {
    Registry registry;
    EXPECT_EQ(registry.SetKeyPath(path.c_str(), false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), "");
    EXPECT_EQ(LogLines(), "") << "a missing key is told by the code alone";
    EXPECT_EQ(registry.SetKeyPath(path.c_str(), true), 0);
    EXPECT_EQ(registry.GetKeyPath(), path);
    EXPECT_TRUE(IsThere(HKEY_CURRENT_USER, path));
    EXPECT_EQ(registry.SetKeyPath((path + "\\Missing").c_str(), false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), path);
    EXPECT_EQ(registry.SetKeyPath(path.c_str(), false), 0);
}

TEST_F(RegistryTest, EmptyAndRefusedPathsAreReported) {
    Registry registry;
    const std::string tooLong(300, 'k');  // a key's name has at most 255 characters
    EXPECT_EQ(registry.SetKeyPath(nullptr, false), -4002);
    EXPECT_EQ(registry.SetKeyPath("", true), -4002);
    EXPECT_EQ(registry.CreateKey(nullptr), -4002);
    EXPECT_EQ(registry.CreateKey(""), -4002);
    EXPECT_EQ(registry.DeleteKey(nullptr), -4002);
    EXPECT_EQ(registry.DeleteKey(""), -4002);
    EXPECT_EQ(registry.SetKeyPath(tooLong.c_str(), true), -4003);
    EXPECT_EQ(registry.CreateKey(tooLong.c_str()), -4003);
    EXPECT_EQ(registry.GetKeyPath(), "");
    const std::string noPath = Line("SetKeyPath", "Registry::SetKeyPath _KeyPath == NULL", 134);
    const std::string noCreate = Line("CreateKey", "Registry::CreateKey path == NULL", 226);
    const std::string noDelete = Line("DeleteKey", "Registry::DeleteKey path == NULL", 265);
    EXPECT_EQ(LogLines(), noPath + noPath + noCreate + noCreate + noDelete + noDelete +
                              Line("SetKeyPath", "Registry::SetKeyPath can't create key \"" + tooLong + "\"", 167) +
                              Line("CreateKey", "Registry::CreateKey can't create key \"" + tooLong + "\"", 244));
}

TEST_F(RegistryTest, KeysAreMadeAndBecomeCurrent) {
    Registry registry;
    registry.SetAccessMask(KEY_ALL_ACCESS);
    const std::string child = path + "\\A\\B";
    EXPECT_EQ(registry.CreateKey(child.c_str()), 0);
    EXPECT_EQ(registry.GetKeyPath(), child);
    EXPECT_TRUE(registry.KeyExists(nullptr));
    EXPECT_TRUE(registry.KeyExists(""));
    EXPECT_TRUE(registry.KeyExists(path.c_str()));
    EXPECT_FALSE(registry.KeyExists((path + "\\C").c_str()));
    RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
    EXPECT_FALSE(registry.IsKeyPathValid());
    EXPECT_EQ(registry.CreateKey(nullptr), 0) << "the current key once more";
    EXPECT_TRUE(IsThere(HKEY_CURRENT_USER, child));
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
    EXPECT_EQ(registry.DeleteKey(nullptr), -4005);
    ASSERT_EQ(registry.SetKeyPath(path.c_str(), false), 0);
    EXPECT_EQ(registry.DeleteKey(nullptr), 0);
    EXPECT_EQ(registry.GetKeyPath(), "");
    EXPECT_FALSE(IsThere(HKEY_CURRENT_USER, path));
}

TEST_F(RegistryTest, OpenGoesOnAfterARefusedRootAndGivesThePathsResult) {
    Registry registry;
    Make(HKEY_CURRENT_USER, path);
    EXPECT_EQ(registry.Open(HKEY_CURRENT_CONFIG, path.c_str(), KEY_READ, false), 0);
    EXPECT_EQ(registry.GetRootKey(), HKEY_CURRENT_USER);
    EXPECT_EQ(registry.Open(HKEY_LOCAL_MACHINE, path.c_str(), KEY_READ, false), -4004);
    EXPECT_EQ(registry.GetKeyPath(), "") << "the old path is gone first";
}

}  // namespace
