// Commands that create and erase parts: what they make is in the drawing and can be read, what is wrong is refused.
#include "KlimoraClient.h"

namespace {

constexpr long kBadCommand = -110, kNoPart = -102, kBadValue = -105;

const std::string kProduct =
    "<KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>SORV1</Usercode>"
    "<Productfamilykey>SRC-400-1200</Productfamilykey><Productkey>SRC-400-1200</Productkey>";
const std::string kPosition = "<Position><WCS>1.000000 2.000000 3.000000</WCS></Position>";
const std::string kDirection = "<Direction><WCS>1.000000 0.000000 0.000000</WCS></Direction>";
const std::string kNormal = "<Normal><WCS>0.000000 0.000000 1.000000</WCS></Normal>";

std::string Part(const std::string& define, const std::string& rest) {
    return "<Part><Type><Define>EWAPART_" + define + "</Define></Type>" + rest + "</Part>";
}
std::string Command(const std::string& inside) {
    return "<CreatePart>" + inside + "</CreatePart>";
}

std::string Duct(const std::string& firstEnd, const std::string& secondEnd, const std::string& bend = "") {
    return Command(
        Part("DUCT", "<Connection>" + firstEnd + "</Connection><Connection>" + secondEnd +
                         "</Connection><System><ID>2</ID><Type><ID>1</ID></Type></System>" + kNormal +
                         "<Serie><ID>S1</ID></Serie><Shape><ID>0</ID></Shape><Diameter>125.000000</Diameter>" + bend));
}
std::string At(const std::string& point) {
    return "<Position><WCS>" + point + "</WCS></Position>";
}
std::string To(const std::string& handle) {
    return "<ConnectedTo>" + handle + "</ConnectedTo>";
}

std::string Stub(const std::string& kind, const std::string& middle, const std::string& connections) {
    return "<CreateConnectionStub><Function><Name>" + kind + "</Name></Function>" + middle + "<Connections>" +
           connections + "</Connections></CreateConnectionStub>";
}
const std::string kStubSystem = "<System><ID>2</ID><Type><ID>1</ID></Type></System>";
const std::string kRoundEnd = "<Connection>" + kPosition + kDirection + kNormal +
                              "<Shape><ID>0</ID></Shape><Diameter>160</Diameter></Connection>";

using KlimoraPartsTest = KlimoraBench;

TEST_F(KlimoraPartsTest, EveryFormOfCreatePartMakesAPartInTheDrawing) {
    const std::string device =
        kProduct + Part("SILENCER", kPosition + kNormal + kDirection + "<Connection>" + To("2A4") + "</Connection>");
    const struct {
        std::string command;
        const char* path;
        const char* value;
    } cases[] = {
        {Command(Part("MANIFOLD", "<System><ID>9</ID><Type><ID>12</ID></Type></System>" + kPosition + kDirection +
                                      kNormal + "<Geometry><Shape>round</Shape></Geometry>")),
         "/Part/System/Type/ID", "12"},
        {Command(device), "/Part/Usercode", "SORV1"},
        {Command(
             kProduct +
             Part("RADIATOR", "<System><ID>9</ID></System>" + kPosition + kDirection + kNormal +
                                  "<Width>1200</Width><Height>600</Height>"
                                  "<P_Heating><W>850.000000</W></P_Heating>") +
             "<ConnectionSize>15</ConnectionSize><Filled>1</Filled><Inlet><ID>1</ID></Inlet><Outlet><ID>2</ID></Outlet>"
             "<Valve><Usercode>V1</Usercode><Productfamilykey>F</Productfamilykey><Productkey>K</Productkey></Valve>"),
         "/Part/Valve/Usercode", "V1"},
        {Command(kProduct + Part("EXTRACT", "<System><ID>2</ID></System>" + kPosition + kDirection + kNormal +
                                                "<qv_set><ls>35.000000</ls></qv_set><CollarLength>50</CollarLength>")),
         "/Part/System/Type/ID", "1"},
        {Command(Part("CUSTOM", "<System><ID>1</ID></System>" + kPosition + kDirection + kNormal +
                                    "<CustomPartType>Special</CustomPartType><ifcClassType>Special</ifcClassType>"
                                    "<Geometry><Layer><Name>V-SPECIAL</Name></Layer></Geometry>")),
         "/Part/Type/ID", "99"},
        {Duct(At("0 0 0"), At("0 3000 4000")), "/Part/Length", "5000"},
        {Duct(To("2A4"), At("11300 14500 2800"), "<Locked><Size>1</Size></Locked>"), "/Part/Direction/WCS", "0 1 0"},
    };
    for (const auto& c : cases) {
        const Answered answered = Create(c.command);
        ASSERT_EQ(answered.result, 0) << c.command << "\n" << ErrorText();
        EXPECT_TRUE(InDrawing(answered.text));
        EXPECT_EQ(Get(answered.text, c.path).text, c.value) << c.command;
        EXPECT_EQ(bench::PartHandles().back(), answered.text);
    }
    EXPECT_EQ(bench::Entities().size(), bench::PartHandles().size());
    EXPECT_EQ(Get("2A4", "Count(/Part/Connection)").text, "3");  // its duct, the silencer and the pipe
}

TEST_F(KlimoraPartsTest, RefusedCommandsLeaveDrawingAndProjectAsTheyWere) {
    const std::string custom = "<System><ID>1</ID></System>" + kPosition + kDirection + kNormal +
                               "<CustomPartType>S</CustomPartType><ifcClassType>S</ifcClassType>"
                               "<Geometry><Layer><Name>V</Name></Layer></Geometry>";
    const struct {
        std::string command;
        long result;
    } cases[] = {
        {Command(Part("CUSTOM", custom + "<Colour>red</Colour>")), kBadCommand},
        {Command(Part("CUSTOM", kNormal + custom)), kBadCommand},
        {Command(Part("CUSTOM", "<System><ID>one</ID></System>" + custom.substr(29))), kBadCommand},
        {Command(
             Part("CUSTOM", "<System><ID>1</ID></System><Position><WCS>1,5 2 3</WCS></Position>" + custom.substr(29))),
         kBadCommand},
        {Command(Part("UNHEARDOF", custom)), kBadCommand},
        {Command(Part("CUSTOM", custom)) + "<More/>", kBadCommand},
        {Duct(At("0 0 0"), To("7FF")), kNoPart},
        {Duct(At("0 0 0"), At("0 0 0")), kBadValue},
        {Duct(At("0 0 0"), ""), kBadCommand},
        {Duct(At("0 0 0"), At("1 0 0"), "<Bend><RDCoefficient>1.000000</RDCoefficient></Bend>"), kBadCommand},
        {"<createpart/>", kBadCommand},
    };
    const std::string before = bench::ProjectXml();
    const size_t entities = bench::Entities().size();
    for (const auto& c : cases) {
        const Answered answered = Create(c.command);
        EXPECT_EQ(answered.result, c.result) << c.command << "\n" << ErrorText();
        EXPECT_EQ(answered.text, "");
        EXPECT_NE(ErrorText(), "");
    }
    EXPECT_EQ(bench::ProjectXml(), before);
    EXPECT_EQ(bench::Entities().size(), entities);
}

TEST_F(KlimoraPartsTest, BendCoefficientGoesWithTheServersVersion) {
    bench::KlimoraServer old;
    old.version = 20090299;
    Restart(old);
    EXPECT_EQ(Create(Duct(At("0 0 0"), At("1 0 0"), "<Bend><RDCoefficient>1.0</RDCoefficient></Bend>")).result, 0);
    EXPECT_EQ(Create(Duct(At("0 0 0"), At("1 0 0"), "<Bend><LDCoefficient>1.0</LDCoefficient></Bend>")).result,
              kBadCommand);
}

TEST_F(KlimoraPartsTest, StubsAreMadeWithTheirConnections) {
    const std::string rectangularEnd = "<Connection>" + kPosition + kDirection + kNormal +
                                       "<Shape><ID>1</ID></Shape><Width>400</Width><Height>200</Height></Connection>";
    const Answered made = CreateStub(Stub("Component",
                                          "<ParentPart>2A0</ParentPart>" + kStubSystem +
                                              "<DpCurve><Qv><ls>5.0</ls></Qv><dp><Pa>50.0</Pa></dp></DpCurve>"
                                              "<Sound><Attenuation><dB>1 2 3 4 5 6 7 8</dB></Attenuation></Sound>",
                                          kRoundEnd + rectangularEnd));
    ASSERT_EQ(made.result, 0) << ErrorText();
    EXPECT_TRUE(InDrawing(made.text));
    EXPECT_EQ(Get(made.text, "/Part/Connection[1]/Height").text, "200");
    EXPECT_EQ(Get(made.text, "/Part/Position/WCS").text, "1.000000 2.000000 3.000000");
    const std::string refused[] = {
        Stub("component", kStubSystem, kRoundEnd),
        Stub("Fan", kStubSystem + "<Sound><Generation><dB>1 2 3</dB></Generation></Sound>", kRoundEnd),
        Stub("Fan", kStubSystem, rectangularEnd + "<End/>"),
        Stub("Fan", kStubSystem,
             "<Connection>" + kPosition + kDirection + kNormal +
                 "<Shape><ID>1</ID></Shape><Diameter>1</Diameter></Connection>"),
        "<CreateConnectionStub><Function><Name>Fan</Name></Function>" + kStubSystem + "</CreateConnectionStub>",
    };
    for (const std::string& command : refused)
        EXPECT_EQ(CreateStub(command).result, kBadCommand) << command;
    EXPECT_EQ(CreateStub(Stub("Fan", "<ParentPart>7FF</ParentPart>" + kStubSystem, kRoundEnd)).result, kNoPart);
}

TEST_F(KlimoraPartsTest, ErasingIsForAllPartsOfTheListOrNone) {
    EXPECT_EQ(Erase("<ErasePart><PartList>2A4 7FF</PartList></ErasePart>").result, kNoPart);
    EXPECT_EQ(Erase("<ErasePart><PartList></PartList></ErasePart>").result, kBadCommand);
    EXPECT_TRUE(InDrawing("2A4"));
    EXPECT_EQ(Erase("<ErasePart><PartList>2A4,2a8 2A4</PartList></ErasePart>").result, 0);
    EXPECT_FALSE(InDrawing("2A4"));
    EXPECT_FALSE(InDrawing("2A8"));
    EXPECT_EQ(Get("2A4", "/Part/Type/ID").result, kNoPart);
    EXPECT_EQ(Get("2A3", "/Part/Connection[1]/ConnectedTo").text, "0");
    EXPECT_EQ(Get("2A3", "/Part/Connection[0]/ConnectedTo").text, "2A2");
}

TEST_F(KlimoraPartsTest, OtherCommandsAreKeptAsTheyWereSent) {
    const auto klimora = ConnectKlimora();
    long result = 77;
    klimora->movePart(SentText("<MovePart><Part>2A4</Part></MovePart>"), &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Get("", "/Project/Requests/Request[0]/Method").text, "movePart");
    EXPECT_EQ(Get("", "/Project/Requests/Request[0]/Command").text, "<MovePart><Part>2A4</Part></MovePart>");
    klimora->movePart(SentText("<MovePart>"), &result);
    EXPECT_EQ(result, kBadCommand);
    BSTR reply = nullptr;
    klimora->selectPart(SentText("<SelectPart/>"), &reply, &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(Received(reply), "0");
}

}  // namespace
