// Creating parts: the command as the server receives it, the part as it can be read afterwards, and the report of a
// failure.
#include "CreatePartsFixture.h"

namespace {

using CreateParts = CreatePartsTest;

const PartProduct kProduct = {"d<Type>", "U&1", "F\"1\"", "K'1'"};
const std::string kProductText =
    "<KPDClass><Name>d&lt;Type&gt;</Name></KPDClass><Usercode>U&amp;1</Usercode>"
    "<Productfamilykey>F&quot;1&quot;</Productfamilykey><Productkey>K&apos;1&apos;</Productkey>";

RadiatorData Radiator() {
    RadiatorData radiator;
    radiator.width = 1200;
    radiator.height = 600;
    radiator.heatingPower = 850.5;
    radiator.connectionSize = 15;
    radiator.inletId = 3;
    radiator.outletId = 4;
    return radiator;
}

PipeData Pipe() {
    PipeData pipe;
    pipe.system = {9, 12};
    pipe.normal = AcGeVector3d(0, 0, 1);
    pipe.series = "S&1";
    pipe.diameter = 22.5;
    return pipe;
}

TEST_F(CreateParts, Manifold) {
    Start();
    const std::string part = utils_.CreateManifold({9, 12}, Placement(), "round");
    ExpectCreated(part,
                  "<CreatePart><Part><Type><Define>EWAPART_MANIFOLD</Define></Type><System><ID>9</ID><Type><ID>12"
                  "</ID></Type></System>" +
                      PlacementText() + "<Geometry><Shape>round</Shape></Geometry></Part></CreatePart>");
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Geometry/Shape", true), "round");
    EXPECT_EQ(utils_.GetPartAttPoint(part, "/Part/Position/WCS", true).y, -2000);
    EXPECT_EQ(utils_.GetPartAttOrDefault(part, "/Part/System/Type/ID", -1), 12);
}

TEST_F(CreateParts, ShapeIsCopiedAsItStands) {
    Start();
    utils_.CreateManifold({9, 12}, Placement(), "a&amp;b %d");
    const auto sent = Sent("createPart");
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_NE(sent[0].find("<Shape>a&amp;b %d</Shape>"), std::string::npos) << sent[0];
}

TEST_F(CreateParts, ValveAndDuctDeviceHaveTheNormalFirstAndTheUserCodeAsItIs) {
    Start();
    const PartProduct product = {"d<Type>", "U&amp;1", "F\"1\"", "K'1'"};
    const std::string command = "<CreatePart>" + kProductText + "<Part><Type><Define>EWAPART_SILENCER</Define></Type>" +
                                kPosition + kNormal + kDirection +
                                "<Connection><ConnectedTo>2A4</ConnectedTo></Connection></Part></CreatePart>";
    const std::string valve = utils_.CreateValve(product, "EWAPART_SILENCER", Placement(), "2A4");
    ExpectCreated(valve, command);
    EXPECT_EQ(utils_.GetPartAtt(valve, "/Part/Connection[0]/ConnectedTo", true), "2A4");
    EXPECT_EQ(utils_.GetPartAtt(valve, "/Part/Usercode", true), "U&1");
    bench::ClearJournal();
    ExpectCreated(utils_.CreateDuctDevice(product, "EWAPART_SILENCER", Placement(), "2A4"), command);
}

TEST_F(CreateParts, RadiatorWithEachOptionalElement) {
    Start();
    const std::string head = "<CreatePart>" + kProductText +
                             "<Part><Type><Define>EWAPART_RADIATOR</Define></Type><System><ID>9</ID></System>" +
                             PlacementText() +
                             "<Width>1200</Width><Height>600</Height><P_Heating><W>850.500000</W></P_Heating></Part>"
                             "<ConnectionSize>15</ConnectionSize>";
    const std::string ends = "<Inlet><ID>3</ID></Inlet><Outlet><ID>4</ID></Outlet>";
    const std::string valve =
        "<Valve><Usercode>V&amp;</Usercode><Productfamilykey>F&lt;</Productfamilykey><Productkey>K&gt;</Productkey>"
        "</Valve>";
    const struct {
        std::optional<int> filled;
        RadiatorValve valve;
        std::string rest;
    } cases[] = {
        {{}, {}, ends},
        {0, {}, "<Filled>0</Filled>" + ends},
        {1, {1, "", "F<", "K>"}, "<Filled>1</Filled>" + ends},
        {{}, {1, "V&", "", "K>"}, ends},
        {{}, {1, "V&", "F<", ""}, ends},
        {{}, {{}, "V&", "F<", "K>"}, ends + valve},
        {{}, {0, "V&", "F<", "K>"}, ends + "<DrawValve>0</DrawValve>" + valve},
    };
    for (const auto& c : cases) {
        RadiatorData radiator = Radiator();
        radiator.filled = c.filled;
        ExpectCreated(utils_.CreateRadiator(kProduct, 9, Placement(), radiator, c.valve),
                      head + c.rest + "</CreatePart>");
    }
}

TEST_F(CreateParts, AirTerminalWithItsOptionalSizes) {
    Start();
    const std::string head = "<CreatePart>" + kProductText +
                             "<Part><Type><Define>EWAPART_SUPPLY</Define></Type><System><ID>1</ID></System>" +
                             PlacementText() + "<qv_set><ls>35.250000</ls></qv_set>";
    const struct {
        int angle, length;
        const char* rest;
    } cases[] = {{0, 0, ""},
                 {-1, -1, ""},
                 {1, 0, "<GrilleAngle>1</GrilleAngle>"},
                 {0, 1, "<CollarLength>1</CollarLength>"},
                 {45, 150, "<GrilleAngle>45</GrilleAngle><CollarLength>150</CollarLength>"}};
    for (const auto& c : cases) {
        const std::string part =
            utils_.CreateAirTerminalDevice(kProduct, 1, Placement(), {"EWAPART_SUPPLY", 35.25, c.angle, c.length});
        ExpectCreated(part, head + c.rest + "</Part></CreatePart>");
        EXPECT_EQ(utils_.GetPartAttReal(part, "/Part/qv_set/ls", true), 35.25);
        bench::ClearJournal();
    }
}

TEST_F(CreateParts, TypeDefineOfAnAirTerminalIsCopiedAsItStands) {
    Start();
    EXPECT_EQ(utils_.CreateAirTerminalDevice(kProduct, 1, Placement(), {"A&B", 1, 0, 0}), "");
    const auto sent = Sent("createPart");
    ASSERT_EQ(sent.size(), 1u);
    EXPECT_NE(sent[0].find("<Define>A&B</Define>"), std::string::npos) << sent[0];
    utils_.CreateValve(kProduct, "A&B", Placement(), "2<A4");
    EXPECT_NE(Sent("createPart").at(0).find("<Define>A&amp;B</Define>"), std::string::npos);
}

TEST_F(CreateParts, PipeBetweenEachPairOfEnds) {
    Start();
    const AcGePoint3d a(0, 0, 0), b(0, 3000, 4000);
    const std::string first = "<Connection><ConnectedTo>2A4</ConnectedTo></Connection>";
    const std::string second = "<Connection><ConnectedTo>2A1</ConnectedTo></Connection>";
    const std::string start = "<Connection><Position><WCS>0.000000 0.000000 0.000000</WCS></Position></Connection>";
    const std::string end = "<Connection><Position><WCS>0.000000 3000.000000 4000.000000</WCS></Position></Connection>";
    const struct {
        std::string part, ends;
    } pipes[] = {
        {utils_.CreatePipe("2A4", "2A1", Pipe()), first + second},
        {utils_.CreatePipe("2A4", b, Pipe()), first + end},
        {utils_.CreatePipe(a, "2A1", Pipe()), start + second},
        {utils_.CreatePipe(a, b, Pipe()), start + end},
    };
    const auto sent = Sent("createPart");
    ASSERT_EQ(sent.size(), 4u);
    for (size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(sent[i], "<CreatePart><Part><Type><Define>EWAPART_DUCT</Define></Type>" + pipes[i].ends +
                               "<System><ID>9</ID><Type><ID>12</ID></Type></System>" + kNormal +
                               "<Serie><ID>S&amp;1</ID></Serie><Shape><ID>0</ID></Shape><Diameter>22.500000</Diameter>"
                               "</Part></CreatePart> -> '" +
                               pipes[i].part + "' 0");
    }
    EXPECT_EQ(utils_.GetPartAtt(pipes[3].part, "/Part/Length", true), "5000");
    EXPECT_EQ(utils_.GetPartAtt(pipes[0].part, "/Part/Connection[1]/ConnectedTo", true), "2A1");
}

TEST_F(CreateParts, HandleOfAPipesEndIsEscaped) {
    Start();
    EXPECT_EQ(utils_.CreatePipe("2<4", AcGePoint3d(), Pipe()), "");
    EXPECT_NE(Sent("createPart").at(0).find("<ConnectedTo>2&lt;4</ConnectedTo>"), std::string::npos);
}

TEST_F(CreateParts, BendOfAPipeGoesWithTheServersVersion) {
    const struct {
        long version;
        double coefficient;
        bool lock;
        const char* rest;
    } cases[] = {
        {20090299, 1.5, false, "<Bend><RDCoefficient>1.500000</RDCoefficient></Bend>"},
        {20090300, 1.5, false, "<Bend><LDCoefficient>1.500000</LDCoefficient></Bend>"},
        {20090300, -0.5, true, "<Bend><LDCoefficient>-0.500000</LDCoefficient></Bend><Locked><Size>1</Size></Locked>"},
        {20090300, 0, true, "<Locked><Size>1</Size></Locked>"},
    };
    for (const auto& c : cases) {
        utils_.Disconnect();
        Start(c.version);
        PipeData pipe = Pipe();
        pipe.bendCoefficient = c.coefficient;
        pipe.lockSize = c.lock;
        EXPECT_NE(utils_.CreatePipe(AcGePoint3d(0, 0, 0), AcGePoint3d(1000, 0, 0), pipe), "") << Printed();
        const std::string sent = Sent("createPart").at(0);
        EXPECT_NE(sent.find(std::string("</Diameter>") + c.rest + "</Part></CreatePart> -> "), std::string::npos)
            << sent;
    }
}

class FailedCreation : public CreatePartsTest {
 protected:
    // Each operation with good arguments.
    struct Operation {
        const char* name;
        const char* message;
        int line;
        std::string (*run)(KLComUtils& utils);
    };
    static const Operation kOperations[7];

    void ExpectEachReported() {
        for (const Operation& operation : kOperations) {
            EXPECT_EQ(operation.run(utils_), "") << operation.name;
            EXPECT_EQ(Printed(), Report(operation.message, operation.line, operation.name, ""));
        }
    }
};

const FailedCreation::Operation FailedCreation::kOperations[7] = {
    {"CreateManifold", "Failed to create manifold.", 38,
     [](KLComUtils& utils) {
         return utils.CreateManifold({1, 2}, Placement(), "round");
     }},
    {"CreateValve", "Failed to create valve.", 76,
     [](KLComUtils& utils) { return utils.CreateValve(kProduct, "EWAPART_STOPVALVE", Placement(), "2A4"); }},
    {"CreateRadiator", "Failed to create radiator.", 133,
     [](KLComUtils& utils) { return utils.CreateRadiator(kProduct, 1, Placement(), Radiator(), {}); }},
    {"CreateAirTerminalDevice", "Failed to create air terminal device.", 173,
     [](KLComUtils& utils) {
         return utils.CreateAirTerminalDevice(kProduct, 1, Placement(), {"EWAPART_SUPPLY", 1, 0, 0});
     }},
    {"CreateDuctDevice", "Failed to create duct device.", 210,
     [](KLComUtils& utils) { return utils.CreateDuctDevice(kProduct, "EWAPART_SILENCER", Placement(), "2A4"); }},
    {"CreateConnectionStub", "Failed to create connection stub.", 372,
     [](KLComUtils& utils) {
         ConnectionStub stub;
         stub.kind = "Fan";
         return utils.CreateConnectionStub(stub);
     }},
    {"CreatePipe", "Failed to create pipe.", 444,
     [](KLComUtils& utils) { return utils.CreatePipe("2A4", AcGePoint3d(), Pipe()); }},
};

TEST_F(FailedCreation, ServersRefusalIsReportedWithoutItsReply) {
    Start();
    for (int i = 1; i <= 7; ++i) {
        bench::FailCall("IKlimora200805::createPart", i, 7);
        bench::FailCall("IKlimora200805::createConnectionStub", i, -7);
    }
    const std::string before = bench::ProjectXml();
    ExpectEachReported();
    EXPECT_EQ(bench::ProjectXml(), before);
}

TEST_F(FailedCreation, MissingConnectionIsReportedAlike) {
    ExpectEachReported();
}

}  // namespace
