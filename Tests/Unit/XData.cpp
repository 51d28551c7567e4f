#include "DrawingFixture.h"

#include <acedads.h>
#include <acutads.h>
#include <adscodes.h>

#include "Util/ArxHandles.h"
#include "Util/XData.h"

namespace {

class XDataTest : public DrawingTest {
 protected:
    void SetUp() override { Reopen(); }
    void Reopen() { ASSERT_EQ(open_.Open(IdOf(handle_), AcDb::kForWrite), Acad::eOk); }
    void TearDown() override { open_.reset(); }

    AcDbObject* object() { return open_.get(); }

    // Items of an application's chain, "code:text" each; all applications' for an empty name.
    std::vector<std::string> Items(const std::string& application) {
        std::vector<std::string> items;
        const std::wstring name = Widen(application);
        const ResbufChain chain(object()->xData(application.empty() ? nullptr : name.c_str()));
        for (const resbuf* item = chain.get(); item; item = item->rbnext) {
            const bool isText = item->restype == AcDb::kDxfXdAsciiString || item->restype == AcDb::kDxfRegAppName;
            const std::string value = isText ? Narrow(item->resval.rstring) : std::to_string(item->resval.rint);
            items.push_back(std::to_string(item->restype) + ":" + value);
        }
        return items;
    }
    std::string Get(const char* key) {
        char buffer[64] = "sentinel";
        const int length = GetXDataString(object(), "SORV", key, buffer, sizeof buffer);
        return length < 0 ? std::to_string(length) : std::string(buffer);
    }

    const std::string handle_ = AddDuct();
    OpenObject<AcDbObject> open_;
};

using Texts = std::vector<std::string>;

}  // namespace

TEST_F(XDataTest, RewritesKeysInPlace) {
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "Other", "x=y"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "key", "a longer text than before"), 0);
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1000:key=a longer text than before", "1000:Other=x=y"}));
    EXPECT_EQ(Get("KeY"), "a longer text than before");
    EXPECT_EQ(Get("OTHER"), "x=y");
    EXPECT_EQ(Get("missing"), "-2");
}

TEST_F(XDataTest, WritesOuterBlanksOfAKeyAndIgnoresThem) {
    EXPECT_EQ(SetXDataString(object(), "SORV", " \tKey ", "1"), 0);
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1000: \tKey =1"}));
    EXPECT_EQ(Get("key"), "1");
    EXPECT_EQ(Get("  KEY "), "1");
    EXPECT_EQ(Get("key  "), "-2") << "only one blank at the end is ignored";
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "2"), 0);
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1000:KEY=2"}));
}

TEST_F(XDataTest, KeepsOtherApplicationsAndItems) {
    acdbRegApp(L"FOREIGN");
    acdbRegApp(L"SORV");
    const ResbufChain chain(acutBuildList(1001, L"FOREIGN", 1000, L"KEY=theirs", 1070, 7, 1001, L"SORV", 1070, 42, 1000,
                                          L"no pair", 1000, L"KEY=first", 1000, L"KEY=second", RTNONE));
    ASSERT_EQ(object()->setXData(chain.get()), Acad::eOk);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "ours"), 0);
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1070:42", "1000:no pair", "1000:KEY=ours", "1000:KEY=second"}));
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "key"), 0);
    EXPECT_EQ(Get("KEY"), "second");
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "key"), 0);
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1070:42", "1000:no pair"}));
    EXPECT_EQ(Items("FOREIGN"), (Texts{"1001:FOREIGN", "1000:KEY=theirs", "1070:7"}));
}

TEST_F(XDataTest, RemovesTheLastKey) {
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "missing"), 0);
    bench::FailCall("AcDbObject::setXData", 2);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), -1);
    EXPECT_EQ(Get("KEY"), "1");
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), 0);
    EXPECT_EQ(Get("KEY"), "-2");
}

TEST_F(XDataTest, ReadsAndWritesNumbersAndPoints) {
    EXPECT_EQ(SetXDataPoint(object(), "SORV", "P", 1, 2.5, -3, 3), 0);
    EXPECT_EQ(Get("P"), "1.000,2.500,-3.000");
    EXPECT_EQ(SetXDataDouble(object(), "SORV", "D", 1.0 / 3, 10), 0);
    EXPECT_EQ(Get("D"), "0.3333333333");
    EXPECT_EQ(SetXDataFloat(object(), "SORV", "F", 2.25f, 1), 0);
    EXPECT_EQ(Get("F"), "2.2");
    EXPECT_EQ(SetXDataString(object(), "SORV", "T", "text"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "TWO", "1,2"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "GAP", "1,,3"), 0);

    double x = 9, y = 9, z = 9, real = 9;
    float single = 9;
    EXPECT_EQ(GetXDataPoint(object(), "SORV", "TWO", x, y, z), 0);
    EXPECT_EQ(GetXDataPoint(object(), "SORV", "GAP", x, y, z), 0);
    EXPECT_EQ(GetXDataDouble(object(), "SORV", "T", real), 0);
    EXPECT_EQ(GetXDataFloat(object(), "SORV", "T", single), 0);
    EXPECT_EQ(GetXDataPoint(object(), "SORV", "missing", x, y, z), -2);
    EXPECT_EQ(GetXDataDouble(object(), "SORV", nullptr, real), -1);
    EXPECT_EQ(GetXDataFloat(nullptr, "SORV", "F", single), -1);
    EXPECT_EQ(std::vector<double>({x, y, z, real, single}), std::vector<double>(5, 9));
    EXPECT_EQ(GetXDataPoint(object(), "SORV", "P", x, y, z), 1);
    EXPECT_EQ(GetXDataDouble(object(), "SORV", "D", real), 1);
    EXPECT_EQ(GetXDataFloat(object(), "SORV", "F", single), 1);
    EXPECT_EQ(std::vector<double>({x, y, z, real}), std::vector<double>({1, 2.5, -3, 0.3333333333}));
    EXPECT_FLOAT_EQ(single, 2.2f);
    EXPECT_EQ(SetXDataPoint(object(), "SORV", std::string(39, 'k').c_str(), 1e200, -1e200, 1e200, 200), 0);
    EXPECT_EQ(GetXDataPoint(object(), "SORV", std::string(39, 'K').c_str(), x, y, z), 1);
    EXPECT_EQ(std::vector<double>({x, y, z}), std::vector<double>({1e200, -1e200, 1e200})) << "1,208 characters";
}

TEST_F(XDataTest, RejectsBadArguments) {
    EXPECT_EQ(SetXDataString(nullptr, "SORV", "K", "v"), -1);
    EXPECT_EQ(SetXDataString(object(), nullptr, "K", "v"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", nullptr, "v"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "K", nullptr), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "K", ""), -2);
    // Keys that could not be read back.
    for (const std::string& key :
         {std::string(40, 'k'), std::string("a=b"), std::string("a="), std::string(""), std::string(" ")}) {
        EXPECT_EQ(SetXDataString(object(), "SORV", key.c_str(), "v"), -1) << key;
        EXPECT_EQ(SetXDataString(object(), "SORV", key.c_str(), ""), -2) << key;
    }
    EXPECT_EQ(RemoveXDataKey(nullptr, "SORV", "K"), -1);
    EXPECT_EQ(RemoveXDataKey(object(), nullptr, "K"), -1);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", nullptr), -1);
    EXPECT_EQ(Items(""), Texts());
}

TEST_F(XDataTest, ReleasesEverythingWhenACallFails) {
    for (const char* call : {"acutNewRb", "acutUpdString", "AcDbObject::setXData"}) {
        bench::ClearFaults();
        bench::FailCall(call, 1);
        EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), -1) << call;
        EXPECT_EQ(Items(""), Texts()) << call;
    }
    bench::ClearFaults();
    bench::FailCall("acutNewRb", 2);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    bench::ClearFaults();
    bench::FailCall("acutUpdString", 1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "2"), -1);
    EXPECT_EQ(Get("KEY"), "1");
}

TEST_F(XDataTest, TruncatesValuesToTheBuffer) {
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "12345"), 0);
    char buffer[] = "########";
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", buffer, 4), 3);
    EXPECT_EQ(std::string(buffer, 8), std::string("123\0####", 8));
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", buffer, 0), -1);
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", nullptr, 8), -1);
}

TEST(XDataParse, ReadsKeyValuePairs) {
    const struct {
        std::string entry;
        int length;
        std::string key, value;
    } cases[] = {
        {"key=value", 5, "KEY", "value"},
        {"  \t key =v", 1, "KEY", "v"},
        {"key  =v", 1, "KEY ", "v"},  // removes only one trailing blank
        {"!key!=v", 1, "!KEY!", "v"},
        {"\xE5k\xE4=v", 1, "\xE5K\xE4", "v"},  // letters, not blanks
        {"a=b=c", 3, "A", "b=c"},
        {"key=", 0, "KEY", ""},
        {"key= v ", 3, "KEY", " v "},
        {std::string(39, 'k') + "=v", 1, std::string(39, 'K'), "v"},
        {std::string(40, 'k') + "=v", -1, "", ""},
        {"no pair", -1, "", ""},
        {"=v", -1, "", ""},
        {"   =v", -1, "", ""},
        {"key=123456789", 7, "KEY", "1234567"},
    };
    for (const auto& one : cases) {
        std::string key(41, '#'), value(9, '#');
        EXPECT_EQ(ParseKeyValue(one.entry.c_str(), key.data(), value.data(), 8), one.length) << one.entry;
        EXPECT_EQ(key.substr(40) + value.substr(8), "##");
        if (one.length < 0) continue;
        EXPECT_STREQ(key.c_str(), one.key.c_str());
        EXPECT_STREQ(value.c_str(), one.value.c_str());
    }
    char key[kXDataKeySize], value[8];
    EXPECT_EQ(ParseKeyValue(nullptr, key, value, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", nullptr, value, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", key, nullptr, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", key, value, 0), -1);
}

TEST_F(XDataTest, ReadsAndWritesEntitiesByHandle) {
    open_.reset();
    const char* const handle = handle_.c_str();
    EXPECT_EQ(SetEntityXData(handle, "Code", "SORV1"), 0);
    EXPECT_EQ(GetEntityXData(handle, "CODE"), "SORV1");
    EXPECT_EQ(GetEntityXData(handle, "none"), "");
    EXPECT_EQ(SetEntityXData(handle, "Code", ""), -2);
    EXPECT_EQ(SetEntityXData(handle, "Long", std::string(2000, 'x').c_str()), 0);
    EXPECT_EQ(GetEntityXData(handle, "Long"), std::string(1023, 'x'));
    EXPECT_EQ(bench::Transcript(), "");
    Reopen();
    EXPECT_EQ(Items("SORV"), (Texts{"1001:SORV", "1000:Code=SORV1", "1000:Long=" + std::string(2000, 'x')}));
}

TEST_F(XDataTest, ReportsUnreachableEntities) {
    open_.reset();
    bench::AddEntity({"2F1", "EwaDuct", "LOCKED"});
    bench::LockLayer("LOCKED", true);
    const auto set = [](const char* handle) {
        bench::ClearTranscript();
        EXPECT_EQ(SetEntityXData(handle, "K", "v"), -1);
        return bench::Transcript();
    };
    const auto get = [](const char* handle) {
        bench::ClearTranscript();
        EXPECT_EQ(GetEntityXData(handle, "K"), "");
        return bench::Transcript();
    };
    const std::string head = "\nSorvik Klimora Cloud Plugin: Failed to ";
    const std::string notSet = head + "set entity data. PlugIn/Util/XDataByHandle(43):SetEntityXData ";
    const std::string notRead = head + "get entity data. PlugIn/Util/XDataByHandle(58):GetEntityXData ";
    for (const char* const nowhere : {"FFFF", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(set(nowhere), notSet + "Can't get ACAD object id.\n");
        EXPECT_EQ(get(nowhere), notRead + "Can't get ACAD object id.\n");
    }
    EXPECT_EQ(set("2F1"), notSet + "Can't open object. Check that layer is not locked.\n");
    EXPECT_EQ(get("2F1"), "") << "a locked layer does not prevent reading";
    bench::ClearFaults();
    bench::FailCall("acdbOpenObject", 1);
    EXPECT_EQ(get(handle_.c_str()), notRead + "Can't open object for reading.\n");
    bench::CloseDrawing();
    EXPECT_EQ(set(handle_.c_str()), notSet + "Can't get working database.\n");
}
