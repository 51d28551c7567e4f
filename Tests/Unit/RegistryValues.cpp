// Values of a Registry in the real registry: the calls of each operation, what is stored, what is read, every code,
// every default, every report.
#include <algorithm>

#include "RegistryFixture.h"

namespace {

class RegistryValuesTest : public RegistryTest {
 protected:
    RegistryValuesTest() { EXPECT_EQ(registry_.Open(HKEY_CURRENT_USER, path.c_str(), KEY_ALL_ACCESS, true), 0); }

    // What the four readers of "v" leave in outputs that held "PPPP" ('P' for poison) when the default is "DDDD".
    using Read = std::pair<int, std::string>;
    Read ReadDword() {
        uint32_t value = 0x50505050;
        const int result = registry_.GetDwordValue("v", value, 0x44444444);
        return {result, std::string(reinterpret_cast<const char*>(&value), 4)};
    }
    Read ReadText() {
        std::string value = "PPPP";
        const int result = registry_.GetStringValue("v", value, "DDDD");
        return {result, value};
    }
    Read ReadBuffer(int size = 4) {
        char value[] = "PPPPPP";
        const int result = registry_.GetStringValue("v", value, size, "DDDDD");
        return {result, std::string(value, static_cast<size_t>(std::max(size, 4)))};
    }
    Read ReadBytes(int size = 4) {
        char value[] = "PPPPPP";
        const int result = registry_.GetBinaryValue("v", value, size, "DDDDD");
        return {result, std::string(value, static_cast<size_t>(std::max(size, 4)))};
    }
    std::vector<Read> ReadAll() { return {ReadDword(), ReadText(), ReadBuffer(), ReadBytes()}; }

    Registry registry_;
};

TEST_F(RegistryValuesTest, EveryOperationOpensFlushesAndCloses) {
    RecordedCalls calls;
    calls.Name(HKEY_CURRENT_USER, "USER");
    calls.Record("RegOpenKeyExA", RegOpenKeyExA);
    calls.Record("RegCreateKeyExA", RegCreateKeyExA);
    calls.Record("RegCloseKey", RegCloseKey);
    calls.Record("RegFlushKey", RegFlushKey);
    calls.Record("RegQueryValueExA", RegQueryValueExA);
    calls.Record("RegSetValueExA", RegSetValueExA);
    calls.Record("RegDeleteValueA", RegDeleteValueA);
    calls.Record("RegDeleteKeyA", RegDeleteKeyA);
    const auto query = [](const std::string& outputs) {
        return "RegQueryValueExA RegOpenKeyExA \"v\" null " + outputs + "\n";
    };
    const auto set = [](const std::string& data) { return "RegSetValueExA RegOpenKeyExA \"v\" 0x0 " + data + "\n"; };
    const std::string key = "USER \"" + path + "\"";
    const std::string open = "RegOpenKeyExA " + key + " 0x0 0xF003F &\n";
    const std::string close = "RegCloseKey RegOpenKeyExA\n";
    const std::string flush = "RegFlushKey RegOpenKeyExA\n" + close;
    const std::string create = "RegCreateKeyExA " + key + " 0x0 null 0x0 0xF003F null & null\n" +
                               "RegFlushKey RegCreateKeyExA\nRegCloseKey RegCreateKeyExA\n";
    const std::string write = open + close + open;
    const std::string read = open + close + open + query("null null null") + close + open;
    const struct {
        int (*operation)(Registry& registry, const char* path);
        std::string calls;
    } cases[] = {
        {[](Registry& r, const char* path) { return r.SetKeyPath(path, true); }, create},
        {[](Registry& r, const char* path) { return r.SetKeyPath(path, false); }, open + flush},
        {[](Registry& r, const char*) { return r.CreateKey(nullptr); }, create},
        {[](Registry& r, const char*) { return r.KeyExists(nullptr) - 1; }, open + close},
        {[](Registry& r, const char*) { return r.SetStringValue("v", "text"); }, write + set("0x1 & 0x4") + flush},
        {[](Registry& r, const char*) { return r.SetBinaryValue("v", "by", 2); }, write + set("0x3 & 0x2") + flush},
        {[](Registry& r, const char*) { return r.SetDwordValue("v", 1); }, write + set("0x4 & 0x4") + flush},
        {[](Registry& r, const char*) { return r.GetValueSize("v") - 4; }, read + query("null null &") + close},
        {[](Registry& r, const char*) { return r.GetValueType("v") - REG_DWORD; }, read + query("& null null") + close},
        {[](Registry& r, const char*) {
             uint32_t number = 0;
             return r.GetDwordValue("v", number, 5) + static_cast<int>(number) - 1;
         },
         read + query("null & &") + close},
        {[](Registry& r, const char*) {
             char bytes[4];
             return r.GetBinaryValue("v", bytes, 4, nullptr);
         },
         read + query("null null &") + query("null & &") + close},
        {[](Registry& r, const char*) { return r.DeleteValue("v"); },
         read + "RegDeleteValueA RegOpenKeyExA \"v\"\n" + flush},
        {[](Registry& r, const char*) { return r.DeleteKey(nullptr); }, open + close + "RegDeleteKeyA " + key + "\n"},
    };
    for (const auto& one : cases) {
        EXPECT_EQ(one.operation(registry_, path.c_str()), 0);
        EXPECT_EQ(calls.Take(), one.calls);
    }
}

TEST_F(RegistryValuesTest, AreStoredAndReadBack) {
    EXPECT_EQ(registry_.SetDwordValue("v", 0xFF636261), 0);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "4:abc\xFF");
    EXPECT_EQ(ReadDword(), (Read{0, "abc\xFF"}));
    EXPECT_EQ(registry_.SetBinaryValue("v", "a\0b\0", 4), 0);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), std::string("3:a\0b\0", 6));
    EXPECT_EQ(ReadText(), (Read{0, "a"})) << "up to the first zero";
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "ab");
    EXPECT_EQ(ReadBuffer(4), (Read{0, std::string("ab\0P", 4)}));
    EXPECT_EQ(registry_.SetStringValue("v", std::string("abc")), 0);
    EXPECT_EQ(registry_.GetValueSize("v"), 3) << "without a terminator";
    EXPECT_EQ(registry_.GetValueType("v"), 1);
    EXPECT_EQ(ReadText(), (Read{0, "abc"}));
    EXPECT_EQ(ReadBuffer(5), (Read{0, std::string("abc\0P", 5)}));
    EXPECT_EQ(ReadBuffer(3), (Read{0, "abcP"})) << "a full buffer has no terminator";
    EXPECT_EQ(ReadBuffer(2), (Read{-4006, "DDPP"}));
    EXPECT_EQ(ReadBytes(2), (Read{-4006, "DDPP"})) << "bytes have the stored size";
    EXPECT_EQ(ReadBytes(3), (Read{0, "abcP"}));
    EXPECT_EQ(ReadBytes(4), (Read{-4006, "DDDD"}));
    EXPECT_EQ(registry_.SetStringValue("v", ""), 0);
    EXPECT_EQ(registry_.GetValueSize("v"), 0);
    EXPECT_EQ(ReadText(), (Read{0, ""}));
    for (const size_t length : {40u, 256u, 8193u}) {
        EXPECT_EQ(registry_.SetStringValue("v", std::string(length, 'x').c_str()), 0);
        // Memory that is not zero by luck, where the text will be read into.
        std::vector<std::string>(8, std::string(length, 'y')).clear();
        EXPECT_EQ(ReadText(), (Read{0, std::string(length, 'x')}));
    }
    EXPECT_EQ(ReadDword(), (Read{-4006, "DDDD"})) << "more than four bytes are no number";
    EXPECT_EQ(registry_.DeleteValue("v"), 0);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "");
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValuesTest, MissingKeyAndMissingValueGiveTheDefault) {
    for (const int code : {-4006, -4005}) {
        EXPECT_EQ(ReadAll(), std::vector<Read>(4, {code, "DDDD"}));
        EXPECT_FALSE(registry_.ValueExists("v"));
        EXPECT_EQ(registry_.GetValueSize("v"), code);
        EXPECT_EQ(registry_.GetValueType("v"), code);
        EXPECT_EQ(registry_.DeleteValue("v"), code);
        RemoveKeys();
    }
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4005);
    EXPECT_EQ(registry_.SetStringValue("v", "x"), -4005);
    EXPECT_EQ(registry_.SetBinaryValue("v", "x", 1), -4005);
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValuesTest, FailedOpenLeavesTheOutput) {
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    const Read reads[] = {{-4005, "DDDD"}, {-4006, "DDDD"}, {-4004, "PPPP"}};
    const int writes[] = {-4005, -4004, 0};
    for (int opened = 0; opened < 3; ++opened) {
        const auto refused = [opened](auto&& operation) {
            RecordedCalls calls;
            calls.Give("RegOpenKeyExA", RegOpenKeyExA, ERROR_ACCESS_DENIED, opened);
            return operation();
        };
        EXPECT_EQ(refused([&] { return ReadDword(); }), reads[opened]);
        EXPECT_EQ(refused([&] { return ReadText(); }), reads[opened]);
        EXPECT_EQ(refused([&] { return ReadBuffer(); }), reads[opened]);
        EXPECT_EQ(refused([&] { return ReadBytes(); }), reads[opened]);
        EXPECT_EQ(refused([&] { return registry_.GetValueType("v"); }), reads[opened].first);
        EXPECT_EQ(refused([&] { return registry_.DeleteValue("v"); }), reads[opened].first);
        EXPECT_EQ(refused([&] { return registry_.SetBinaryValue("v", "1234", 4); }), writes[opened]);
    }
}

TEST_F(RegistryValuesTest, RightsAreThoseOfTheMask) {
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    registry_.SetAccessMask(KEY_QUERY_VALUE);
    EXPECT_EQ(ReadBytes(), (Read{0, "1234"}));
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4003);
    EXPECT_EQ(registry_.SetStringValue("v", "x"), -4003);
    EXPECT_EQ(registry_.SetBinaryValue("v", "x", 1), -4003);
    EXPECT_EQ(registry_.DeleteValue("v"), -4003);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "3:1234");
    registry_.SetAccessMask(KEY_SET_VALUE);
    EXPECT_EQ(ReadAll(), std::vector<Read>(4, {-4006, "DDDD"}));
    EXPECT_EQ(LogLines(), "") << "refused writes are told by the code alone";
}

TEST_F(RegistryValuesTest, RefusedQueries) {
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    RecordedCalls calls;
    // The question whether a value exists asks for nothing; questions for more are refused.
    calls.Record("RegQueryValueExA", RegQueryValueExA, [](HKEY, auto, auto, DWORD* type, BYTE* data, DWORD* size) {
        return type || data || size ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
    });
    EXPECT_EQ(registry_.GetValueSize("v"), -4003);
    EXPECT_EQ(registry_.GetValueType("v"), -4003);
    EXPECT_EQ(ReadAll(), (std::vector<Read>{{-4006, "DDDD"}, {-4003, "PPPP"}, {-4006, "DDDD"}, {-4006, "DDDD"}}));
}

TEST_F(RegistryValuesTest, MissingNamesAndTextsAreBadArguments) {
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
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValuesTest, BadBuffersAreReported) {
    char value[] = "abc";
    EXPECT_EQ(registry_.GetStringValue(nullptr, value, 3, "d"), -4002);
    EXPECT_EQ(registry_.GetStringValue("", value, 2, nullptr), -4002);
    EXPECT_EQ(registry_.GetStringValue("n", nullptr, 4, "d"), -4002);
    EXPECT_EQ(registry_.GetStringValue("n", value, 0, "d"), -4002);
    EXPECT_EQ(registry_.SetBinaryValue(nullptr, "abc", 2), -4002);
    EXPECT_EQ(registry_.SetBinaryValue("n", nullptr, 2), -4002);
    EXPECT_EQ(registry_.SetBinaryValue("n", "abc", 0), -4002);
    const char* const place = reinterpret_cast<const char*>(0x1234);
    EXPECT_EQ(registry_.GetBinaryValue("", value, 0, place), -4002);
    EXPECT_EQ(registry_.GetBinaryValue("n", nullptr, 3, place), -4002);
    EXPECT_STREQ(value, "abc") << "the default is not copied";
    const auto getter = [](const std::string& values) {
        return Line("GetStringValue", "Registry::GetStringValue " + values, 568);
    };
    const auto setter = [](const std::string& values) {
        return Line("SetBinaryValue", "Registry::GetStringValue " + values, 626);
    };
    std::string log = LogLines();
    const std::string pointers = log.substr(log.find("Error  -  Registry::GetBinaryValue"));
    log.resize(log.size() - pointers.size());
    EXPECT_EQ(log, getter(R"(ValueName="NULL", Value="abc", ValueSize=3, DefaultValue="d")") +
                       getter(R"(ValueName="", Value="ab", ValueSize=2, DefaultValue="NULL")") +
                       getter(R"(ValueName="n", Value="NULL", ValueSize=4, DefaultValue="d")") +
                       getter(R"(ValueName="n", Value="", ValueSize=0, DefaultValue="d")") +
                       setter(R"(ValueName="NULL", Value="ab", ValueSize=2)") +
                       setter(R"(ValueName="n", Value="NULL", ValueSize=2)") +
                       setter(R"(ValueName="n", Value="", ValueSize=0)"));
    EXPECT_EQ(pointers.substr(pointers.find('\n') + 1),
              Line("GetBinaryValue",
                   "Registry::GetBinaryValue ValueName=\"n\", Value=\"0000000000000000\", ValueSize=3, "
                   "DefaultValue=\"0000000000001234\"",
                   669));
}

}  // namespace
