// Operations on the project and on groups of parts: the project check, the file access switch, adding products,
// connected parts, packages, erasing and placement.
#include <cmath>

#include "DrawingFixture.h"
#include "KlimoraBench.h"
#include "RecordedCalls.h"

namespace {

using Texts = std::vector<std::string>;

class ProjectOperations : public ConnectedBench {
 protected:
    static std::string PartReport(const std::string& message, int line, const std::string& function,
                                  const std::string& text) {
        return Report(message, "KLComUtils_Part(" + std::to_string(line) + "):KLComUtils::" + function, text);
    }
};

TEST_F(ProjectOperations, ReportsAnUnsuitableProjectTwiceAndTracesNothing) {
    const std::string tooOld = "Klimora version 20091200 or newer is required.";
    const std::string notOpen = "Klimora project is not open. Please, open Klimora project.";
    const struct {
        long version;
        bool open, answers;
        std::string warning;
        Texts read;
    } cases[] = {
        {20091200, true, true, "", {"'' '/dwg/kpjfilename' -> 'C:\\Projects\\Office\\office.kpj' 0"}},
        {20091199, true, true, tooOld, {}},
        {20120600, false, true, notOpen, {"'' '/dwg/kpjfilename' -> '' 0"}},
        {20120600, true, false, notOpen, {"'' '/dwg/kpjfilename' -> HRESULT -2147467259"}},
    };
    for (const auto& c : cases) {
        Start(c.version);
        if (!c.open) bench::CloseProject();
        utils_.SetTrace(true, false, true);
        bench::ClearFaults();
        if (!c.answers) bench::FailCall("IKlimora200805::getPartAtt", 1);
        RecordedCalls calls;
        calls.Return("MessageBoxA", MessageBoxA, IDOK);
        calls.Name(bench::MainWindow(), "main window");
        EXPECT_EQ(utils_.CheckKlimoraProject(20091200), c.warning.empty());
        const std::string title = "Sorvik Klimora Cloud Plugin";
        EXPECT_EQ(Printed(), c.warning.empty() ? "" : "\n" + title + ": " + c.warning + "\n");
        EXPECT_EQ(calls.Take(),
                  c.warning.empty() ? "" : "MessageBoxA main window \"" + c.warning + "\" \"" + title + "\" 0x2030\n");
        EXPECT_EQ(Calls("IKlimora200805::getPartAtt "), c.read);
        bool keep = false, failures = true, all = false;
        utils_.GetTrace(&keep, &failures, &all);
        EXPECT_TRUE(keep && !failures && all) << "the switches are restored";
        utils_.Disconnect();
    }
}

TEST_F(ProjectOperations, InvertsTheFileAccessSwitchExceptOnOldServers) {
    Start(20090299);
    utils_.SetNoProjectFileAccessCheck(false);
    EXPECT_EQ(Calls("IKlimora200805::"), (Texts{"getVersion -> 20090299"}));
    utils_.Disconnect();
    Start(20090300);
    utils_.SetNoProjectFileAccessCheck(true);
    utils_.SetNoProjectFileAccessCheck(false);
    EXPECT_EQ(Calls("IKlimora200805::setPartAtt "),
              (Texts{"'' '/dwg/flag/noPrjFileAccessCheck' '0' -> 0", "'' '/dwg/flag/noPrjFileAccessCheck' '1' -> 0"}));
    bench::FailCall("IKlimora200805::setPartAtt", 3, 5);
    utils_.SetNoProjectFileAccessCheck(true);
    EXPECT_EQ(Printed(), "") << "the server's failure is ignored";
}

TEST_F(ProjectOperations, SendsTheElementsOfAProductInOrder) {
    Start();
    bench::FailCall("IKlimora200805::manageProductData", 1, 4);
    bench::FailCall("IKlimora200805::manageProductData", 2, 4);
    ProductToAdd product = {"dSilencerType", "S<1>", "F\"1'", "C:/a&b/100%%.kpd", "x", 0};
    EXPECT_EQ(utils_.AddDeviceToKlimoraProject(product), 4) << "a positive code is returned";
    EXPECT_EQ(Printed(), "") << "without a message";
    product = {"d&", "u", "f", {}, "\xFE", 1, "k&", "<Extra>&</Extra>"};
    EXPECT_EQ(utils_.AddDeviceToKlimoraProject(product), 4);
    EXPECT_EQ(
        Calls("IKlimora200805::manageProductData "),
        (Texts{"<ManageProductData><Function><Name>Add</Name></Function>"
               "<KPD><Filename>C:/a&amp;b/100%.kpd</Filename></KPD><KPDClass><Name>dSilencerType</Name></KPDClass>"
               "<Usercode>S&lt;1&gt;</Usercode><Productfamilykey>F&quot;1&apos;</Productfamilykey>"
               "</ManageProductData> -> 4",
               "<ManageProductData><Function><Name>Add</Name></Function><KPD><binvar>1</binvar></KPD>"
               "<KPDClass><Name>d&amp;</Name></KPDClass><Usercode>u</Usercode>"
               "<Productfamilykey>f</Productfamilykey><Productkey>k&amp;</Productkey><Extra>&</Extra>"
               "</ManageProductData> -> 4"}));
    EXPECT_EQ(Calls("IKlimora200805::freeBinVariable "), (Texts{"1 -> 0"}));
}

TEST_F(ProjectOperations, ReportsEachFailureToAddAProduct) {
    Start();
    for (const auto& [call, code, text, result] :
         {std::tuple{"setBinVariableSize", 5, "Can't set data to binary variable ", -1},
          {"setBinVariableData", 5, "Can't set data to binary variable ", -1},
          {"manageProductData", -3, "Can not add device to Klimora project ", -3},
          {"freeBinVariable", 5, "Can't free binary variable ", 4}}) {
        bench::ClearFaults();
        const std::string method = std::string("IKlimora200805::") + call;
        bench::FailCall("IKlimora200805::manageProductData", 1, 4);
        bench::FailCall(method.c_str(), 1, code);
        EXPECT_EQ(utils_.AddDeviceToKlimoraProject({"d", "u", "f", {}, "ab", 2}), result) << call;
        EXPECT_EQ(Printed(), Report("Failed to add device to Klimora project.",
                                    "KLComUtils_Project(115):KLComUtils::AddDeviceToKlimoraProject",
                                    text + method + " failed by injection."));
        utils_.BinVariableFree(1);
    }
}

TEST_F(ProjectOperations, ReturnsTheTypeDefineOfEveryClass) {
    std::string defines;
    for (const char* const name : {"hZoneValveType", "hStopValveType", "dSupplyType", "dExtractType", "dOutdoorType",
                                   "dExhaustType", "dSilencerType"})
        defines += KLComUtils::GetTypeDefineByKPDClassName(name) + " ";
    EXPECT_EQ(defines,
              "EWAPART_ZONEVALVE EWAPART_STOPVALVE EWAPART_SUPPLY EWAPART_EXTRACT EWAPART_OUTDOOR "
              "EWAPART_EXHAUST EWAPART_SILENCER ");
    EXPECT_EQ(KLComUtils::GetTypeDefineByKPDClassName("dsilencerType"), "");
    EXPECT_EQ(Printed(), Report("Failed to get type define by KPD class name",
                                "KLComUtils_Project(152):KLComUtils::GetTypeDefineByKPDClassName",
                                "Unknown kpd class for valve dsilencerType"));
}

TEST_F(ProjectOperations, ReturnsConnectedPartsAndReportsFailures) {
    Start();
    std::string first = "sentinel", second = "sentinel";
    utils_.GetTwoConnectedParts("2A3", first, second, true);
    EXPECT_EQ(first + " " + second, "2A2 2A4");
    utils_.GetTwoConnectedParts("2A4", first, second, true);
    EXPECT_EQ(first + " " + second, "2A3 ") << "only one connection";
    const std::string message = "GetConnectedParts : Failed to get parts connected to segment.";
    for (const int failing : {2, 1}) {
        bench::ClearFaults();
        bench::FailCall("IKlimora200805::getPartAtt", failing + 1, 5);  // after the count
        utils_.GetTwoConnectedParts("2A3", first, second, true);
        EXPECT_EQ(first + " " + second, failing == 2 ? "2A2 " : " ") << "what was read before the failure stays";
        EXPECT_EQ(Printed(), PartReport(message, 49, "GetTwoConnectedParts",
                                        failing == 2 ? "Can't get connection 1 " : "Can't get connection 0 "));
    }
    Texts parts = {"before"};
    utils_.GetAllConnectedParts("2A2", parts, true);
    EXPECT_EQ(parts, (Texts{"before", "2A1", "2A5", "2A3"}));
    utils_.GetAllConnectedParts("FFFF", parts, true);
    EXPECT_EQ(parts.size(), 4u);
    EXPECT_EQ(Printed(),
              PartReport("Failed to get connected parts", 66, "GetAllConnectedParts", "KLComUtils::GetPartAtt"));
}

TEST_F(ProjectOperations, ErasesPartsAndLeavesOpenEnds) {
    Start();
    EXPECT_EQ(utils_.EraseParts(nullptr), 0);
    EXPECT_TRUE(bench::CallLog().empty());
    bench::FailCall("IKlimora200805::erasePart", 1, 5);
    EXPECT_EQ(utils_.EraseParts("2A4 & 2A3"), -1) << "a positive code is a failure";
    EXPECT_EQ(Printed(), PartReport("Failed to erase parts", 105, "EraseParts", ""));
    EXPECT_EQ(utils_.EraseParts("2A4"), 0);
    EXPECT_EQ(Calls("IKlimora200805::erasePart "), (Texts{"<ErasePart><PartList>2A4 & 2A3</PartList></ErasePart> -> 5",
                                                          "<ErasePart><PartList>2A4</PartList></ErasePart> -> 0"}));
    // Handles that are not a part are dropped on request.
    for (const bool valid : {false, true}) {
        std::string first, second;
        utils_.GetTwoConnectedParts("2A3", first, second, valid);
        EXPECT_EQ(second, valid ? "" : "0");
        Texts parts;
        utils_.GetAllConnectedParts("2A3", parts, valid);
        EXPECT_EQ(parts, valid ? Texts{"2A2"} : (Texts{"2A2", "0"}));
    }
}

TEST_F(ProjectOperations, ReadsAndWritesPackageLists) {
    Start();
    Texts members;
    EXPECT_EQ(utils_.GetPackageList("2A0", members), 0);
    EXPECT_EQ(members, (Texts{"2A0", "2B8", "2BA"}));
    EXPECT_EQ(utils_.SetPackageList("2A0", {}), 0);
    EXPECT_EQ(utils_.SetPackageList("2A0", {"", "2A0", "", "2B8"}), 0);
    EXPECT_EQ(utils_.SetPackageList("2A0", {"2A0"}), 0);
    EXPECT_EQ(Calls("IKlimora200805::setPartAtt '2A0' '/Part/Package/PartList' "),
              (Texts{"' 2A0  2B8' -> 0", "'2A0' -> 0"}));
    bench::ClearCallLog();
    EXPECT_EQ(utils_.GetPackageMainPart("2B8"), "2A0");
    EXPECT_EQ(bench::CallLog(), (Texts{"IKlimora200805::getPartAtt '2B8' '/part/package/mainpart' -> '2A0' 0"}));
    utils_.SetTrace(false, true, false);
    EXPECT_EQ(utils_.GetPackageMainPart("FFFF"), "");
    EXPECT_EQ(Printed(), "") << "the failed query is not traced";
    utils_.SetTrace(false, false, false);
    EXPECT_EQ(utils_.GetPackageList("FFFF", members), -1);
    EXPECT_EQ(Printed(),
              PartReport("Can't get Klimora product package", 124, "GetPackageList", "KLComUtils::GetPartAtt"));
    EXPECT_EQ(utils_.SetPackageList("FFFF", {"2A0"}), -1);
    EXPECT_EQ(Printed(),
              PartReport("Can't set Klimora product package", 137, "SetPackageList", "KLComUtils::SetPartAtt"));
}

TEST_F(ProjectOperations, ReturnsThePlacementOfPartsAndBlocks) {
    Start();
    const AcGeMatrix3d part = utils_.GetTransformationMatrix(IdOf("2A3"));
    const double expected[3][4] = {{0, -1, 0, 11300}, {1, 0, 0, 9250}, {0, 0, 1, 2800}};
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(part.entry[i / 4][i % 4], expected[i / 4][i % 4]) << i;
    bench::ClearCallLog();
    bench::LockLayer("0", true);  // does not prevent reading
    const AcGeMatrix3d block = utils_.GetTransformationMatrix(
        IdOf(bench::AddBlockReference({"", "MARK", "0", {10, 20, 0}, std::acos(-1.0) / 2, {0, 0, 1}, {}})));
    EXPECT_NEAR(block.entry[0][1], -1, 1e-12);
    EXPECT_EQ(block.entry[1][3], 20);
    EXPECT_TRUE(Calls("IKlimora200805::").empty()) << "the drawing has the placement";
    EXPECT_TRUE(utils_.GetTransformationMatrix(AcDbObjectId()) == AcGeMatrix3d::kIdentity);
    const auto report = [](const char* reason) {
        return PartReport("Failed to get transformation matrix", 166, "GetTransformationMatrix", reason);
    };
    EXPECT_EQ(Printed(), report("Can't open object for reading"));
    for (int read = 1; read <= 3; ++read) {
        bench::ClearFaults();
        bench::FailCall("IKlimora200805::getPartAtt", read);
        EXPECT_TRUE(utils_.GetTransformationMatrix(IdOf("2A3")) == AcGeMatrix3d::kIdentity) << read;
        EXPECT_EQ(Printed(), report("KLComUtils::GetPartAtt"));
    }
}

}  // namespace
