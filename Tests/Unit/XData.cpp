#include "DrawingFixture.h"

#include <gtest/gtest.h>

#include <acedads.h>
#include <acutads.h>
#include <adscodes.h>

#include <cstring>
#include <string>
#include <vector>

#include "Util/ArxHandles.h"
#include "Util/XData.h"

namespace {

class XDataTest : public DrawingTest {
 protected:
    void SetUp() override {
        handle_ = AddDuct();
        Reopen();
    }
    void Reopen() { ASSERT_EQ(object_.Open(IdOf(handle_), AcDb::kForWrite), Acad::eOk); }
    void TearDown() override { object_.reset(); }

    AcDbObject* object() { return object_.get(); }
    void Close() { object_.reset(); }
    const std::string& handle() const { return handle_; }

    // Items of an application's chain, "code:text" each; of all applications for an empty name.
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
    void Store(const ResbufChain& chain) {
        ASSERT_TRUE(chain);
        ASSERT_EQ(object()->setXData(chain.get()), Acad::eOk);
    }
    std::string Get(const char* key) {
        char buffer[64] = "poison";
        const int length = GetXDataString(object(), "SORV", key, buffer, sizeof buffer);
        return length < 0 ? std::to_string(length) : std::string(buffer);
    }

 private:
    std::string handle_;
    OpenObject<AcDbObject> object_;
};

using Items = std::vector<std::string>;

}  // namespace

TEST_F(XDataTest, KeysAreRewrittenInPlace) {
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "Other", "x=y"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "key", "a longer text than before"), 0);
    EXPECT_EQ(this->Items("SORV"), (::Items{"1001:SORV", "1000:key=a longer text than before", "1000:Other=x=y"}));
    EXPECT_EQ(Get("KeY"), "a longer text than before");
    EXPECT_EQ(Get("OTHER"), "x=y");
    EXPECT_EQ(Get("missing"), "-2");
}

TEST_F(XDataTest, OtherApplicationsAndItemsStay) {
    acdbRegApp(L"FOREIGN");
    acdbRegApp(L"SORV");
    Store(ResbufChain(acutBuildList(AcDb::kDxfRegAppName, L"FOREIGN", AcDb::kDxfXdAsciiString, L"KEY=theirs",
                                    AcDb::kDxfXdInteger16, 7, RTNONE)));
    Store(ResbufChain(acutBuildList(AcDb::kDxfRegAppName, L"SORV", AcDb::kDxfXdInteger16, 42, AcDb::kDxfXdAsciiString,
                                    L"no pair", AcDb::kDxfXdAsciiString, L"KEY=first", AcDb::kDxfXdAsciiString,
                                    L"KEY=second", RTNONE)));
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "ours"), 0);
    EXPECT_EQ(this->Items("SORV"),
              (::Items{"1001:SORV", "1070:42", "1000:no pair", "1000:KEY=ours", "1000:KEY=second"}));
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "key"), 0);
    EXPECT_EQ(Get("KEY"), "second");
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "key"), 0);
    EXPECT_EQ(this->Items("SORV"), (::Items{"1001:SORV", "1070:42", "1000:no pair"}));
    EXPECT_EQ(this->Items("FOREIGN"), (::Items{"1001:FOREIGN", "1000:KEY=theirs", "1070:7"}));
}

TEST_F(XDataTest, RemovingTheLastKeyLeavesNoItem) {
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "missing"), 0);
    bench::FailCall("AcDbObject::setXData", 2);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), -1);
    EXPECT_EQ(Get("KEY"), "1");
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", "KEY"), 0);
    EXPECT_EQ(Get("KEY"), "-2");
}

TEST_F(XDataTest, NumbersAndPoints) {
    EXPECT_EQ(SetXDataPoint(object(), "SORV", "P", 1, 2.5, -3, 3), 0);
    EXPECT_EQ(Get("P"), "1.000,2.500,-3.000");
    EXPECT_EQ(SetXDataDouble(object(), "SORV", "D", 1.0 / 3, 10), 0);
    EXPECT_EQ(Get("D"), "0.3333333333");
    EXPECT_EQ(SetXDataFloat(object(), "SORV", "F", 2.25f, 1), 0);
    EXPECT_EQ(Get("F"), "2.2");
    EXPECT_EQ(SetXDataString(object(), "SORV", "T", "text"), 0);
    EXPECT_EQ(SetXDataString(object(), "SORV", "TWO", "1,2"), 0);

    double x = 9, y = 9, z = 9, real = 9;
    float single = 9;
    EXPECT_EQ(GetXDataPoint(object(), "SORV", "TWO", x, y, z), 0);
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

TEST_F(XDataTest, BadArgumentsChangeNothing) {
    EXPECT_EQ(SetXDataString(nullptr, "SORV", "K", "v"), -1);
    EXPECT_EQ(SetXDataString(object(), nullptr, "K", "v"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", nullptr, "v"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "K", nullptr), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "K", ""), -2);
    // Keys that would never be found again.
    for (const std::string& key : {std::string(40, 'k'), std::string("a=b"), std::string("a="), std::string(""),
                                   std::string(" a"), std::string("a\t"), std::string("a  "), std::string(" ")})
        EXPECT_EQ(SetXDataString(object(), "SORV", key.c_str(), "v"), -1) << key;
    EXPECT_EQ(RemoveXDataKey(nullptr, "SORV", "K"), -1);
    EXPECT_EQ(RemoveXDataKey(object(), nullptr, "K"), -1);
    EXPECT_EQ(RemoveXDataKey(object(), "SORV", nullptr), -1);
    EXPECT_EQ(this->Items(""), ::Items());
}

TEST_F(XDataTest, RefusedCallsGiveBackWhatTheyTook) {
    for (const char* call : {"acutNewRb", "acutUpdString", "AcDbObject::setXData"}) {
        bench::ClearFailures();
        bench::FailCall(call, 1);
        EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), -1) << call;
        EXPECT_EQ(this->Items(""), ::Items()) << call;
    }
    bench::ClearFailures();
    bench::FailCall("acutNewRb", 2);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), -1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "1"), 0);
    bench::ClearFailures();
    bench::FailCall("acutUpdString", 1);
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "2"), -1);
    EXPECT_EQ(Get("KEY"), "1");
}

TEST_F(XDataTest, ValuesAreCutToTheBuffer) {
    EXPECT_EQ(SetXDataString(object(), "SORV", "KEY", "12345"), 0);
    char buffer[] = "########";
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", buffer, 4), 3);
    EXPECT_EQ(std::string(buffer, 8), std::string("123\0####", 8));
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", buffer, 0), -1);
    EXPECT_EQ(GetXDataString(object(), "SORV", "KEY", nullptr, 8), -1);
}

TEST(XDataParse, KeyValuePairs) {
    const std::string key39(39, 'k'), key40(40, 'k');
    const struct {
        std::string entry;
        int length;
        std::string key, value;
    } cases[] = {
        {"key=value", 5, "KEY", "value"},
        {"  \t key =v", 1, "KEY", "v"},
        {"key  =v", 1, "KEY ", "v"},  // one trailing blank goes, the other stays
        {"a=b=c", 3, "A", "b=c"},
        {"key=", 0, "KEY", ""},
        {"key= v ", 3, "KEY", " v "},
        {key39 + "=v", 1, std::string(39, 'K'), "v"},
        {key40 + "=v", -1, "", ""},
        {"no pair", -1, "", ""},
        {"=v", -1, "", ""},
        {"   =v", -1, "", ""},
        {"key=123456789", 7, "KEY", "1234567"},
    };
    for (const auto& one : cases) {
        char key[kXDataKeySize + 1], value[9];
        std::memset(key, '#', sizeof key);
        std::memset(value, '#', sizeof value);
        EXPECT_EQ(ParseKeyValue(one.entry.c_str(), key, value, 8), one.length) << one.entry;
        EXPECT_EQ(key[kXDataKeySize], '#');
        EXPECT_EQ(value[8], '#');
        if (one.length < 0) continue;
        EXPECT_STREQ(key, one.key.c_str());
        EXPECT_STREQ(value, one.value.c_str());
    }
    char key[kXDataKeySize], value[8];
    EXPECT_EQ(ParseKeyValue(nullptr, key, value, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", nullptr, value, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", key, nullptr, 8), -1);
    EXPECT_EQ(ParseKeyValue("a=b", key, value, 0), -1);
}

TEST_F(XDataTest, EntitiesByHandle) {
    Close();
    EXPECT_EQ(SetEntityXData(handle().c_str(), "Code", "SORV1"), 0);
    EXPECT_EQ(GetEntityXData(handle().c_str(), "CODE"), "SORV1");
    EXPECT_EQ(GetEntityXData(handle().c_str(), "none"), "");
    EXPECT_EQ(SetEntityXData(handle().c_str(), "Code", ""), -2);
    EXPECT_EQ(SetEntityXData(handle().c_str(), "Long", std::string(2000, 'x').c_str()), 0);
    EXPECT_EQ(GetEntityXData(handle().c_str(), "Long"), std::string(1023, 'x'));
    EXPECT_EQ(bench::Transcript(), "");
    Reopen();
    EXPECT_EQ(this->Items("SORV"), (::Items{"1001:SORV", "1000:Code=SORV1", "1000:Long=" + std::string(2000, 'x')}));
}

TEST_F(XDataTest, EntitiesThatCannotBeReachedAreNamed) {
    const std::string head = "\nSorvik Klimora Cloud Plugin: Failed to ";
    const std::string set = head + "set entity data. PlugIn/Util/XDataByHandle(43):SetEntityXData ";
    const std::string get = head + "get entity data. PlugIn/Util/XDataByHandle(58):GetEntityXData ";
    Close();
    bench::AddEntity({"2F1", "EwaDuct", "LOCKED"});
    bench::LockLayer("LOCKED", true);
    const struct {
        const char* handle;
        const char* message;
        bool writes;
    } cases[] = {
        {"FFFF", "Can't get ACAD object id.", true},
        {"FFFF", "Can't get ACAD object id.", false},
        {nullptr, "Can't get ACAD object id.", true},
        {"2F1", "Can't open object. Check that layer is not locked.", true},
    };
    for (const auto& one : cases) {
        bench::ClearTranscript();
        if (one.writes) {
            EXPECT_EQ(SetEntityXData(one.handle, "K", "v"), -1);
        } else {
            EXPECT_EQ(GetEntityXData(one.handle, "K"), "");
        }
        EXPECT_EQ(bench::Transcript(), (one.writes ? set : get) + one.message + "\n");
    }
    bench::ClearTranscript();
    bench::ClearFailures();
    bench::FailCall("acdbOpenObject", 1);
    EXPECT_EQ(GetEntityXData(handle().c_str(), "K"), "");
    EXPECT_EQ(bench::Transcript(), get + "Can't open object for reading.\n");

    bench::CloseDrawing();
    bench::ClearTranscript();
    EXPECT_EQ(SetEntityXData(handle().c_str(), "K", "v"), -1);
    EXPECT_EQ(bench::Transcript(), set + "Can't get working database.\n");
}
