// The product record as the database receives it: every attribute with its bytes, the message of each failure, what is
// released, and the keys that stay on the device even after a failure. The database calls are only recorded, and the
// downloaded files are empty.
#include "RecordedCalls.h"

#include <algorithm>
#include <sstream>
#include <wininet.h>

#include "BenchTexts.h"
#include "CommaLocale.h"
#include "LocalisedAttributes.h"
#include "SessionBench.h"
#include "kbase.h"

namespace {

// Results of network and database.
struct Results {
    const char* unknown = "";  // the address that is not found
    KB_HANDLE dictionary = 3, database = 4;
    bool creates = true, knowsModel = true;
    short saves = 0;
    bool hasSpace = true;  // for texts of languages and countries
} results;
std::string attributes;  // one line each

// The module ignores its failure.
short InsertAttribute(KB_HANDLE database, KB_RECORD* record, short number, const void* value, short count) {
    EXPECT_TRUE(database == results.database && *record == &results);
    if (!results.hasSpace && (number == 9552 || number == 8501)) throw std::runtime_error("no space");
    const std::map<short, int> sizes = {{1150, 2}, {1650, 22}, {1651, 8}, {1652, 12}, {1653, 16}, {1654, 8}, {1110, 2}};
    const auto size = sizes.find(number);
    const auto bytes = [&](int each) {
        return std::string(static_cast<const char*>(value), static_cast<size_t>(count * each));
    };
    attributes += std::to_string(number) + " " +
                  (size != sizes.end() ? bench::Hex(bytes(size->second)) : bench::Quoted(bytes(1))) + "\n";
    return -1;
}

const std::string kBands =
    "<Lw63>300</Lw63><Lw125>-1</Lw125><Lw250>0</Lw250><Lw500>12.9</Lw500><Lw1000>x</Lw1000><Lw2000>255</Lw2000>"
    "<Lw4000>256</Lw4000><Lw8000> 7</Lw8000>";
const std::string kDevice =
    "<device><ID>KEY</ID><ProductCodeALL>KEY 1</ProductCodeALL><DescriptionGBR>Silencer</DescriptionGBR>"
    "<KModelID>sv-Round</KModelID><AirDeviceDimData><Fnc>10</Fnc><D1>250</D1><D2>-2</D2><Qvmin>0.5</Qvmin>"
    "<Qvmax>400</Qvmax><Dpmin>2</Dpmin><Dpmax>50</Dpmax></AirDeviceDimData><DpCurve><Qv>100</Qv><Dp>12</Dp></DpCurve>"
    "<QvDpLwPoints><Qv>100</Qv><Dp>12</Dp>" +
    kBands + "</QvDpLwPoints><dLw>" + kBands + "</dLw><Shape>0</Shape></device>";
const std::string kUsed = ReplaceAll(kDevice, "<device", "<device UserCode='S'");
const char kMissing[] = "(missing)";

// The device with the element's contents replaced, or without it.
std::string With(const std::string& name, const std::string& contents, std::string device = kDevice) {
    const std::string start = "<" + name + ">", end = "</" + name + ">";
    const size_t from = device.find(start);
    return device.replace(from, device.find(end) + end.size() - from,
                          contents == kMissing ? "" : start + contents + end);
}

class ProductRecord : public SessionBench {
 protected:
    ProductRecord() {
        EXPECT_EQ(session_.Initialize(), 0);
        calls_.Record("InternetOpenUrlA", InternetOpenUrlA, [](HINTERNET, const char* url, auto...) -> HINTERNET {
            return url == std::string(results.unknown) ? nullptr : &results;
        });
        calls_.Record("ddk_opendatabase", ddk_opendatabase, [](auto...) { return results.dictionary; });
        calls_.Record("kbopendatabase", kbopendatabase, [](auto...) { return results.database; });
        calls_.Record("ddk_classsymboltoID", ddk_classsymboltoID,
                      [](auto, auto* symbol, auto) { return *symbol != 0; });
        calls_.Record("kbcreaterec", kbcreaterec, [](auto...) { return results.creates ? &results : nullptr; });
        calls_.Return("kbdeleterec", kbdeleterec, -1);
        calls_.Record("kbfindrec", kbfindrec, [](auto...) { return results.knowsModel ? &attributes : nullptr; });
        calls_.Record("kbsaverec", kbsaverec, [](auto...) { return results.saves; });
        calls_.Record("kbreleaserec", kbreleaserec, [](auto) {});
        calls_.Record("ddk_releasedatabase", ddk_releasedatabase, [](auto) {});
        calls_.Record("kbclosedatabase", kbclosedatabase, [](auto) {});
    }

    // Returns the result and what was printed; the calls are in `called_`.
    std::pair<int, std::string> Build(
        const std::string& devices, const Results& given = {}, const std::string& command = "SorvSIL",
        const std::string& files = "<DdkFileUrl>d</DdkFileUrl><KpdFileUrl>k</KpdFileUrl>") {
        results = given;
        EXPECT_EQ(Take(session_, "<r>" + files + devices + "</r>"), 0);
        attributes.clear();
        Printed();
        calls_.Take();
        const int result = session_.AddDeviceFromXMLToDatabase(command);
        called_ = ReplaceAll(calls_.Take(), session_.WorkingFolder(), "{folder}");
        return {result, Printed()};
    }
    bool CallsEndWith(const std::string& end) const {
        return called_.size() >= end.size() && called_.substr(called_.size() - end.size()) == end;
    }
    // The start tag of the current device.
    std::string Keys() const {
        const std::string device = session_.CurrentDevice()->ToString();
        return device.substr(0, device.find('>') + 1);
    }
    static std::string Reported(const std::string& text) {
        return Line("AddDeviceToKlimoraProject PlugIn/KL_Conn_DevicesData(418):KlConn::AddDeviceFromXMLToDatabase " +
                    text);
    }

    KlConn session_;
    std::string called_;
    const std::string released_ = "ddk_releasedatabase 3\nkbclosedatabase 4\n";

 private:
    const CommaLocale locale_;
    RecordedCalls calls_;
    const ImportPatch insertions_{"kbinsertatt", InsertAttribute};
    // A real session is slow under Wine.
    const ImportPatch connected_{"InternetGetConnectedState", +[](DWORD*, DWORD) -> BOOL { return TRUE; }};
    const ImportPatch openings_{
        "InternetOpenA", +[](const char*, DWORD, const char*, const char*, DWORD) -> HINTERNET { return &attributes; }};
    const ImportPatch options_{"InternetSetOptionA", +[](HINTERNET, DWORD, void*, DWORD) -> BOOL { return TRUE; }};
    // A transfer that breaks off counts as complete.
    const ImportPatch nothingToRead_{"InternetReadFile",
                                     +[](HINTERNET, void*, DWORD, DWORD* read) -> BOOL { return *read = 0, FALSE; }};
    const ImportPatch closings_{"InternetCloseHandle", +[](HINTERNET) -> BOOL { return TRUE; }};
};

TEST_F(ProductRecord, MakesEveryCallAndWritesEveryAttributeInOrder) {
    Results zero;
    zero.dictionary = zero.database = 0;  // a valid handle
    zero.saves = 1;                       // not a failure
    std::string device = ReplaceAll(
        kDevice, "<DescriptionGBR>",
        "<DescriptionFIN>Vaimennin</DescriptionFIN><kpdWeblink>http://x</kpdWeblink><kpdWeblinkGBR>http://x/gb"
        "</kpdWeblinkGBR><MarketArea>FIN;SWE</MarketArea><KmodelParams><L>900</L><B/><D>250</D></KmodelParams>"
        "<DescriptionGBR>");
    device = ReplaceAll(device, "<Shape>", "<dLw>" + kBands + "</dLw><Shape>1</Shape><Shape>");
    EXPECT_EQ(Build(ReplaceAll(device, "<device", "<device UserCode=''"), zero), (std::pair{0, std::string()}));
    EXPECT_EQ(called_,
              "InternetOpenUrlA & \"d\" null 0x0 0x84000200 0x0\nInternetOpenUrlA & \"k\" null 0x0 0x84000200 0x0\n"
              "ddk_opendatabase \"{folder}/output.ddk\" 1 0\n"
              "kbopendatabase \"{folder}/output.ddk\" \"{folder}/output.kpd\" 0\n"
              "ddk_classsymboltoID 0 \"dSilencerType\" &\nkbdeleterec 0 & \"KEY\"\nkbcreaterec 0 & \"KEY\"\n"
              "kbfindrec 0 \"KMD\" \"SV-ROUND\" 0\nkbreleaserec kbfindrec\nkbsaverec 0 kbcreaterec\n"
              "kbreleaserec kbcreaterec\nddk_releasedatabase 0\nkbclosedatabase 0\n");
    EXPECT_EQ(attributes,
              "1150 0000\n1503 'Sorvik'\n1562 'KEY 1'\n9550 'Vaimennin'\n9552 'Silencer'\n8529 'http://x'\n"
              "8503 'http://x/gb'\n1512 'FIN;SWE'\n1525 'SV-ROUND'\n1507 'L=900;D=250'\n"
              "1650 0A00FA00FEFF0000003F0000C8430000004000004842\n1651 0000C84200004041\n"
              "1653 0000C842000040412CFF000C00FF0007\n1654 2CFF000C00FF00072CFF000C00FF0007\n1110 01000000\n");
    EXPECT_EQ(Keys(),
              "<device UserCode=\"\" KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\" ProductKey=\"KEY\">");
}

TEST_F(ProductRecord, WritesEveryLanguageAndCountryInOrder) {
    std::ifstream dictionary(SAMPLE_FOLDER "/sorvik.ddk");
    std::string descriptions, links;
    std::string device = ReplaceAll(With("DescriptionGBR", kMissing), "<ID>", "<descriptiongbr>b</descriptiongbr><ID>");
    for (std::string line; std::getline(dictionary, line);) {
        std::string word, number, name;
        std::istringstream(line) >> word >> number >> word >> word >> word >> name;
        const bool describes = name.rfind("Description", 0) == 0;
        if (!describes && (name.rfind("kpdWeblink", 0) != 0 || name == "kpdWeblink")) continue;
        (describes ? descriptions : links) += number + " 'D\xC3\xA4mpfer " + name + "'\n";
        device.insert(8, "<" + name + ">D\xC3\xA4mpfer " + name + "</" + name + ">");
    }
    const std::string all = descriptions + links;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 31 + 34);
    EXPECT_EQ(Build(device), (std::pair{0, std::string()}));
    EXPECT_NE(attributes.find("'KEY 1'\n" + all + "1525 "), std::string::npos) << attributes;
    // A failure ends the languages or the countries and is reported.
    Results full;
    full.hasSpace = false;
    EXPECT_EQ(
        Build(device, full),
        (std::pair{0,
                   Line("SetAttributeDescriptionNN PlugIn/KL_Conn_DevicesData(74):SetAttributeDescriptionNN no space") +
                       Line("SetAttributeWebLinkNN PlugIn/KL_Conn_DevicesData(140):SetAttributeWebLinkNN no space")}));
    EXPECT_EQ(attributes.find("9553"), std::string::npos);
    EXPECT_EQ(attributes.find("8502"), std::string::npos);
    EXPECT_EQ(Build(With("DescriptionGBR", "a", ReplaceAll(kDevice, "<ID>", "<DescriptionFIN/><ID>"))).first, 0);
    EXPECT_EQ(attributes.find("9550"), std::string::npos) << "an empty text is not written";
    KB_RECORD record = &results;
    EXPECT_EQ(SetAttributeDescriptionNN(&results.database, &record, *session_.CurrentDevice()), 0);
    EXPECT_EQ(SetAttributeWebLinkNN(&results.database, &record, *session_.CurrentDevice()), 0);
}

TEST_F(ProductRecord, WritesWholeTextsWithLfLineEnds) {
    const std::string longText(32767, 'x');
    EXPECT_EQ(Build(With("DescriptionGBR", "<![CDATA[two\r\nlines\r]]>", With("ProductCodeALL", longText))).first, 0);
    EXPECT_NE(attributes.find("\n1562 '" + longText + "'\n9552 'two\nlines\n'\n"), std::string::npos)
        << attributes.substr(attributes.find("\n9552"));
}

TEST_F(ProductRecord, WritesThePressureDropThatFncSelects) {
    const std::string point = "1651 0000C84200004041\n",
                      curves = "1652 0000803F0000003F00000040000000400000803F00000041\n";
    for (const auto& [fnc, stored] :
         {std::pair{"10", point}, {"110", point}, {"20", curves}, {"120", curves}, {"30", ""}, {"0", ""}}) {
        std::string device = With("Fnc", fnc, With("QvDpLwPoints", kMissing, With("dLw", kMissing)));
        device =
            ReplaceAll(device, "<DpCurve>",
                       "<aDpCurves><A>1</A><Dp>2</Dp><Qv>0.5</Qv></aDpCurves><aDpCurves><A>2</A><Dp>8</Dp><Qv>1</Qv>"
                       "</aDpCurves><KmodelParams><A/><B/></KmodelParams><DpCurve>");
        EXPECT_EQ(Build(device).first, 0) << fnc;
        EXPECT_EQ(attributes.substr(attributes.find("1507")).replace(8, 50, ""), "1507 ''\n" + stored + "1110 0000\n");
    }
}

TEST_F(ProductRecord, MakesTheLastDeviceCurrent) {
    EXPECT_EQ(Build(kUsed + With("ID", "KEY2")).first, 0);
    EXPECT_TRUE(CallsEndWith("kbsaverec 4 kbcreaterec\nkbreleaserec kbcreaterec\n" + released_));
    EXPECT_EQ(called_.find("kbreleaserec kbcreaterec"), called_.rfind("kbreleaserec kbcreaterec"))
        << "the first device's record is not released";
    EXPECT_EQ(
        Keys(),
        "<device KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY2\" ProductKey=\"KEY2\" UserCode=\"SORV2\">");
    EXPECT_EQ(Build(kUsed + With("ID", "KEY2", With("Shape", kMissing))).first, -1);
    EXPECT_EQ(Keys(),
              "<device UserCode=\"S\" KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY2\" ProductKey=\"KEY2\">")
        << "the first device stays current with the last key";
}

// The database's counts have 16 bits.
TEST_F(ProductRecord, RejectsCountsBeyondSixteenBits) {
    const std::string most(32767, 'x');
    std::string shapes;
    for (int i = 0; i < 32768; ++i)
        shapes += "<Shape>1</Shape>";
    const std::string device = With("Shape", kMissing);
    const auto element = [](const std::string& contents, const std::string& name) {
        return "<" + name + ">" + contents + "</" + name + ">";
    };
    const std::pair<std::string, const char*> cases[] = {
        {With("ProductCodeALL", most + "x"),
         "Attribute 1562 is too large for the record database: 32768, at most 32767."},
        {With("DescriptionGBR", most + most + most),
         "Attribute 9552 is too large for the record database: 98301, at most 32767."},
        {ReplaceAll(kDevice, "<ID>", element(most + "x", "kpdWeblinkSWE") + "<ID>"),
         "Attribute 8501 is too large for the record database: 32768, at most 32767."},
        {ReplaceAll(device, "</device>", shapes + "</device>"),
         "Attribute 1110 is too large for the record database: 32768, at most 32767."}};
    for (const auto& [xml, fault] : cases) {
        EXPECT_EQ(Build(xml), std::pair(-1, Reported(fault)));
        EXPECT_EQ(called_.find("kbsaverec"), std::string::npos);
    }
}

TEST_F(ProductRecord, ReportsEveryFaultOfADevice) {
    const std::pair<std::string, const char*> cases[] = {
        {With("ID", kMissing), "Parameter 'ID' is not defined."},
        {With("ProductCodeALL", kMissing), "Mandatory parameter 'ProductCodeALL' is not defined."},
        {With("DescriptionGBR", kMissing), "Mandatory parameter 'DescriptionGBR' is not defined."},
        {With("DescriptionGBR", ""), "Mandatory parameter 'DescriptionGBR' is empty."},
        {With("KModelID", kMissing), "Mandatory parameter 'KModelID' is not defined."},
        {With("KModelID", ""), "Mandatory parameter 'KModelID' is empty."},
        {With("AirDeviceDimData", kMissing), "Parameter 'AirDeviceDimData' is not defined."},
        {With("DpCurve", kMissing), "Parameter 'DpCurve' is not defined."},
        {With("Fnc", "20"), "Parameter 'aDpCurves' is not defined"},
        {With("Shape", kMissing), "Parameter 'Shape' is not defined."},
        // The XML library reports a missing required element.
        {With("ID", ""), "Element <ID> has no text"},
        {With("ProductCodeALL", ""), "Element <ProductCodeALL> has no text"},
        {ReplaceAll(kDevice, "<ID>", "<kpdWeblink/><ID>"), "Element <kpdWeblink> has no text"},
        {ReplaceAll(kDevice, "<ID>", "<MarketArea/><ID>"), "Element <MarketArea> has no text"},
        {With("AirDeviceDimData", "<Fnc>10</Fnc>"), "Element <AirDeviceDimData> has no child element <D1>"},
        {With("DpCurve", "<Qv>1</Qv>"), "Element <DpCurve> has no child element <Dp>"},
        {With("Shape", ""), "Element <Shape> has no text"},
        {With("dLw", "<Lw63/>"), "Element <Lw63> has no text"},
    };
    for (const auto& [device, text] : cases) {
        EXPECT_EQ(Build(device), (std::pair{-1, Reported(text)}));
        EXPECT_TRUE(CallsEndWith(released_) && called_.find("kbsaverec") == std::string::npos) << called_;
    }
    for (const auto& [files, named] : {std::pair{"", "<DdkFileUrl>"},
                                       {"<DdkFileUrl/>", "<DdkFileUrl>"},
                                       {"<DdkFileUrl>d</DdkFileUrl>", "<KpdFileUrl>"}}) {
        const std::string printed = Build(kDevice, {}, "SorvSIL", files).second;
        EXPECT_EQ(printed.find(Reported("").substr(0, 90)), 0u);
        EXPECT_NE(printed.find(named), std::string::npos) << printed;
    }
    const ImportPatch noMemory(
        "realloc", +[](void*, size_t) -> void* { return nullptr; });
    EXPECT_EQ(Build(kDevice), (std::pair{-1, Reported("std::bad_alloc")}));
}

TEST_F(ProductRecord, ReportsEveryFailureOfDatabaseAndNetwork) {
    const std::string folder = session_.WorkingFolder(), dictionary = folder + "/output.ddk",
                      network = "Sorvik Klimora Cloud Plugin: Error DownloadFile: Can't open file from internet\n",
                      noneOpen = "ddk_releasedatabase 0\nkbclosedatabase 0\n",
                      record = "kbreleaserec kbcreaterec\n" + released_,
                      known = "KPDClassName=\"dSilencerType\" ProductFamilyKey=\"KEY\"";
    const struct {
        Results results;           // unknown address, dictionary, database, creates, knowsModel, saves
        std::string printed, end;  // the last calls
        std::string keys;
    } cases[] = {
        {{"d"},
         network + Reported("Can't download Klimora database dictionary d"),
         "\"d\" null 0x0 0x84000200 0x0\n" + noneOpen,
         ""},
        {{"k"},
         network + Reported("Can't download Klimora database k"),
         "\"k\" null 0x0 0x84000200 0x0\n" + noneOpen,
         ""},
        {{"", -2}, Reported("Can't open kbase database dictionary " + dictionary), "\" 1 0\nkbclosedatabase 0\n", ""},
        {{"", 3, -1},
         Reported("Can't open kbase database " + dictionary + " " + folder + "/output.kpd"),
         "\" 0\nddk_releasedatabase 3\n",
         ""},
        {{"", 3, 4, false},
         Reported("Can't create kbase record for device."),
         "kbcreaterec 4 & \"KEY\"\n" + released_,
         known},
        {{"", 3, 4, true, false},
         Reported("Can't find kmodel ABCDEFGHIJKLMNOPQRSTUVWXYZ0123 in a database."),
         "kbreleaserec null\n" + record,
         known},
        {{"", 3, 4, true, true, -1},
         Reported("Can'save device database record."),
         "kbsaverec 4 kbcreaterec\n" + record,
         known},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Build(With("KModelID", "abcdefghijklmnopqrstuvwxyz0123456789"), c.results),
                  (std::pair{-1, c.printed}));
        EXPECT_TRUE(CallsEndWith(c.end)) << called_;
        EXPECT_NE(Keys().find(c.keys), std::string::npos) << Keys();
    }
    EXPECT_EQ(Build(kUsed, {}, "sorvsil"), (std::pair{-1, Reported("Can't get device class id.")}));
    EXPECT_EQ(Keys(), "<device UserCode=\"S\" KPDClassName=\"\" ProductFamilyKey=\"\" ProductKey=\"\">");
}

}  // namespace
