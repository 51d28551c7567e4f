// The product record as the database receives it: every attribute with its bytes, the messages of the ways out, what is
// given back, and the keys that are left on the device whatever came of the record. The database is a recorder here,
// and what is downloaded is empty.
#include <windows.h>
#include <wininet.h>

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

#include "ImportPatch.h"
#include "Lib/FormatText.h"
#include "SessionBench.h"
#include "kbase.h"

namespace {

// What the neighbours answer.
struct Answers {
    bool addresses[2] = {true, true};
    KB_HANDLE dictionary = 3, database = 4;
    bool creates = true, knowsModel = true;
    short saves = 0;
} answers;
std::vector<std::string> calls, attributes;
size_t fetched = 0;
int model = 0;  // its address is the record of the model; that of `answers` is the device's

HINTERNET WINAPI OpenAddress(HINTERNET, LPCSTR url, LPCSTR, DWORD, DWORD, DWORD_PTR) {
    calls.push_back(url);
    return answers.addresses[fetched++] ? &calls : nullptr;
}
BOOL WINAPI NothingToRead(HINTERNET, LPVOID, DWORD, LPDWORD read) {
    *read = 0;
    return TRUE;
}
BOOL WINAPI CloseNothing(HINTERNET) {
    return TRUE;
}
std::string FileName(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}
KB_HANDLE OpenDictionary(const char* path, int mode, int flags) {
    calls.push_back("dictionary " + FileName(path) + " " + std::to_string(mode) + " " + std::to_string(flags));
    return answers.dictionary;
}
KB_HANDLE OpenDatabase(const char* dictionary, const char* path, int flags) {
    calls.push_back("database " + FileName(dictionary) + " " + FileName(path) + " " + std::to_string(flags));
    return answers.database;
}
int FindClass(KB_HANDLE, const char* symbol, KB_CLASSID*) {
    calls.push_back(std::string("class '") + symbol + "'");
    return *symbol ? 1 : 0;
}
KB_RECORD CreateRecord(KB_HANDLE, const KB_CLASSID*, const char* key) {
    calls.push_back(std::string("create ") + key);
    return answers.creates ? &answers : nullptr;
}
short DeleteRecord(KB_HANDLE, const KB_CLASSID*, const char* key) {
    calls.push_back(std::string("delete ") + key);
    return -1;
}
// Its failure is not looked at.
short InsertAttribute(KB_HANDLE, KB_RECORD* record, short number, const void* value, short count) {
    EXPECT_EQ(*record, &answers);
    const std::map<short, size_t> sizes = {{1150, 2},  {1650, 22}, {1651, 8}, {1652, 12},
                                           {1653, 16}, {1654, 8},  {1110, 2}};
    const auto size = sizes.find(number);
    attributes.push_back(std::to_string(number) + " " +
                         (size != sizes.end() ? HexText(value, size->second * static_cast<size_t>(count))
                                              : "'" + std::string(static_cast<const char*>(value), count) + "'"));
    return -1;
}
KB_RECORD FindModel(KB_HANDLE, const char* className, const char* key, int flags) {
    calls.push_back(std::string("find ") + className + " " + key + " " + std::to_string(flags));
    return answers.knowsModel ? &model : nullptr;
}
short SaveRecord(KB_HANDLE, KB_RECORD) {
    calls.push_back("save");
    return answers.saves;
}
void ReleaseRecord(KB_RECORD record) {
    calls.push_back(record == &answers ? "release record" : record == &model ? "release model" : "release null");
}
void ReleaseDictionary(KB_HANDLE dictionary) {
    calls.push_back("release dictionary " + std::to_string(dictionary));
}
void CloseDatabase(KB_HANDLE database) {
    calls.push_back("close database " + std::to_string(database));
}

using Fields = std::vector<std::pair<std::string, std::string>>;
const std::string kMissing = "(missing)";
const std::string kBands =
    "<Lw63>300</Lw63><Lw125>2</Lw125><Lw250>3</Lw250><Lw500>4</Lw500><Lw1000>5</Lw1000><Lw2000>6</Lw2000>"
    "<Lw4000>7</Lw4000><Lw8000>8</Lw8000>";

Fields Dimensions(const std::string& fnc) {
    return {{"AirDeviceDimData", "<Fnc>" + fnc +
                                     "</Fnc><D1>250</D1><D2>0</D2><Qvmin>10</Qvmin><Qvmax>400</Qvmax><Dpmin>2</Dpmin>"
                                     "<Dpmax>50</Dpmax>"}};
}

// A device with these fields replaced, left out or, with a "+" before the name, added.
std::string Device(const Fields& changes, const std::string& tag = "device") {
    Fields fields = {{"ID", "KEY"},
                     {"ProductCodeALL", "KEY 1"},
                     {"DescriptionGBR", "Silencer"},
                     {"KModelID", "sv-Round"},
                     Dimensions("10")[0],
                     {"DpCurve", "<Qv>100</Qv><Dp>12</Dp>"},
                     {"QvDpLwPoints", "<Qv>100</Qv><Dp>12</Dp>" + kBands},
                     {"dLw", kBands},
                     {"Shape", "0"}};
    for (const auto& [name, contents] : changes) {
        auto field = fields.begin();
        while (field != fields.end() && field->first != name)
            ++field;
        if (field == fields.end()) {
            fields.emplace_back(name.substr(name.find_first_not_of('+')), contents);
        } else if (contents == kMissing) {
            fields.erase(field);
        } else {
            field->second = contents;
        }
    }
    std::string text = "<" + tag + ">";
    for (const auto& [name, contents] : fields)
        text += "<" + name + ">" + contents + "</" + name + ">";
    return text + "</device>";
}

class ProductRecord : public SessionBench {
 protected:
    ProductRecord() { EXPECT_EQ(session_.Initialize(), 0); }

    // Result, and what was told.
    std::pair<int, std::string> Build(const std::string& devices, const Answers& given = {},
                                      const std::string& command = "SorvSIL", const char* files = nullptr) {
        answers = given;
        EXPECT_EQ(
            Take(session_,
                 "<r>" +
                     std::string(files ? files : "<DdkFileUrl>http://d</DdkFileUrl><KpdFileUrl>http://k</KpdFileUrl>") +
                     devices + "</r>"),
            0);
        calls.clear();
        attributes.clear();
        fetched = 0;
        Printed();
        const int result = session_.AddDeviceFromXMLToDatabase(command);
        return {result, Printed()};
    }
    // The current device's own tag.
    std::string Keys() const {
        const std::string device = session_.CurrentDevice()->ToString();
        return device.substr(0, device.find('>') + 1);
    }
    static std::string Told(const std::string& text) {
        return Line("AddDeviceToKlimoraProject PlugIn/KL_Conn_DevicesData(418):KlConn::AddDeviceFromXMLToDatabase " +
                    text);
    }
    static bool Has(const std::string& attribute) {
        return std::find(attributes.begin(), attributes.end(), attribute) != attributes.end();
    }

    KlConn session_;

 private:
    const ImportPatch patches_[14] = {{"InternetOpenUrlA", OpenAddress},
                                      {"InternetReadFile", NothingToRead},
                                      {"InternetCloseHandle", CloseNothing},
                                      {"ddk_opendatabase", OpenDictionary},
                                      {"kbopendatabase", OpenDatabase},
                                      {"ddk_classsymboltoID", FindClass},
                                      {"kbcreaterec", CreateRecord},
                                      {"kbdeleterec", DeleteRecord},
                                      {"kbinsertatt", InsertAttribute},
                                      {"kbfindrec", FindModel},
                                      {"kbsaverec", SaveRecord},
                                      {"kbreleaserec", ReleaseRecord},
                                      {"ddk_releasedatabase", ReleaseDictionary},
                                      {"kbclosedatabase", CloseDatabase}};
};

TEST_F(ProductRecord, EveryCallAndAttributeInItsOrder) {
    Answers zero;
    zero.dictionary = zero.database = 0;  // a handle like any other
    zero.saves = 1;                       // no failure either
    EXPECT_EQ(Build(Device({{"DescriptionFIN", "Vaimennin"},
                            {"kpdWeblink", "http://x"},
                            {"kpdWeblinkGBR", "http://x/gb"},
                            {"MarketArea", "FIN;SWE"},
                            {"KmodelParams", "<L>900</L><B/><D>250</D>"},
                            {"+dLw", kBands},
                            {"+Shape", "1"}},
                           "device UserCode=''"),
                    zero),
              (std::pair{0, std::string()}));
    EXPECT_EQ(calls, (std::vector<std::string>{"http://d", "http://k", "dictionary output.ddk 1 0",
                                               "database output.ddk output.kpd 0", "class 'dSilencerType'",
                                               "delete KEY", "create KEY", "find KMD SV-ROUND 0", "release model",
                                               "save", "release record", "release dictionary 0", "close database 0"}));
    EXPECT_EQ(attributes,
              (std::vector<std::string>{
                  "1150 0000", "1503 'Sorvik'", "1562 'KEY 1'", "9550 'Vaimennin'", "9552 'Silencer'",
                  "8529 'http://x'", "8503 'http://x/gb'", "1512 'FIN;SWE'", "1525 'SV-ROUND'", "1507 'L=900;D=250'",
                  "1650 0A00FA000000000020410000C8430000004000004842", "1651 0000C84200004041",
                  "1653 0000C842000040412C02030405060708", "1654 2C020304050607082C02030405060708", "1110 00000100"}));
    EXPECT_EQ(Keys(),
              "<device UserCode=\"\" KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\" ProductKey=\"KEY\">");
}

TEST_F(ProductRecord, PressureDropFollowsFncAndTheRestMayBeMissing) {
    const std::string point = "1651 0000C84200004041", curves = "1652 0000803F0000003F00000040000000400000803F00000041";
    for (const auto& [fnc, points, curved] : {std::tuple{"10", true, false},
                                              {"110", true, false},
                                              {"20", false, true},
                                              {"120", false, true},
                                              {"30", false, false},
                                              {"0", false, false}}) {
        Fields fields = Dimensions(fnc);
        fields.insert(fields.end(), {{"+aDpCurves", "<A>1</A><Dp>2</Dp><Qv>0.5</Qv>"},
                                     {"+aDpCurves", "<A>2</A><Dp>8</Dp><Qv>1</Qv>"},
                                     {"QvDpLwPoints", kMissing},
                                     {"dLw", kMissing},
                                     {"KmodelParams", "<A/><B/>"}});
        EXPECT_EQ(Build(Device(fields)).first, 0) << fnc;
        EXPECT_EQ(Has(point), points) << fnc;
        EXPECT_EQ(Has(curves), curved) << fnc;
        EXPECT_TRUE(Has("1507 ''"));
        EXPECT_EQ(attributes.size(), points || curved ? 9u : 8u);
    }
}

TEST_F(ProductRecord, LastOfSeveralDevicesBecomesCurrent) {
    EXPECT_EQ(Build(Device({}, "device UserCode='S'") + Device({{"ID", "KEY2"}})).first, 0);
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "release record"), 1) << "the first one's is not released";
    EXPECT_EQ(Keys(),
              "<device KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY2\" ProductKey=\"KEY2\" "
              "UserCode=\"SORV2\">");
    EXPECT_EQ(Build(Device({}, "device UserCode='S'") + Device({{"ID", "KEY2"}, {"Shape", kMissing}})).first, -1);
    EXPECT_EQ(Keys(),
              "<device UserCode=\"S\" KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY2\" "
              "ProductKey=\"KEY2\">")
        << "the first stays current, under the key that was reached";
}

TEST_F(ProductRecord, EveryMessageAboutADevice) {
    const struct {
        Fields changes;
        const char* text;
    } cases[] = {
        {{{"ID", kMissing}}, "Parameter 'ID' is not defined."},
        {{{"ProductCodeALL", kMissing}}, "Mandatory parameter 'ProductCodeALL' is not defined."},
        {{{"DescriptionGBR", kMissing}}, "Mandatory parameter 'DescriptionGBR' is not defined."},
        {{{"DescriptionGBR", ""}}, "Mandatory parameter 'DescriptionGBR' is empty."},
        {{{"KModelID", kMissing}}, "Mandatory parameter 'KModelID' is not defined."},
        {{{"KModelID", ""}}, "Mandatory parameter 'KModelID' is empty."},
        {{{"AirDeviceDimData", kMissing}}, "Parameter 'AirDeviceDimData' is not defined."},
        {{{"DpCurve", kMissing}}, "Parameter 'DpCurve' is not defined."},
        {{{"DpCurve", kMissing}, Dimensions("110")[0]}, "Parameter 'DpCurve' is not defined."},
        {Dimensions("20"), "Parameter 'aDpCurves' is not defined"},
        {Dimensions("120"), "Parameter 'aDpCurves' is not defined"},
        {{{"Shape", kMissing}}, "Parameter 'Shape' is not defined."},
        // Where a piece is required, the XML library names it.
        {{{"ID", ""}}, "Element <ID> has no text"},
        {{{"ProductCodeALL", ""}}, "Element <ProductCodeALL> has no text"},
        {{{"kpdWeblink", ""}}, "Element <kpdWeblink> has no text"},
        {{{"MarketArea", ""}}, "Element <MarketArea> has no text"},
        {{{"AirDeviceDimData", "<Fnc>10</Fnc>"}}, "Element <AirDeviceDimData> has no child element <D1>"},
        {{{"DpCurve", "<Qv>1</Qv>"}}, "Element <DpCurve> has no child element <Dp>"},
        {{{"Shape", ""}}, "Element <Shape> has no text"},
        {{{"dLw", "<Lw63/>"}}, "Element <Lw63> has no text"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Build(Device(c.changes)), (std::pair{-1, Told(c.text)}));
        EXPECT_EQ(calls.back(), "close database 4");
        EXPECT_EQ(calls[calls.size() - 2], "release dictionary 3");
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "save"), 0);
    }
    for (const auto& [files, named] : {std::pair{"", "<DdkFileUrl>"},
                                       {"<DdkFileUrl/>", "<DdkFileUrl>"},
                                       {"<DdkFileUrl>d</DdkFileUrl>", "<KpdFileUrl>"}}) {
        const std::string told = Build(Device({}), {}, "SorvSIL", files).second;
        EXPECT_EQ(told.find(Told("").substr(0, 90)), 0u);
        EXPECT_NE(told.find(named), std::string::npos) << told;
    }
}

TEST_F(ProductRecord, EveryRefusalOfTheNeighbours) {
    const auto refusing = [](auto change) {
        Answers refusal;
        change(refusal);
        return refusal;
    };
    const std::string folder = session_.WorkingFolder(), dictionary = folder + "/output.ddk",
                      network = "Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n",
                      noneOpen = "release dictionary 0,close database 0",
                      bothOpen = "release dictionary 3,close database 4", record = "release record," + bothOpen,
                      known = "KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\"";
    const struct {
        Answers answers;
        std::string told, end;  // the last calls
        std::string keys;
    } cases[] = {
        {refusing([](Answers& a) { a.addresses[0] = false; }),
         network + Told("Can't download Klimora database dictionary http://d"), "http://d," + noneOpen, ""},
        {refusing([](Answers& a) { a.addresses[1] = false; }),
         network + Told("Can't download Klimora database http://k"), "http://k," + noneOpen, ""},
        {refusing([](Answers& a) { a.dictionary = -2; }), Told("Can't open kbase database dictionary " + dictionary),
         "dictionary output.ddk 1 0,close database 0", ""},
        {refusing([](Answers& a) { a.database = -1; }),
         Told("Can't open kbase database " + dictionary + " " + folder + "/output.kpd"),
         "database output.ddk output.kpd 0,release dictionary 3", ""},
        {refusing([](Answers& a) { a.creates = false; }), Told("Can't create kbase record for device."),
         "create KEY," + bothOpen, known},
        {refusing([](Answers& a) { a.knowsModel = false; }),
         Told("Can't find kmodel ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 in a database."), "release null," + record, known},
        {refusing([](Answers& a) { a.saves = -1; }), Told("Can'save device database record."), "save," + record, known},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Build(Device({{"KModelID", "abcdefghijklmnopqrstuvwxyz0123456789"}}), c.answers),
                  (std::pair{-1, c.told}));
        std::string all;
        for (const std::string& call : calls)
            all += "," + call;
        EXPECT_EQ(all.substr(all.size() - std::min(all.size(), c.end.size() + 1)), "," + c.end);
        EXPECT_NE(Keys().find(c.keys), std::string::npos) << Keys();
    }
    EXPECT_EQ(Build(Device({}, "device UserCode='S'"), {}, "sorvsil"),
              (std::pair{-1, Told("Can't get device class id.")}));
    EXPECT_EQ(Keys(), "<device UserCode=\"S\" KPDClassName=\"\" ProductFamilyKey=\"\" ProductKey=\"\">");
}

}  // namespace
