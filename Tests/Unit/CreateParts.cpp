// Creating parts: the command of each operation as the server receives it, the handle that is returned, and the report
// when the server fails or is not connected.
#include <cmath>
#include <functional>
#include <utility>

#include "CommaLocale.h"
#include "CreatePartsFixture.h"
#include "Util/ConnectionStubCommand.h"
#include "Util/PartCommands.h"

namespace {

class CreateParts : public CreatePartsTest {
 protected:
    const PartProduct product_ = {"d<Type>", "U&amp;1", "F\"1\"", "K'1'"};
};

// Without parent, part type and connections.
ConnectionStub Stub(const char* kind, double flow = 0, double drop = 0, double curveFlow = 0, double curveDrop = 0,
                    double power = 0, const std::optional<SoundBands>& generation = {},
                    const std::optional<SoundBands>& attenuation = {}) {
    return {kind, "", {9, 12}, "", flow, drop, curveFlow, curveDrop, power, generation, attenuation, {}};
}

TEST_F(CreateParts, ReturnsTheHandleOrReportsTheFailure) {
    Start();
    const std::function<std::string(KLComUtils&)> creations[] = {
        [](KLComUtils& utils) {
            return utils.CreateManifold({9, 12}, Placement(), "a&amp;b %d");
        },
        [&](KLComUtils& utils) { return utils.CreateValve(product_, "EWAPART_SUPPLY", Placement(), "2A4"); },
        [&](KLComUtils& utils) { return utils.CreateDuctDevice(product_, "EWAPART_SUPPLY", Placement(), "2A4"); },
        [&](KLComUtils& utils) {
            return utils.CreateRadiator(product_, 9, Placement(), {1200, 600, 850.5, 15, 0, 3, 4}, {});
        },
        [&](KLComUtils& utils) {
            return utils.CreateAirTerminalDevice(product_, 9, Placement(), {"EWAPART_SUPPLY", 35.25, 45, 150});
        },
        [](KLComUtils& utils) {
            return utils.CreatePipe("2A4", "2A1", {{9, 12}, AcGeVector3d(0, 0, 1), "S&1", 22.5});
        },
        [](KLComUtils& utils) { return utils.CreateConnectionStub(Stub("Fan")); },
    };
    for (const auto& create : creations) {
        Log(create(utils_));
        bench::FailCall("IKlimora200805::create*", 1, 7);
        Printed();
        LogReport(create(utils_));
        const std::string report = Printed();
        KLComUtils unconnected;
        EXPECT_EQ(create(unconnected), "");
        EXPECT_EQ(Printed(), report);
        bench::ClearCallLog();
    }
}

TEST_F(CreateParts, EscapesStrings) {
    Start();
    LogCommand(utils_.CreateValve(product_, "A&B", Placement(), "2<A4"));
    LogCommand(utils_.CreateAirTerminalDevice(product_, 1, Placement(), {"A&B", 1, 0, 0}));
    LogCommand(utils_.CreatePipe("2<4", AcGePoint3d(), {}));
}

TEST_F(CreateParts, WritesEachOptionalElementOfARadiator) {
    Start();
    const CommaLocale locale;
    const std::pair<std::optional<int>, RadiatorValve> cases[] = {
        {1, {1, "", "F<", "K>"}},     {{}, {1, "V&", "", "K>"}},   {{}, {1, "V&", "F<", ""}},
        {{}, {{}, "V&", "F<", "K>"}}, {{}, {0, "V&", "F<", "K>"}},
    };
    for (const auto& [filled, valve] : cases)
        LogCommand(utils_.CreateRadiator(product_, 9, Placement(), {1200, 600, 850.5, 15, filled, 3, 4}, valve));
}

TEST_F(CreateParts, WritesTheOptionalSizesOfAnAirTerminal) {
    Start();
    for (const auto& [angle, length] : {std::pair{-1, -1}, {1, 0}, {0, 1}})
        LogCommand(utils_.CreateAirTerminalDevice(product_, 9, Placement(), {"EWAPART_SUPPLY", 35.25, angle, length}));
}

TEST_F(CreateParts, WritesAPipeBetweenEachPairOfEndsForTheServersVersion) {
    const AcGePoint3d a(1, 2, 0.5), b(0, 3000, 4000);
    const struct {
        long version;
        PipeEnd first, second;
        double coefficient;
        bool lock;
    } cases[] = {
        {20090299, "2A4", "2A1", 1.5, false},
        {20090300, "2A4", b, 1.5, false},
        {20090300, a, "2A1", -0.5, true},
        {20090300, a, b, 0, false},
    };
    for (const auto& c : cases) {
        Start(c.version);
        LogCommand(
            utils_.CreatePipe(c.first, c.second, {{9, 12}, AcGeVector3d(0, 0, 1), "S&1", 22.5, c.coefficient, c.lock}));
        utils_.Disconnect();
    }
}

TEST_F(CreateParts, WritesTheElementsOfEachKindOfStub) {
    for (const char* const kind :
         {"TerminalDevice", "Radiator", "HeatingDevice", "WaterDevice", "DuctworkRoot", "Fan", "PipeworkRoot", "Pump",
          "HotColdWaterJoint", "HotCircWaterJoint", "Nbranch", "Component", "pump", "Fan "})
        Log(ConnectionStubCommand(Stub(kind, 5, 200000, 6, 60, 700, SoundBands{1, 2, 3, 4, 5, 6, 7, 8.5},
                                       SoundBands{0, 0, 0, 0, 0, 0, 0, 0.25})));
}

// The part of a stub's command between system and connections.
std::string Optional(const ConnectionStub& stub) {
    const std::string command = ConnectionStubCommand(stub);
    const size_t from = command.find("</System>") + 9;
    return command.substr(from, command.find("<Connections>") - from);
}

TEST_F(CreateParts, LimitsTheValuesOfAStub) {
    const double belowFlow = std::nextafter(1e-5, 0.0), aboveDrop = std::nextafter(1.0, 2.0);
    const std::string least = "<Qv_Set><ls>0.000010</ls></Qv_Set>";  // a clamped flow is always written
    const std::string most = "<Qv_Set><ls>99999.000000</ls></Qv_Set>",
                      mostDrop = "<dp_Set><Pa>99999.000000</Pa></dp_Set>";
    const std::string dropOfOne = "<dp_Set><Pa>1.000000</Pa></dp_Set>";
    const std::string bands = "<dB>-5.000000 0.000000 0.000000 0.000000 0.000000 0.000000 0.000000 5.500000</dB>";
    const SoundBands cancelling = {-5, 5}, loud = {-5, 0, 0, 0, 0, 0, 0, 5.5};
    // Kind, flow, pressure drop, flow and pressure drop of the curve, heating power, generation, attenuation.
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
        {Stub("Component", 0, 0, 0, 0, 0, SoundBands{}, cancelling), ""},
        {Stub("Component", 0, 0, 0, 0, 0, cancelling, SoundBands{}), ""},
        {Stub("Component", 0, 0, 0, 0, 0, loud, loud), "<Sound><Generation>" + bands +
                                                           "</Generation></Sound><Sound><Attenuation>" + bands +
                                                           "</Attenuation></Sound>"},
    };
    for (const auto& [stub, written] : cases)
        EXPECT_EQ(Optional(stub), written) << stub.kind << " " << stub.flow << " " << stub.pressureDrop;
}

TEST_F(CreateParts, WritesParentTypeAndConnectionsOfAStub) {
    ConnectionStub stub = Stub("A&B");
    stub.parentPart = "2&0";
    stub.customPartType = "A & B";
    for (const auto& [width, height] : {std::pair{160.99, 0.0},
                                        {125, 0.0000005},
                                        {300.5, 1e-6},
                                        {400.99, 200.99},
                                        {1e300, INFINITY},
                                        {-1e300, NAN},
                                        {NAN, 0}})
        stub.connections.push_back({Placement(), width, height});
    Log(ConnectionStubCommand(stub));
}

}  // namespace
