// Operations on the project and on groups of parts: the project check, the file access switch, adding products,
// connected parts, packages, erasing and placement.
#include <cmath>

#include "KlimoraBench.h"
#include "Robot.h"
#include "Util/KLComUtils.h"
#include "dbapserv.h"
#include "dbmain.h"

namespace {

constexpr char kCaption[] = "Sorvik Klimora Cloud Plugin";

class ProjectOperations : public KlimoraBench {
 protected:
    ~ProjectOperations() override {
        for (const std::string& complaint : robot_.Complaints())
            ADD_FAILURE() << complaint;
    }

    void Start(long version = 20120600) {
        bench::KlimoraServer server;
        server.version = version;
        StartServer(server);
        OpenSample();
        utils_.Connect();
        bench::ClearJournal();
    }

    void ExpectWarning(const std::string& text) {
        robot_.Expect(
            bench::Box(text).Captioned(kCaption).Icon(bench::BoxIcon::kWarning).Buttons({"OK"}).AnswerWith("OK"));
    }

    static std::string Report(const std::string& message, const std::string& place, const std::string& text) {
        return "\nSorvik Klimora Cloud Plugin: " + message + " " + place + " " + text + "\n";
    }

    static AcDbObjectId IdOf(const wchar_t* handle) {
        AcDbObjectId id;
        bench::Quiet quiet;
        acdbHostApplicationServices()->workingDatabase()->getAcDbObjectId(id, false, AcDbHandle(handle));
        return id;
    }

    bench::Robot robot_{bench::MainWindow()};
    KLComUtils utils_;
};

TEST_F(ProjectOperations, CheckAcceptsTheExactVersion) {
    Start(20091200);
    EXPECT_TRUE(utils_.CheckKlimoraProject(20091200));
    EXPECT_EQ(Printed(), "");
    EXPECT_EQ(bench::Journal(), (std::vector<std::string>{"IKlimora200805::getVersion -> 20091200",
                                                          "IKlimora200805::getPartAtt '' '/dwg/kpjfilename' -> "
                                                          "'C:\\Projects\\Office\\office.kpj' 0"}));
}

TEST_F(ProjectOperations, CheckTellsAnOldServerTwice) {
    Start(20091199);
    ExpectWarning("Klimora version 20091200 or newer is required.");
    EXPECT_FALSE(utils_.CheckKlimoraProject(20091200));
    EXPECT_EQ(Printed(), "\nSorvik Klimora Cloud Plugin: Klimora version 20091200 or newer is required.\n");
    EXPECT_TRUE(Calls("IKlimora200805::getPartAtt").empty()) << "an old server is not asked for its project";
    ASSERT_EQ(robot_.Seen().size(), 1u);
    EXPECT_EQ(robot_.Seen()[0].owner, bench::MainWindow());
    EXPECT_FALSE(robot_.Seen()[0].watchedEnabled);
}

TEST_F(ProjectOperations, CheckTellsAClosedProjectTwice) {
    Start();
    bench::CloseProject();
    ExpectWarning("Klimora project is not open. Please, open Klimora project.");
    EXPECT_FALSE(utils_.CheckKlimoraProject(20091200));
    EXPECT_EQ(Printed(), "\nSorvik Klimora Cloud Plugin: Klimora project is not open. Please, open Klimora project.\n");
}

TEST_F(ProjectOperations, CheckReadsTheProjectWithoutTrace) {
    Start();
    utils_.SetTrace(true, true, true);
    bench::FailCall("IKlimora200805::getPartAtt", 1);
    ExpectWarning("Klimora project is not open. Please, open Klimora project.");
    EXPECT_FALSE(utils_.CheckKlimoraProject(20091200));
    EXPECT_EQ(Printed(), "\nSorvik Klimora Cloud Plugin: Klimora project is not open. Please, open Klimora project.\n");
    bool keep = false, failures = false, all = false;
    utils_.GetTrace(&keep, &failures, &all);
    EXPECT_TRUE(keep && failures && all) << "the switches are as they were";
}

TEST_F(ProjectOperations, FileAccessSwitchIsInverted) {
    Start(20090300);
    utils_.SetNoProjectFileAccessCheck(true);
    utils_.SetNoProjectFileAccessCheck(false);
    EXPECT_EQ(Calls("IKlimora200805::setPartAtt "),
              (std::vector<std::string>{"'' '/dwg/flag/noPrjFileAccessCheck' '0' -> 0",
                                        "'' '/dwg/flag/noPrjFileAccessCheck' '1' -> 0"}));
}

TEST_F(ProjectOperations, FileAccessSwitchLeavesOldServersAlone) {
    Start(20090299);
    utils_.SetNoProjectFileAccessCheck(false);
    EXPECT_EQ(Calls("IKlimora200805::"), (std::vector<std::string>{"getVersion -> 20090299"}));
    EXPECT_EQ(Printed(), "");
}

TEST_F(ProjectOperations, AddingSendsItsElementsInOrder) {
    Start();
    bench::FailCall("IKlimora200805::manageProductData", 1, 4);
    bench::FailCall("IKlimora200805::manageProductData", 2, 4);
    EXPECT_EQ(utils_.AddDeviceToKlimoraProject("C:/a&b/100%%.kpd", nullptr, 0, "dSilencerType", "S<1>", "F\"1'",
                                               nullptr, nullptr),
              4)
        << "a positive code is passed on";
    EXPECT_EQ(Printed(), "") << "without a message";
    const unsigned char data[] = {0x01, 0xFE};
    EXPECT_EQ(utils_.AddDeviceToKlimoraProject(nullptr, data, 2, "d", "u", "f", "k&", "<Extra>&</Extra>"), 4);
    EXPECT_EQ(
        Calls("IKlimora200805::manageProductData "),
        (std::vector<std::string>{
            "<ManageProductData><Function><Name>Add</Name></Function><KPD><Filename>C:/a&amp;b/100%.kpd</Filename></"
            "KPD>"
            "<KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>S&lt;1&gt;</Usercode>"
            "<Productfamilykey>F&quot;1&apos;</Productfamilykey></ManageProductData> -> 4",
            "<ManageProductData><Function><Name>Add</Name></Function><KPD><binvar>1</binvar></KPD><KPDClass><Name>d</"
            "Name>"
            "</KPDClass><Usercode>u</Usercode><Productfamilykey>f</Productfamilykey><Productkey>k&amp;</Productkey>"
            "<Extra>&</Extra></ManageProductData> -> 4"}));
    EXPECT_EQ(Calls("IKlimora200805::freeBinVariable "), (std::vector<std::string>{"1 -> 0"}));
}

TEST_F(ProjectOperations, AddingReportsEachFailure) {
    Start();
    const std::string place = "PlugIn/Util/KLComUtils_Project(115):KLComUtils::AddDeviceToKlimoraProject";
    const std::string message = "Failed to add device to Klimora project.";
    const struct {
        const char* call;
        long code;
        const char* text;
        int result;
    } cases[] = {
        {"setBinVariableSize", 5, "Can't set data to binary variable ", -1},
        {"setBinVariableData", 5, "Can't set data to binary variable ", -1},
        {"manageProductData", -3, "Can not add device to Klimora project ", -3},
        {"freeBinVariable", 5, "Can't free binary variable ", 4},
    };
    for (const auto& c : cases) {
        bench::ClearFailures();
        const std::string method = std::string("IKlimora200805::") + c.call;
        bench::FailCall("IKlimora200805::manageProductData", 1, 4);
        bench::FailCall(method.c_str(), 1, c.code);
        EXPECT_EQ(utils_.AddDeviceToKlimoraProject(nullptr, "ab", 2, "d", "u", "f", nullptr, nullptr), c.result)
            << c.call;
        EXPECT_EQ(Printed(), Report(message, place, c.text + method + " was planned to fail.")) << c.call;
        utils_.BinVariableFree(1);
    }
}

TEST_F(ProjectOperations, TypeDefineOfEveryClass) {
    const char* const kTable[][2] = {
        {"hZoneValveType", "EWAPART_ZONEVALVE"}, {"hStopValveType", "EWAPART_STOPVALVE"},
        {"dSupplyType", "EWAPART_SUPPLY"},       {"dExtractType", "EWAPART_EXTRACT"},
        {"dOutdoorType", "EWAPART_OUTDOOR"},     {"dExhaustType", "EWAPART_EXHAUST"},
        {"dSilencerType", "EWAPART_SILENCER"},
    };
    for (const auto& row : kTable)
        EXPECT_EQ(KLComUtils::GetTypeDefineByKPDClassName(row[0]), row[1]);
    EXPECT_EQ(Printed(), "");
    EXPECT_EQ(KLComUtils::GetTypeDefineByKPDClassName("dsilencerType"), "");
    EXPECT_EQ(Printed(), Report("Failed to get type define by KPD class name",
                                "PlugIn/Util/KLComUtils_Project(152):KLComUtils::GetTypeDefineByKPDClassName",
                                "Unknown kpd class for valve dsilencerType"));
}

TEST_F(ProjectOperations, TwoConnectedParts) {
    Start();
    std::string first = "poison", second = "poison";
    utils_.GetTwoConnectedParts("2A3", first, second, true);
    EXPECT_EQ(first + " " + second, "2A2 2A4");
    utils_.GetTwoConnectedParts("2A4", first, second, true);
    EXPECT_EQ(first + " " + second, "2A3 ") << "one connection alone";
    bench::FailCall("IKlimora200805::getPartAtt", 11, 5);  // the second connection
    utils_.GetTwoConnectedParts("2A2", first, second, true);
    utils_.GetTwoConnectedParts("2A3", first, second, true);
    EXPECT_EQ(first + " " + second, "2A2 ") << "what was read before the failure stays";
    EXPECT_EQ(Printed(),
              Report("GetConnectedParts : Failed to get parts connected to segment.",
                     "PlugIn/Util/KLComUtils_Part(49):KLComUtils::GetTwoConnectedParts", "Can't get connection 1 "));
}

TEST_F(ProjectOperations, AllConnectedPartsAndTheirFailure) {
    Start();
    std::vector<std::string> parts = {"before"};
    utils_.GetAllConnectedParts("2A2", parts, true);
    EXPECT_EQ(parts, (std::vector<std::string>{"before", "2A1", "2A5", "2A3"}));
    parts.clear();
    utils_.GetAllConnectedParts("FFFF", parts, true);
    EXPECT_TRUE(parts.empty());
    EXPECT_EQ(Printed(),
              Report("Failed to get connected parts",
                     "PlugIn/Util/KLComUtils_Part(66):KLComUtils::GetAllConnectedParts", "KLComUtils::GetPartAtt"));
}

TEST_F(ProjectOperations, InvalidHandlesAreDroppedOnRequest) {
    Start();
    ASSERT_EQ(utils_.EraseParts("2A4"), 0);  // leaves the duct with an open end
    std::string first, second;
    utils_.GetTwoConnectedParts("2A3", first, second, false);
    EXPECT_EQ(second, "0");
    utils_.GetTwoConnectedParts("2A3", first, second, true);
    EXPECT_EQ(second, "");
    std::vector<std::string> all, valid;
    utils_.GetAllConnectedParts("2A3", all, false);
    utils_.GetAllConnectedParts("2A3", valid, true);
    EXPECT_EQ(all, (std::vector<std::string>{"2A2", "0"}));
    EXPECT_EQ(valid, (std::vector<std::string>{"2A2"}));
}

TEST_F(ProjectOperations, ErasingSendsTheListAsItStands) {
    Start();
    EXPECT_EQ(utils_.EraseParts(nullptr), 0);
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_EQ(utils_.EraseParts("2A4 2A3"), 0);
    EXPECT_EQ(Calls("IKlimora200805::erasePart "),
              (std::vector<std::string>{"<ErasePart><PartList>2A4 2A3</PartList></ErasePart> -> 0"}));
    EXPECT_EQ(bench::PartAttribute("2A4", "/Part/Type/ID"), "");
    EXPECT_EQ(utils_.EraseParts("2A4"), -1);
    EXPECT_EQ(Printed(),
              Report("Failed to erase parts", "PlugIn/Util/KLComUtils_Part(105):KLComUtils::EraseParts", ""));
}

TEST_F(ProjectOperations, PackagesAreListsWithSingleBlanks) {
    Start();
    std::vector<std::string> members;
    EXPECT_EQ(utils_.GetPackageList("2A0", members), 0);
    EXPECT_EQ(members, (std::vector<std::string>{"2A0", "2B8", "2BA"}));
    EXPECT_EQ(utils_.SetPackageList("2A0", {}), 0);
    EXPECT_TRUE(Calls("IKlimora200805::setPartAtt").empty());
    EXPECT_EQ(utils_.SetPackageList("2A0", {"2A0", "2B8"}), 0);
    EXPECT_EQ(bench::PartAttribute("2A0", "/Part/Package/PartList"), "2A0 2B8");
    EXPECT_EQ(utils_.SetPackageList("2A0", {"", "2A0", "", "2B8"}), 0);
    EXPECT_EQ(Calls("IKlimora200805::setPartAtt '2A0' '/Part/Package/PartList' ").back(), "' 2A0  2B8' -> 0");
    EXPECT_EQ(utils_.GetPackageMainPart("2B8"), "2A0");
    utils_.SetTrace(false, true, false);
    EXPECT_EQ(utils_.GetPackageMainPart("FFFF"), "");
    EXPECT_EQ(Printed(), "") << "no trace of the failed query";
    utils_.SetTrace(false, false, false);
    EXPECT_EQ(utils_.GetPackageList("FFFF", members), -1);
    EXPECT_EQ(utils_.SetPackageList("FFFF", {"2A0"}), -1);
    EXPECT_EQ(Printed(),
              Report("Can't get Klimora product package", "PlugIn/Util/KLComUtils_Part(124):KLComUtils::GetPackageList",
                     "KLComUtils::GetPartAtt") +
                  Report("Can't set Klimora product package",
                         "PlugIn/Util/KLComUtils_Part(137):KLComUtils::SetPackageList", "KLComUtils::SetPartAtt"));
}

TEST_F(ProjectOperations, PlacementOfAPartComesFromTheServer) {
    Start();
    const AcGeMatrix3d matrix = utils_.GetTransformationMatrix(IdOf(L"2A3"));
    const double expected[3][4] = {{0, -1, 0, 11300}, {1, 0, 0, 9250}, {0, 0, 1, 2800}};
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 4; ++column)
            EXPECT_EQ(matrix.entry[row][column], expected[row][column]) << row << "," << column;
    }
}

TEST_F(ProjectOperations, PlacementOfABlockComesFromTheDrawing) {
    Start();
    const std::string handle =
        bench::AddBlockReference({"", "MARK", "0", {10, 20, 0}, std::acos(-1.0) / 2, {0, 0, 1}, {}});
    const std::wstring wide(handle.begin(), handle.end());
    bench::ClearJournal();
    const AcGeMatrix3d matrix = utils_.GetTransformationMatrix(IdOf(wide.c_str()));
    EXPECT_NEAR(matrix.entry[0][1], -1, 1e-12);
    EXPECT_NEAR(matrix.entry[1][0], 1, 1e-12);
    EXPECT_EQ(matrix.entry[0][3], 10);
    EXPECT_EQ(matrix.entry[1][3], 20);
    EXPECT_TRUE(Calls("IKlimora200805::").empty());
}

TEST_F(ProjectOperations, PlacementThatCannotBeHadIsTheIdentity) {
    Start();
    EXPECT_TRUE(utils_.GetTransformationMatrix(AcDbObjectId()) == AcGeMatrix3d::kIdentity);
    EXPECT_EQ(Printed(), Report("Failed to get transformation matrix",
                                "PlugIn/Util/KLComUtils_Part(166):KLComUtils::GetTransformationMatrix",
                                "Can't open object for reading"));
}

}  // namespace
