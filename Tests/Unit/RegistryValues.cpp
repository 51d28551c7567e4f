// Values of a Registry in the real registry: what is stored, what is read, every code, every default, every report.
#include <cstring>
#include <vector>

#include "RegistryFixture.h"

namespace {

// The question whether a value exists asks for nothing; questions for more are refused.
LSTATUS WINAPI AnswerExistenceAlone(HKEY, LPCSTR, LPDWORD, LPDWORD type, LPBYTE data, LPDWORD size) {
    return type || data || size ? ERROR_ACCESS_DENIED : ERROR_SUCCESS;
}

int flushes = 0;
LSTATUS WINAPI CountFlush(HKEY) {
    ++flushes;
    return ERROR_SUCCESS;
}

class RegistryValuesTest : public RegistryTest {
 protected:
    void OpenKey(uint32_t rights = KEY_ALL_ACCESS) {
        ASSERT_EQ(registry_.Open(HKEY_CURRENT_USER, path.c_str(), KEY_ALL_ACCESS, true), 0);
        registry_.SetAccessMask(rights);
    }

    // What a reader left in an output that held 0x50 before ('P' for poison).
    struct Read {
        int result;
        std::string output;
    };
    Read Dword(const char* name) {
        uint32_t value = 0x50505050;
        const int result = registry_.GetDwordValue(name, value, 0x44444444);
        return {result, std::string(reinterpret_cast<const char*>(&value), 4)};
    }
    Read Text(const char* name) {
        std::string value = "PPPP";
        const int result = registry_.GetStringValue(name, value, "DDDD");
        return {result, value};
    }
    Read Buffer(const char* name) {
        char value[] = "PPPP";
        const int result = registry_.GetStringValue(name, value, 4, "DDDD");
        return {result, std::string(value, 4)};
    }
    Read Binary(const char* name) {
        char value[] = "PPPP";
        const int result = registry_.GetBinaryValue(name, value, 4, "DDDD");
        return {result, std::string(value, 4)};
    }
    using Reader = Read (RegistryValuesTest::*)(const char*);
    static constexpr Reader kReaders[] = {&RegistryValuesTest::Dword, &RegistryValuesTest::Text,
                                          &RegistryValuesTest::Buffer, &RegistryValuesTest::Binary};

    // The same result and output from every reader of the value "v".
    void ExpectReaders(int result, const std::string& output) {
        for (const Reader reader : kReaders) {
            const Read read = (this->*reader)("v");
            EXPECT_EQ(read.result, result);
            EXPECT_EQ(read.output, output);
        }
    }

    Registry registry_;
};

TEST_F(RegistryValuesTest, EveryWriteIsFlushed) {
    const ImportPatch patch("RegFlushKey", CountFlush);
    const struct {
        const char* what;
        int (*write)(Registry& registry, const char* path);
    } writes[] = {
        {"path, created", [](Registry& r, const char* path) { return r.SetKeyPath(path, true); }},
        {"path, opened", [](Registry& r, const char* path) { return r.SetKeyPath(path, false); }},
        {"key", [](Registry& r, const char* path) { return r.CreateKey(path); }},
        {"number", [](Registry& r, const char*) { return r.SetDwordValue("v", 1); }},
        {"text", [](Registry& r, const char*) { return r.SetStringValue("v", "t"); }},
        {"bytes", [](Registry& r, const char*) { return r.SetBinaryValue("v", "b", 1); }},
        {"removal", [](Registry& r, const char*) { return r.DeleteValue("v"); }},
    };
    registry_.SetAccessMask(KEY_ALL_ACCESS);
    for (const auto& one : writes) {
        flushes = 0;
        EXPECT_EQ(one.write(registry_, path.c_str()), 0) << one.what;
        EXPECT_EQ(flushes, 1) << one.what;
    }
}

TEST_F(RegistryValuesTest, AreStoredWithTheirTypesAndSizes) {
    OpenKey();
    EXPECT_EQ(registry_.SetDwordValue("dword", 0x64636261), 0);
    EXPECT_EQ(registry_.SetStringValue("text", "abc"), 0);
    EXPECT_EQ(registry_.SetStringValue("object", std::string("abcdef")), 0);
    EXPECT_EQ(registry_.SetStringValue("empty", ""), 0);
    EXPECT_EQ(registry_.SetBinaryValue("bytes", "a\0b\0", 4), 0);
    const struct {
        const char* name;
        DWORD type;
        int size;
    } cases[] = {{"dword", REG_DWORD, 4},
                 {"text", REG_SZ, 3},
                 {"object", REG_SZ, 6},
                 {"empty", REG_SZ, 0},
                 {"bytes", REG_BINARY, 4}};
    for (const auto& c : cases) {
        EXPECT_TRUE(registry_.ValueExists(c.name)) << c.name;
        EXPECT_EQ(registry_.GetValueType(c.name), static_cast<int>(c.type)) << c.name;
        EXPECT_EQ(registry_.GetValueSize(c.name), c.size) << c.name;
    }
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "dword"), "4:abcd");
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "bytes"), std::string("3:a\0b\0", 6));
}

TEST_F(RegistryValuesTest, AreReadBack) {
    OpenKey();
    registry_.SetDwordValue("dword", 0xFFFFFFFF);
    registry_.SetStringValue("text", "abc");
    registry_.SetStringValue("empty", "");
    uint32_t number = 0;
    EXPECT_EQ(registry_.GetDwordValue("dword", number, 7), 0);
    EXPECT_EQ(number, 0xFFFFFFFFu);
    std::string text = "poison";
    EXPECT_EQ(registry_.GetStringValue("text", text, "default"), 0);
    EXPECT_EQ(text, "abc");
    EXPECT_EQ(registry_.GetStringValue("empty", text, "default"), 0);
    EXPECT_EQ(text, "");
    char buffer[] = "PPPPPPPP";
    EXPECT_EQ(registry_.GetStringValue("text", buffer, 6, "default"), 0);
    EXPECT_STREQ(buffer, "abc");
    std::memset(buffer, 'P', 8);
    EXPECT_EQ(registry_.GetStringValue("text", buffer, 3, "default"), 0);
    EXPECT_EQ(std::string(buffer, 5), "abcPP") << "a full buffer has no terminator";
    std::memset(buffer, 'P', 8);
    EXPECT_EQ(registry_.GetStringValue("text", buffer, 2, "default"), -4006);
    EXPECT_EQ(std::string(buffer, 5), "dePPP");
    EXPECT_EQ(registry_.GetStringValue("text", buffer, 8, nullptr), 0) << "a default is not needed";
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValuesTest, TextsOfOtherTypesAreRead) {
    OpenKey();
    Put(HKEY_CURRENT_USER, "bytes", REG_BINARY, std::string("ab\0cd", 5));
    Put(HKEY_CURRENT_USER, "raw", REG_BINARY, "abcd");
    std::string text;
    EXPECT_EQ(registry_.GetStringValue("bytes", text, "default"), 0);
    EXPECT_EQ(text, "ab") << "up to the first zero";
    EXPECT_EQ(registry_.GetStringValue("raw", text, "default"), 0);
    EXPECT_EQ(text, "abcd") << "and ends after the stored bytes";
}

TEST_F(RegistryValuesTest, LongTextsAreReadWhole) {
    OpenKey();
    std::string text;
    for (const size_t length : {40u, 200u, 255u, 256u, 1000u, 8193u}) {
        EXPECT_EQ(registry_.SetStringValue("long", std::string(length, 'x')), 0);
        // Memory that is not zero by luck, where the text will be read into.
        std::vector<std::string>(8, std::string(length, 'y')).clear();
        EXPECT_EQ(registry_.GetStringValue("long", text, ""), 0);
        EXPECT_EQ(text, std::string(length, 'x'));
    }
}

TEST_F(RegistryValuesTest, BytesMustHaveTheStoredSize) {
    OpenKey();
    registry_.SetBinaryValue("v", "abcd", 4);
    const struct {
        int size, result;
        const char* output;
    } cases[] = {{3, -4006, "DEFPPP"}, {4, 0, "abcdPP"}, {5, -4006, "DEFGHP"}};
    for (const auto& c : cases) {
        char output[] = "PPPPPP";
        EXPECT_EQ(registry_.GetBinaryValue("v", output, c.size, "DEFGH"), c.result) << c.size;
        EXPECT_STREQ(output, c.output);
    }
}

TEST_F(RegistryValuesTest, NumbersOfMoreThanFourBytesAreNotRead) {
    OpenKey();
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "12345678");
    EXPECT_EQ(Dword("v").result, -4006);
    EXPECT_EQ(Dword("v").output, "DDDD");
}

TEST_F(RegistryValuesTest, MissingKeyAndMissingValueGiveTheDefault) {
    OpenKey();
    ExpectReaders(-4006, "DDDD");
    EXPECT_EQ(registry_.GetValueSize("v"), -4006);
    EXPECT_EQ(registry_.GetValueType("v"), -4006);
    EXPECT_EQ(registry_.DeleteValue("v"), -4006);
    RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str());
    ExpectReaders(-4005, "DDDD");
    EXPECT_EQ(registry_.GetValueSize("v"), -4005);
    EXPECT_EQ(registry_.GetValueType("v"), -4005);
    EXPECT_EQ(registry_.DeleteValue("v"), -4005);
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4005);
    EXPECT_EQ(registry_.SetStringValue("v", "x"), -4005);
    EXPECT_EQ(registry_.SetBinaryValue("v", "x", 1), -4005);
    EXPECT_FALSE(registry_.ValueExists("v"));
    EXPECT_EQ(LogLines(), "");
}

TEST_F(RegistryValuesTest, FailedOpenLeavesTheOutput) {
    OpenKey();
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    const struct {
        int open;
        int result;
        const char* output;
    } cases[] = {{1, -4005, "DDDD"}, {2, -4006, "DDDD"}, {3, -4004, "PPPP"}};
    for (const auto& c : cases) {
        for (const Reader reader : kReaders) {
            const RefusedOpen refused(c.open);
            const Read read = (this->*reader)("v");
            EXPECT_EQ(read.result, c.result);
            EXPECT_EQ(read.output, c.output);
        }
        const RefusedOpen refused(c.open);
        EXPECT_EQ(registry_.GetValueSize("v"), c.result);
    }
    const struct {
        const char* what;
        int (*write)(Registry&);
    } writers[] = {{"dword", [](Registry& r) { return r.SetDwordValue("v", 1); }},
                   {"text", [](Registry& r) { return r.SetStringValue("v", "x"); }},
                   {"bytes", [](Registry& r) { return r.SetBinaryValue("v", "x", 1); }}};
    for (const auto& writer : writers) {
        const RefusedOpen refused(2);
        EXPECT_EQ(writer.write(registry_), -4004) << writer.what;
    }
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "3:1234");
}

TEST_F(RegistryValuesTest, RightToQueryDoesNotWrite) {
    OpenKey();
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    registry_.SetAccessMask(KEY_QUERY_VALUE);
    EXPECT_EQ(Binary("v").output, "1234");
    EXPECT_EQ(registry_.SetDwordValue("v", 1), -4003);
    EXPECT_EQ(registry_.SetStringValue("v", "x"), -4003);
    EXPECT_EQ(registry_.SetBinaryValue("v", "x", 1), -4003);
    EXPECT_EQ(registry_.DeleteValue("v"), -4003);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "3:1234");
    registry_.SetAccessMask(KEY_SET_VALUE);
    ExpectReaders(-4006, "DDDD");
    EXPECT_EQ(registry_.SetDwordValue("v", 0x64636261), 0);
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "4:abcd");
    EXPECT_EQ(LogLines(), "") << "refused writes are told by the code alone";
}

TEST_F(RegistryValuesTest, RefusedQueryOfSizeAndType) {
    OpenKey();
    Put(HKEY_CURRENT_USER, "v", REG_BINARY, "1234");
    const ImportPatch patch("RegQueryValueExA", AnswerExistenceAlone);
    EXPECT_EQ(registry_.GetValueSize("v"), -4003);
    EXPECT_EQ(registry_.GetValueType("v"), -4003);
    EXPECT_EQ(Dword("v").result, -4006);
    EXPECT_EQ(Buffer("v").result, -4006);
    EXPECT_EQ(Binary("v").result, -4006);
    EXPECT_EQ(Text("v").result, -4003) << "its size comes first";
    EXPECT_EQ(Text("v").output, "PPPP");
}

TEST_F(RegistryValuesTest, DeletedValueIsGone) {
    OpenKey();
    registry_.SetDwordValue("v", 1);
    EXPECT_EQ(registry_.DeleteValue("v"), 0);
    EXPECT_FALSE(registry_.ValueExists("v"));
    EXPECT_EQ(Stored(HKEY_CURRENT_USER, "v"), "");
}

TEST_F(RegistryValuesTest, MissingNamesAndTextsAreBadArguments) {
    OpenKey();
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
    OpenKey();
    char value[] = "abc";
    const auto text = [this](const char* name, char* buffer, int size, const char* byDefault) {
        EXPECT_EQ(registry_.GetStringValue(name, buffer, size, byDefault), -4002);
    };
    text(nullptr, value, 3, "d");
    text("", value, 2, nullptr);
    text("n", nullptr, 4, "d");
    text("n", value, 0, "d");
    text("n", value, -1, "d");
    const auto getter = [](const std::string& values) {
        return Line("GetStringValue", "Registry::GetStringValue " + values, 568);
    };
    EXPECT_EQ(LogLines(), getter(R"(ValueName="NULL", Value="abc", ValueSize=3, DefaultValue="d")") +
                              getter(R"(ValueName="", Value="ab", ValueSize=2, DefaultValue="NULL")") +
                              getter(R"(ValueName="n", Value="NULL", ValueSize=4, DefaultValue="d")") +
                              getter(R"(ValueName="n", Value="", ValueSize=0, DefaultValue="d")") +
                              getter(R"(ValueName="n", Value="", ValueSize=-1, DefaultValue="d")"));
    EXPECT_STREQ(value, "abc") << "the default is not copied";
}

TEST_F(RegistryValuesTest, BadBytesAreReported) {
    OpenKey();
    EXPECT_EQ(registry_.SetBinaryValue(nullptr, "abc", 2), -4002);
    EXPECT_EQ(registry_.SetBinaryValue("n", nullptr, 2), -4002);
    EXPECT_EQ(registry_.SetBinaryValue("n", "abc", 0), -4002);
    char value[4] = "abc";
    EXPECT_EQ(registry_.GetBinaryValue("", value, 3, nullptr), -4002);
    EXPECT_EQ(registry_.GetBinaryValue("n", nullptr, 3, value), -4002);
    EXPECT_EQ(registry_.GetBinaryValue("n", value, 0, value), -4002);
    const auto setter = [](const std::string& values) {
        return Line("SetBinaryValue", "Registry::GetStringValue " + values, 626);
    };
    const auto getter = [](const char* name, const void* place, int size, const void* byDefault) {
        char values[160];
        std::snprintf(values, sizeof values, "ValueName=\"%s\", Value=\"%p\", ValueSize=%d, DefaultValue=\"%p\"", name,
                      place, size, byDefault);
        return Line("GetBinaryValue", std::string("Registry::GetBinaryValue ") + values, 669);
    };
    EXPECT_EQ(LogLines(), setter(R"(ValueName="NULL", Value="ab", ValueSize=2)") +
                              setter(R"(ValueName="n", Value="NULL", ValueSize=2)") +
                              setter(R"(ValueName="n", Value="", ValueSize=0)") + getter("", value, 3, nullptr) +
                              getter("n", nullptr, 3, value) + getter("n", value, 0, value));
}

}  // namespace
