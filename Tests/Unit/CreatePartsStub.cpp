// Connection stubs: which kind carries which element, the limits of the values, and the connections.
#include <cmath>

#include "CreatePartsFixture.h"
#include "Util/KLComUtils_CreatePartsCommands.h"

namespace {

using CreatePartsStub = CreatePartsTest;

const SoundBands kGeneration = {1, 2, 3, 4, 5, 6, 7, 8.5};
const SoundBands kAttenuation = {0, 0, 0, 0, 0, 0, 0, 0.25};

const char kFlow[] = "<Qv_Set><ls>5.000000</ls></Qv_Set>";
const char kDrop[] = "<dp_Set><Pa>50.000000</Pa></dp_Set>";
const char kCurve[] = "<DpCurve><Qv><ls>6.000000</ls></Qv><dp><Pa>60.000000</Pa></dp></DpCurve>";
const char kPower[] = "<P_Heating><W>700.000000</W></P_Heating>";
const char kNoise[] =
    "<Sound><Generation><dB>1.000000 2.000000 3.000000 4.000000 5.000000 6.000000 7.000000 8.500000</dB></Generation>"
    "</Sound>";
const char kDamping[] =
    "<Sound><Attenuation><dB>0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.250000</dB></Attenuation>"
    "</Sound>";

// Everything given.
ConnectionStub Stub(const std::string& kind) {
    ConnectionStub stub;
    stub.kind = kind;
    stub.system = {2, 1};
    stub.flow = 5;
    stub.pressureDrop = 50;
    stub.curveFlow = 6;
    stub.curvePressureDrop = 60;
    stub.heatingPower = 700;
    stub.generation = kGeneration;
    stub.attenuation = kAttenuation;
    return stub;
}

std::string Command(const std::string& kind, const std::string& optional, const std::string& connections = "") {
    return "<CreateConnectionStub><Function><Name>" + kind +
           "</Name></Function><System><ID>2</ID><Type><ID>1</ID></Type></System>" + optional + "<Connections>" +
           connections + "</Connections></CreateConnectionStub>";
}

// The optional elements of a command.
std::string Optional(const ConnectionStub& stub) {
    const std::string command = ConnectionStubCommand(stub);
    const size_t from = command.find("</System>") + 9;
    return command.substr(from, command.find("<Connections>") - from);
}

TEST_F(CreatePartsStub, EveryKindHasItsElements) {
    const std::string flow = kFlow, drop = kDrop, curve = kCurve, power = kPower, noise = kNoise, damping = kDamping;
    const struct {
        const char* kind;
        std::string elements;
    } cases[] = {
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
    Start();
    for (const auto& c : cases) {
        const std::string part = utils_.CreateConnectionStub(Stub(c.kind));
        EXPECT_NE(part, "") << Printed();
        EXPECT_EQ(Sent("createConnectionStub"),
                  std::vector<std::string>{Command(c.kind, c.elements) + " -> '" + part + "' 0"});
        EXPECT_EQ(utils_.GetPartAtt(part, "/Part/Function/Name", true), c.kind);
        bench::ClearJournal();
    }
    for (const char* const other : {"terminaldevice", "PUMP", "Fan ", "NBranch", ""})
        EXPECT_EQ(Optional(Stub(other)), "") << "kinds are compared exactly: " << other;
}

// One stub of a kind with one value, and what is written of it.
struct Limit {
    const char* kind;
    double value;
    const char* written;
};

template <size_t count>
void ExpectLimits(const Limit (&limits)[count], double ConnectionStub::*member, const std::string& before,
                  const std::string& after) {
    for (const Limit& limit : limits) {
        ConnectionStub stub;
        stub.kind = limit.kind;
        stub.curveFlow = stub.curvePressureDrop = 0;
        stub.*member = limit.value;
        const std::string written = *limit.written ? before + limit.written + after : "";
        EXPECT_EQ(Optional(stub), written) << limit.kind << " " << limit.value;
    }
}

TEST_F(CreatePartsStub, LimitsOfTheFlow) {
    const double least = 1e-5, below = std::nextafter(least, 0.0);
    // A stub with a clamped flow always has one.
    const Limit limits[] = {
        {"TerminalDevice", -3, "0.000010"},
        {"TerminalDevice", 0, "0.000010"},
        {"Radiator", below, "0.000010"},
        {"HeatingDevice", least, "0.000010"},
        {"TerminalDevice", 99999, "99999.000000"},
        {"TerminalDevice", 200000, "99999.000000"},
        {"Radiator", 99999.5, "99999.000000"},
        {"HeatingDevice", 1e9, "99999.000000"},
        {"WaterDevice", below, ""},
        {"WaterDevice", least, "0.000010"},
        {"WaterDevice", 200000, "200000.000000"},
        {"Pump", 5, ""},
    };
    ExpectLimits(limits, &ConnectionStub::flow, "<Qv_Set><ls>", "</ls></Qv_Set>");
}

TEST_F(CreatePartsStub, LimitsOfThePressureDrop) {
    // The least of a clamped pressure drop is not above 1, so it is not written.
    const Limit limits[] = {
        {"WaterDevice", 1, ""},
        {"WaterDevice", std::nextafter(1.0, 2.0), "1.000000"},
        {"Pump", 50, "50.000000"},
        {"Pump", 1e6, "1000000.000000"},
        {"Nbranch", 100000, "100000.000000"},
    };
    ExpectLimits(limits, &ConnectionStub::pressureDrop, "<dp_Set><Pa>", "</Pa></dp_Set>");
    const std::string leastFlow = "<Qv_Set><ls>0.000010</ls></Qv_Set>";
    const Limit clamped[] = {
        {"TerminalDevice", 0, ""},
        {"Radiator", 1, ""},
        {"HeatingDevice", 1.5, "<dp_Set><Pa>1.500000</Pa></dp_Set>"},
        {"TerminalDevice", 1e6, "<dp_Set><Pa>99999.000000</Pa></dp_Set>"},
        {"Radiator", 1e6, "<dp_Set><Pa>99999.000000</Pa></dp_Set>"},
        {"HeatingDevice", 1e6, "<dp_Set><Pa>99999.000000</Pa></dp_Set>"},
    };
    for (const Limit& limit : clamped) {
        ConnectionStub stub;
        stub.kind = limit.kind;
        stub.pressureDrop = limit.value;
        EXPECT_EQ(Optional(stub), leastFlow + limit.written) << limit.kind << " " << limit.value;
    }
}

TEST_F(CreatePartsStub, LimitsOfTheCurve) {
    const struct {
        double flow, drop;
        const char* written;
    } cases[] = {
        {1e-5, 60, ""},
        {6, 1, ""},
        {2e-5, 1.25, "<Qv><ls>0.000020</ls></Qv><dp><Pa>1.250000</Pa></dp>"},
        {100000, 100000, "<Qv><ls>99999.000000</ls></Qv><dp><Pa>99999.000000</Pa></dp>"},
    };
    for (const auto& c : cases) {
        ConnectionStub stub;
        stub.kind = "Pump";
        stub.curveFlow = c.flow;
        stub.curvePressureDrop = c.drop;
        EXPECT_EQ(Optional(stub), *c.written ? std::string("<DpCurve>") + c.written + "</DpCurve>" : "");
    }
}

TEST_F(CreatePartsStub, LimitsOfTheHeatingPower) {
    const std::string leastFlow = "<Qv_Set><ls>0.000010</ls></Qv_Set>";
    const Limit limits[] = {{"Radiator", 1e-5, ""},
                            {"Radiator", 2e-5, "<P_Heating><W>0.000020</W></P_Heating>"},
                            {"Radiator", 999999, "<P_Heating><W>999999.000000</W></P_Heating>"},
                            {"Radiator", 1e6, "<P_Heating><W>999999.000000</W></P_Heating>"}};
    for (const Limit& limit : limits) {
        ConnectionStub stub;
        stub.kind = limit.kind;
        stub.heatingPower = limit.value;
        EXPECT_EQ(Optional(stub), leastFlow + limit.written) << limit.value;
    }
}

TEST_F(CreatePartsStub, SoundNeedsASumAboveZero) {
    const struct {
        std::optional<SoundBands> bands;
        bool written;
    } cases[] = {
        {{}, false}, {SoundBands{}, false}, {SoundBands{-5, 5}, false}, {SoundBands{-5, 0, 0, 0, 0, 0, 0, 5.5}, true}};
    for (const auto& c : cases) {
        ConnectionStub stub;
        stub.kind = "Component";
        stub.generation = c.bands;
        EXPECT_EQ(Optional(stub).find("<Generation>") != std::string::npos, c.written);
        stub.generation.reset();
        stub.attenuation = c.bands;
        EXPECT_EQ(Optional(stub).find("<Attenuation>") != std::string::npos, c.written);
    }
}

TEST_F(CreatePartsStub, ParentAsItIsAndCustomTypeEscaped) {
    Start();
    ConnectionStub stub = Stub("Pump");
    stub.pressureDrop = stub.curveFlow = 0;
    stub.parentPart = "2A0";
    stub.customPartType = "A & B";
    const std::string part = utils_.CreateConnectionStub(stub);
    EXPECT_EQ(utils_.GetPartAtt(part, "/Part/CustomPartType", true), "A & B") << Printed();
    EXPECT_EQ(
        Sent("createConnectionStub"),
        std::vector<std::string>{
            "<CreateConnectionStub><Function><Name>Pump</Name></Function><ParentPart>2A0</ParentPart><System><ID>2"
            "</ID><Type><ID>1</ID></Type></System><CustomPartType>A &amp; B</CustomPartType><Connections>"
            "</Connections></CreateConnectionStub> -> '" +
            part + "' 0"});
    stub.parentPart = "2&0";
    EXPECT_NE(ConnectionStubCommand(stub).find("<ParentPart>2&0</ParentPart>"), std::string::npos);
}

TEST_F(CreatePartsStub, ConnectionsAreRoundOrRectangularByTheirHeight) {
    Start();
    ConnectionStub stub;
    stub.kind = "Nbranch";
    stub.system = {2, 1};
    stub.connections = {{Placement(), 160.99, 0},      {Placement(), 125, 0.0000005},  {Placement(), 300.5, 1e-6},
                        {Placement(), 400.99, 200.99}, {Placement(), 1e300, INFINITY}, {Placement(), -1e300, NAN},
                        {Placement(), NAN, 0}};
    const std::string part = utils_.CreateConnectionStub(stub);
    ASSERT_NE(part, "") << Printed();
    std::string connections;
    for (const char* const shape :
         {"<Shape><ID>0</ID></Shape><Diameter>160</Diameter>", "<Shape><ID>0</ID></Shape><Diameter>125</Diameter>",
          "<Shape><ID>1</ID></Shape><Width>300</Width><Height>0</Height>",
          "<Shape><ID>1</ID></Shape><Width>400</Width><Height>200</Height>",
          "<Shape><ID>1</ID></Shape><Width>2147483647</Width><Height>2147483647</Height>",
          "<Shape><ID>0</ID></Shape><Diameter>-2147483648</Diameter>",
          "<Shape><ID>0</ID></Shape><Diameter>0</Diameter>"})
        connections += "<Connection>" + PlacementText() + shape + "</Connection>";
    EXPECT_EQ(Sent("createConnectionStub"),
              std::vector<std::string>{Command("Nbranch", "", connections) + " -> '" + part + "' 0"});
    EXPECT_EQ(utils_.GetPartAttOrDefault(part, "/Part/Connection[3]/Height", -1), 200);
}

}  // namespace
