// Creating parts: the command of each operation as the server receives it, the handle that comes back, and the report
// when the server refuses or is not there.
#include <cmath>
#include <functional>
#include <utility>

#include "CreatePartsFixture.h"
#include "Util/KLComUtils_CreatePartsCommands.h"

namespace {

// One creation with good arguments.
struct Creation {
    const char *function, *failure;
    int line;
    std::string command;
    std::function<std::string(KLComUtils&)> run;
};

class CreateParts : public CreatePartsTest {
 protected:
    // Each is sent as it should be and answered with the new part's handle.
    void ExpectSent(const std::vector<Creation>& creations, const char* method = "createPart") {
        for (const Creation& creation : creations) {
            bench::ClearJournal();
            const std::string part = creation.run(utils_);
            EXPECT_NE(part, "") << creation.function << Printed();
            EXPECT_EQ(Sent(method), std::vector<std::string>{creation.command + " -> '" + part + "' 0"});
        }
        // A refusal and a missing connection give no handle and the report.
        for (const Creation& creation : creations) {
            const std::string report = Report(creation.failure, creation.line, creation.function, "");
            bench::ClearFailures();
            bench::FailCall((std::string("IKlimora200805::") + method).c_str(), 1, 7);
            EXPECT_EQ(creation.run(utils_), "");
            EXPECT_EQ(Printed(), report);
            KLComUtils unconnected;
            EXPECT_EQ(creation.run(unconnected), "");
            EXPECT_EQ(Printed(), report);
        }
    }

    const PartProduct product_ = {"d<Type>", "U&amp;1", "F\"1\"", "K'1'"};
    const std::string system_ = "<System><ID>9</ID></System>";
    const std::string systemType_ = "<System><ID>9</ID><Type><ID>12</ID></Type></System>";

    // The product's elements; the user code of a valve and a duct device goes in unescaped.
    static std::string ProductText(const std::string& userCode) {
        return "<CreatePart><KPDClass><Name>d&lt;Type&gt;</Name></KPDClass><Usercode>" + userCode +
               "</Usercode><Productfamilykey>F&quot;1&quot;</Productfamilykey><Productkey>K&apos;1&apos;</Productkey>";
    }
};

TEST_F(CreateParts, ManifoldValveAndDuctDevice) {
    Start();
    const std::string device = ProductText("U&amp;1") + "<Part><Type><Define>EWAPART_SUPPLY</Define></Type>" +
                               kPosition + kNormal + kDirection +
                               "<Connection><ConnectedTo>2A4</ConnectedTo></Connection></Part></CreatePart>";
    ExpectSent({
        {"CreateManifold", "Failed to create manifold.", 38,
         "<CreatePart><Part><Type><Define>EWAPART_MANIFOLD</Define></Type>" + systemType_ + PlacementText() +
             "<Geometry><Shape>a&amp;b %d</Shape></Geometry></Part></CreatePart>",
         [](KLComUtils& utils) {
             return utils.CreateManifold({9, 12}, Placement(), "a&amp;b %d");
         }},
        {"CreateValve", "Failed to create valve.", 76, device,
         [&](KLComUtils& utils) { return utils.CreateValve(product_, "EWAPART_SUPPLY", Placement(), "2A4"); }},
        {"CreateDuctDevice", "Failed to create duct device.", 210, device,
         [&](KLComUtils& utils) { return utils.CreateDuctDevice(product_, "EWAPART_SUPPLY", Placement(), "2A4"); }},
    });
    utils_.CreateValve(product_, "A&B", Placement(), "2<A4");
    const std::string sent = Sent("createPart").back();
    EXPECT_TRUE(Has(sent, "<Define>A&amp;B</Define>") && Has(sent, "<ConnectedTo>2&lt;A4</ConnectedTo>")) << sent;
}

TEST_F(CreateParts, RadiatorWithEachOptionalElement) {
    Start();
    const std::string ends = "<Inlet><ID>3</ID></Inlet><Outlet><ID>4</ID></Outlet>";
    const std::string valve =
        "<Valve><Usercode>V&amp;</Usercode><Productfamilykey>F&lt;</Productfamilykey><Productkey>K&gt;</Productkey>"
        "</Valve>";
    const struct {
        std::optional<int> filled;
        RadiatorValve valve;
        std::string rest;
    } cases[] = {
        {0, {}, "<Filled>0</Filled>" + ends},
        {1, {1, "", "F<", "K>"}, "<Filled>1</Filled>" + ends},
        {{}, {1, "V&", "", "K>"}, ends},
        {{}, {1, "V&", "F<", ""}, ends},
        {{}, {{}, "V&", "F<", "K>"}, ends + valve},
        {{}, {0, "V&", "F<", "K>"}, ends + "<DrawValve>0</DrawValve>" + valve},
    };
    for (const auto& c : cases) {
        const RadiatorData radiator = {1200, 600, 850.5, 15, c.filled, 3, 4};
        ExpectSent(
            {{"CreateRadiator", "Failed to create radiator.", 133,
              ProductText("U&amp;amp;1") + "<Part><Type><Define>EWAPART_RADIATOR</Define></Type>" + system_ +
                  PlacementText() +
                  "<Width>1200</Width><Height>600</Height><P_Heating><W>850.500000</W></P_Heating></Part>"
                  "<ConnectionSize>15</ConnectionSize>" +
                  c.rest + "</CreatePart>",
              [&](KLComUtils& utils) { return utils.CreateRadiator(product_, 9, Placement(), radiator, c.valve); }}});
    }
}

TEST_F(CreateParts, AirTerminalWithItsOptionalSizes) {
    Start();
    const struct {
        int angle, length;
        const char* rest;
    } cases[] = {{0, 0, ""},
                 {-1, -1, ""},
                 {1, 0, "<GrilleAngle>1</GrilleAngle>"},
                 {45, 150, "<GrilleAngle>45</GrilleAngle><CollarLength>150</CollarLength>"},
                 {0, 1, "<CollarLength>1</CollarLength>"}};
    for (const auto& c : cases) {
        ExpectSent({{"CreateAirTerminalDevice", "Failed to create air terminal device.", 173,
                     ProductText("U&amp;amp;1") + "<Part><Type><Define>EWAPART_SUPPLY</Define></Type>" + system_ +
                         PlacementText() + "<qv_set><ls>35.250000</ls></qv_set>" + c.rest + "</Part></CreatePart>",
                     [&](KLComUtils& utils) {
                         return utils.CreateAirTerminalDevice(product_, 9, Placement(),
                                                              {"EWAPART_SUPPLY", 35.25, c.angle, c.length});
                     }}});
    }
    EXPECT_EQ(utils_.CreateAirTerminalDevice(product_, 1, Placement(), {"A&B", 1, 0, 0}), "");
    EXPECT_TRUE(Has(Sent("createPart").back(), "<Define>A&B</Define>")) << "the define is copied as it stands";
}

TEST_F(CreateParts, PipeBetweenEachPairOfEndsBentAsTheServersVersionWants) {
    const std::string first = "<Connection><ConnectedTo>2A4</ConnectedTo></Connection>";
    const std::string second = "<Connection><ConnectedTo>2A1</ConnectedTo></Connection>";
    const std::string start = "<Connection><Position><WCS>1.000000 2.000000 0.500000</WCS></Position></Connection>";
    const std::string end = "<Connection><Position><WCS>0.000000 3000.000000 4000.000000</WCS></Position></Connection>";
    const AcGePoint3d a(1, 2, 0.5), b(0, 3000, 4000);
    const struct {
        long version;
        PipeEnd first, second;
        std::string ends;
        double coefficient;
        bool lock;
        const char* rest;
    } cases[] = {
        {20090299, "2A4", "2A1", first + second, 1.5, false, "<Bend><RDCoefficient>1.500000</RDCoefficient></Bend>"},
        {20090300, "2A4", b, first + end, 1.5, false, "<Bend><LDCoefficient>1.500000</LDCoefficient></Bend>"},
        {20090300, a, "2A1", start + second, -0.5, true,
         "<Bend><LDCoefficient>-0.500000</LDCoefficient></Bend><Locked><Size>1</Size></Locked>"},
        {20090300, a, b, start + end, 0, false, ""},
    };
    for (const auto& c : cases) {
        Start(c.version);
        const PipeData pipe = {{9, 12}, AcGeVector3d(0, 0, 1), "S&1", 22.5, c.coefficient, c.lock};
        bench::ClearJournal();
        const std::string part = utils_.CreatePipe(c.first, c.second, pipe);
        EXPECT_EQ(Sent("createPart"),
                  std::vector<std::string>{"<CreatePart><Part><Type><Define>EWAPART_DUCT</Define></Type>" + c.ends +
                                           systemType_ + kNormal +
                                           "<Serie><ID>S&amp;1</ID></Serie><Shape><ID>0</ID></Shape><Diameter>22.500000"
                                           "</Diameter>" +
                                           c.rest + "</Part></CreatePart> -> '" + part + "' 0"});
        EXPECT_EQ(utils_.CreatePipe("2<4", b, pipe), "");
        EXPECT_EQ(Printed(), Report("Failed to create pipe.", 444, "CreatePipe", ""));
        EXPECT_TRUE(Has(Sent("createPart").at(0), "<ConnectedTo>2&lt;4</ConnectedTo>"));
        utils_.Disconnect();
    }
}

// ---- Connection stubs

// Without parent, part type and connections.
ConnectionStub Stub(const char* kind, double flow = 0, double drop = 0, double curveFlow = 0, double curveDrop = 0,
                    double power = 0, const std::optional<SoundBands>& generation = {},
                    const std::optional<SoundBands>& attenuation = {}) {
    return {kind, "", {9, 12}, "", flow, drop, curveFlow, curveDrop, power, generation, attenuation, {}};
}

// What a stub's command says between system and connections.
std::string Optional(const ConnectionStub& stub) {
    const std::string command = ConnectionStubCommand(stub);
    const size_t from = command.find("</System>") + 9;
    return command.substr(from, command.find("<Connections>") - from);
}

TEST_F(CreateParts, StubOfEachKindHasItsElements) {
    Start();
    const std::string flow = "<Qv_Set><ls>5.000000</ls></Qv_Set>", drop = "<dp_Set><Pa>50.000000</Pa></dp_Set>";
    const std::string curve = "<DpCurve><Qv><ls>6.000000</ls></Qv><dp><Pa>60.000000</Pa></dp></DpCurve>";
    const std::string power = "<P_Heating><W>700.000000</W></P_Heating>";
    const std::string noise =
        "<Sound><Generation><dB>1.000000 2.000000 3.000000 4.000000 5.000000 6.000000 7.000000 8.500000</dB>"
        "</Generation></Sound>";
    const std::string damping =
        "<Sound><Attenuation><dB>0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.250000</dB>"
        "</Attenuation></Sound>";
    const std::pair<const char*, std::string> cases[] = {
        {"TerminalDevice", flow + drop},
        {"Radiator", flow + drop + power},
        {"HeatingDevice", flow + drop},
        {"WaterDevice", flow + drop},
        {"DuctworkRoot", drop + curve + noise},
        {"Fan", drop + curve + noise},
        {"PipeworkRoot", drop + curve},
        {"Pump", drop + curve},
        {"HotColdWaterJoint", drop + curve},
        {"HotCircWaterJoint", drop + curve},
        {"Nbranch", drop + curve + noise + damping},
        {"Component", drop + curve + noise + damping},
    };
    const auto everything = [](const char* kind) {
        return Stub(kind, 5, 50, 6, 60, 700, SoundBands{1, 2, 3, 4, 5, 6, 7, 8.5},
                    SoundBands{0, 0, 0, 0, 0, 0, 0, 0.25});
    };
    for (const auto& [kind, elements] : cases) {
        const ConnectionStub stub = everything(kind);
        ExpectSent({{"CreateConnectionStub", "Failed to create connection stub.", 372,
                     std::string("<CreateConnectionStub><Function><Name>") + kind + "</Name></Function>" + systemType_ +
                         elements + "<Connections></Connections></CreateConnectionStub>",
                     [&](KLComUtils& utils) { return utils.CreateConnectionStub(stub); }}},
                   "createConnectionStub");
    }
    for (const char* const other : {"pump", "Fan ", "NBranch", ""})
        EXPECT_EQ(Optional(everything(other)), "") << "kinds are compared exactly: " << other;
}

TEST_F(CreateParts, StubsValuesHaveLimits) {
    const double belowFlow = std::nextafter(1e-5, 0.0), aboveDrop = std::nextafter(1.0, 2.0);
    const std::string least = "<Qv_Set><ls>0.000010</ls></Qv_Set>";  // a clamped flow is always written
    const std::string most = "<Qv_Set><ls>99999.000000</ls></Qv_Set>",
                      mostDrop = "<dp_Set><Pa>99999.000000</Pa></dp_Set>";
    const std::string dropOfOne = "<dp_Set><Pa>1.000000</Pa></dp_Set>";
    const std::pair<ConnectionStub, std::string> cases[] = {
        {Stub("TerminalDevice", -3), least},
        {Stub("Radiator", belowFlow, 1, 0, 0, 1e-5), least},
        {Stub("HeatingDevice", 99999.5, 1e6), most + mostDrop},
        {Stub("TerminalDevice", 200000, aboveDrop), most + dropOfOne},
        {Stub("Radiator", 1e9, 1e6, 0, 0, 1e6), most + mostDrop + "<P_Heating><W>999999.000000</W></P_Heating>"},
        {Stub("Radiator", 0, 0, 0, 0, 2e-5), least + "<P_Heating><W>0.000020</W></P_Heating>"},
        {Stub("WaterDevice", belowFlow, 1), ""},
        {Stub("WaterDevice", 1e-5, aboveDrop), least + dropOfOne},
        {Stub("WaterDevice", 200000, 1e6),
         "<Qv_Set><ls>200000.000000</ls></Qv_Set><dp_Set><Pa>1000000.000000</Pa></dp_Set>"},
        {Stub("Pump", 5, 50, 1e-5, 60), "<dp_Set><Pa>50.000000</Pa></dp_Set>"},
        {Stub("Pump", 5, 1, 6, 1), ""},
        {Stub("Pump", 5, 0, 2e-5, 1.25), "<DpCurve><Qv><ls>0.000020</ls></Qv><dp><Pa>1.250000</Pa></dp></DpCurve>"},
        {Stub("Pump", 5, 0, 1e6, 1e6),
         "<DpCurve><Qv><ls>99999.000000</ls></Qv><dp><Pa>99999.000000</Pa></dp></DpCurve>"},
    };
    for (const auto& [stub, written] : cases)
        EXPECT_EQ(Optional(stub), written) << stub.kind << " " << stub.flow << " " << stub.pressureDrop;
    const std::pair<SoundBands, bool> sounds[] = {{{}, false}, {{-5, 5}, false}, {{-5, 0, 0, 0, 0, 0, 0, 5.5}, true}};
    for (const auto& [bands, written] : sounds) {
        EXPECT_EQ(Has(Optional(Stub("Component", 0, 0, 0, 0, 0, bands)), "<Generation>"), written);
        EXPECT_EQ(Has(Optional(Stub("Component", 0, 0, 0, 0, 0, {}, bands)), "<Attenuation>"), written);
    }
}

TEST_F(CreateParts, StubsParentTypeAndConnections) {
    ConnectionStub stub = Stub("A&B");
    stub.parentPart = "2&0";
    stub.customPartType = "A & B";
    std::string connections;
    const struct {
        double width, height;
        const char* shape;
    } cases[] = {
        {160.99, 0, "<Shape><ID>0</ID></Shape><Diameter>160</Diameter>"},
        {125, 0.0000005, "<Shape><ID>0</ID></Shape><Diameter>125</Diameter>"},
        {300.5, 1e-6, "<Shape><ID>1</ID></Shape><Width>300</Width><Height>0</Height>"},
        {400.99, 200.99, "<Shape><ID>1</ID></Shape><Width>400</Width><Height>200</Height>"},
        {1e300, INFINITY, "<Shape><ID>1</ID></Shape><Width>2147483647</Width><Height>2147483647</Height>"},
        {-1e300, NAN, "<Shape><ID>0</ID></Shape><Diameter>-2147483648</Diameter>"},
        {NAN, 0, "<Shape><ID>0</ID></Shape><Diameter>0</Diameter>"},
    };
    for (const auto& c : cases) {
        stub.connections.push_back({Placement(), c.width, c.height});
        connections += "<Connection>" + PlacementText() + c.shape + "</Connection>";
    }
    EXPECT_EQ(ConnectionStubCommand(stub),
              "<CreateConnectionStub><Function><Name>A&amp;B</Name></Function>"
              "<ParentPart>2&0</ParentPart>" +
                  systemType_ + "<CustomPartType>A &amp; B</CustomPartType><Connections>" + connections +
                  "</Connections></CreateConnectionStub>");
}

}  // namespace
