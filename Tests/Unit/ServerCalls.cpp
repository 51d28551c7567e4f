// Every operation of the server connection: what reaches the server, what comes back, and the trace line of each in all
// of the switches' combinations. A planned failure with a failing HRESULT is a call that failed; any other code is the
// server's own answer.
#include <ostream>

#include "KlimoraBench.h"
#include "Util/KlimComSrvImpl.h"

namespace {

struct Operation {
    const char* name;    // of the method
    const char* server;  // on which it is called
    const char* sent;    // arguments as the server journals them
    int (*call)(KlimComSrvImpl&);
    const char* trace;  // between the class-qualified name and "=result": arguments after a failure
    bool endsLine;
    bool onlyFailedCalls;  // leaves a trace line only when the call itself failed
};

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << operation.name;
}

std::string g_text;
double g_number, g_x, g_y, g_z;

const Operation kOperations[] = {
    {"getPartAtt", "IKlimora200805", "'2A1' '/Part/Type/ID'",
     [](KlimComSrvImpl& c) { return c.getPartAtt("2A1", "/Part/Type/ID", g_text); }, ":('2A1', '/Part/Type/ID', '')",
     false, false},
    {"setPartAtt", "IKlimora200805", "'2A1' '/Part/UserCode' 'a\"b'",
     [](KlimComSrvImpl& c) { return c.setPartAtt("2A1", "/Part/UserCode", "a\"b"); },
     ":('2A1', '/Part/UserCode', 'a\"b')", true, false},
    {"getPartAttDouble", "IKlimora200805", "'2A1' '/Part/Length'",
     [](KlimComSrvImpl& c) { return c.getPartAttDouble("2A1", "/Part/Length", g_number); },
     ":('2A1', '/Part/Length', 0.000000)", true, false},
    {"setPartAttDouble", "IKlimora200805", "'2A1' '/Part/Length' 12.5",
     [](KlimComSrvImpl& c) { return c.setPartAttDouble("2A1", "/Part/Length", 12.5); },
     ":('2A1', '/Part/Length', 12.500000)", true, false},
    {"getPartAttPoint", "IKlimora200805", "'2A1' '/Part/Position/WCS'",
     [](KlimComSrvImpl& c) { return c.getPartAttPoint("2A1", "/Part/Position/WCS", g_x, g_y, g_z); },
     ":('2A1', '/Part/Position/WCS', 0.000000, 0.000000, 0.000000)", true, false},
    {"setPartAttPoint", "IKlimora200805", "'2A1' '/Part/Position/WCS' 1 2.5 -3",
     [](KlimComSrvImpl& c) { return c.setPartAttPoint("2A1", "/Part/Position/WCS", 1, 2.5, -3); },
     ":('2A1', '/Part/Position/WCS', 1.000000, 2.500000, -3.000000)", true, false},
    {"createPart", "IKlimora200805", "<A/>", [](KlimComSrvImpl& c) { return c.createPart("<A/>", g_text); },
     ":('<A/>', '')", true, false},
    {"selectPart", "IKlimora200805", "<B/>", [](KlimComSrvImpl& c) { return c.selectPart("<B/>", g_text); },
     ":('<B/>', '')", true, false},
    {"createConnectionStub", "IKlimora200805", "<C/>",
     [](KlimComSrvImpl& c) { return c.createConnectionStub("<C/>", g_text); }, ":('<C/>', '')", true, false},
    {"setBinVariableSize", "IKlimora200805", "3 8", [](KlimComSrvImpl& c) { return c.setBinVariableSize(3, 8); },
     ":(3, 8)", true, false},
    {"setBinVariableData", "IKlimora200805", "3 4 '00FF'",
     [](KlimComSrvImpl& c) { return c.setBinVariableData(3, 4, "00FF"); }, ":(3, 4, 'hexdata')", true, false},
    {"freeBinVariable", "IKlimora200805", "3", [](KlimComSrvImpl& c) { return c.freeBinVariable(3); }, ":(3)", true,
     false},
    {"manageProductData", "IKlimora200805", "<D/>", [](KlimComSrvImpl& c) { return c.manageProductData("<D/>"); },
     ":('<D/>')", true, false},
    {"erasePart", "IKlimora200805", "<E/>", [](KlimComSrvImpl& c) { return c.erasePart("<E/>"); }, ":('<E/>')", true,
     false},
    {"movePart", "IKlimora200805", "<F/>", [](KlimComSrvImpl& c) { return c.movePart("<F/>"); }, ":('<F/>')", true,
     false},
    {"manageCalculationDatabase", "IKlimora201011", "<G/>",
     [](KlimComSrvImpl& c) { return c.manageCalculationDatabase("<G/>", g_text); }, ":('<G/>')", true, true},
    {"selectProduct", "IKlimora201011", "<H/>", [](KlimComSrvImpl& c) { return c.selectProduct("<H/>"); }, ":('<H/>')",
     true, true},
    {"calculate", "IKlimoraLatest", "<I/>", [](KlimComSrvImpl& c) { return c.calculate("<I/>"); }, ":('<I/>')", true,
     true},
};

class ServerCall : public KlimoraBench, public testing::WithParamInterface<Operation> {
 protected:
    ServerCall() {
        StartServer();
        g_text.clear();
        g_number = g_x = g_y = g_z = 0;
    }

    std::string Method() const { return std::string(GetParam().server) + "::" + GetParam().name; }

    // Fails the operation's next call with a code and gives its result.
    int Failing(KlimComSrvImpl& connection, long code) {
        bench::ClearFailures();
        bench::FailCall(Method().c_str(), 1, code);
        return GetParam().call(connection);
    }

    std::string TraceLine(int result, const std::string& error) const {
        return std::string("KlimComSrvImpl::") + GetParam().name + GetParam().trace + "=" + std::to_string(result) +
               " " + error + (GetParam().endsLine ? "\n" : "");
    }
};

INSTANTIATE_TEST_SUITE_P(Klimora, ServerCall, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& info) { return info.param.name; });

TEST_P(ServerCall, ReachesItsSlotWithItsArguments) {
    KlimComSrvImpl connection;
    EXPECT_EQ(Failing(connection, 17), 17) << "the server's own code comes back as it is";
    const std::vector<std::string> calls = Calls(Method() + " ");
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0], std::string(GetParam().sent) + " -> 17");
}

TEST_P(ServerCall, FailedCallGivesMinusTwoAndLeavesOutputs) {
    KlimComSrvImpl connection;
    g_text = "poison";
    g_number = g_x = g_y = g_z = -7;
    EXPECT_EQ(Failing(connection, E_FAIL), -2);
    EXPECT_EQ(g_text, "poison");
    EXPECT_TRUE(g_number == -7 && g_x == -7 && g_y == -7 && g_z == -7);
}

TEST_P(ServerCall, TracesAsTheSwitchesSay) {
    KlimComSrvImpl connection;
    for (int bits = 0; bits < 8; ++bits) {
        const TraceSwitches switches = {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        connection.setTrace(switches);
        const std::string before = connection.lastTrace();
        Printed();
        ASSERT_EQ(Failing(connection, 100 + bits), 100 + bits);
        const std::string line = TraceLine(100 + bits, Method() + " was planned to fail.");
        const bool kept = bits != 0 && !GetParam().onlyFailedCalls;
        EXPECT_EQ(connection.lastTrace(), kept ? line : before) << "switches " << bits;
        const bool echoed = kept && (switches.failures || switches.all);
        EXPECT_EQ(Printed(), echoed ? line + "\n" : "") << "switches " << bits;
    }
}

TEST_P(ServerCall, TracesAFailedCallWithItsResult) {
    KlimComSrvImpl connection;
    connection.setTrace({true, true, false});
    ASSERT_EQ(Failing(connection, E_FAIL), -2);
    EXPECT_EQ(connection.lastTrace(), TraceLine(-2, ""));
    EXPECT_EQ(Printed(), TraceLine(-2, "") + "\n");
}

using ServerTexts = KlimoraBench;

TEST_F(ServerTexts, TerminatorIsCountedInWhatIsSent) {
    const BStr text("duct");
    ASSERT_EQ(SysStringLen(text.get()), 5u);
    EXPECT_EQ(std::wstring(text.get(), 5), std::wstring(L"duct\0", 5));
    EXPECT_EQ(SysStringLen(BStr("").get()), 1u);
    EXPECT_FALSE(BStr(nullptr));
}

TEST_F(ServerTexts, SuccessIsTracedWithoutAskingForAnError) {
    StartServer();
    OpenSample();
    KlimComSrvImpl connection;
    connection.setTrace({true, false, false});
    bench::ClearJournal();
    std::string value;
    ASSERT_EQ(connection.getPartAtt("2A3", "/part/diameter", value), 0);
    EXPECT_EQ(value, "250");
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::getPartAtt:('2A3', '/part/diameter', '250')=0 ");
    EXPECT_TRUE(Calls("IKlimora200805::getLastErrorText").empty());
    EXPECT_EQ(Printed(), "");
    connection.setTrace({false, false, true});
    connection.getPartAtt("2A3", "/part/diameter", value);
    EXPECT_EQ(Printed(), "KlimComSrvImpl::getPartAtt:('2A3', '/part/diameter', '250')=0 \n");
}

TEST_F(ServerTexts, LongTextsArriveWhole) {
    StartServer();
    OpenSample();
    KlimComSrvImpl connection;
    for (const size_t length : {0u, 1u, 255u, 256u, 257u, 9000u}) {
        const std::string sent(length, 'x');
        ASSERT_EQ(connection.setPartAtt("2A3", "/Part/Geometry/Source[0]/KModel/Params", sent.c_str()), 0);
        std::string value = "poison";
        ASSERT_EQ(connection.getPartAtt("2A3", "/Part/Geometry/Source[0]/KModel/Params", value), 0);
        EXPECT_EQ(value, sent) << length;
    }
}

TEST_F(ServerTexts, LettersOfTheCodePageSurvive) {
    StartServer();
    OpenSample();
    KlimComSrvImpl connection;
    if (GetACP() != 1252) GTEST_SKIP() << "needs the western code page";
    ASSERT_EQ(connection.setPartAtt("2A3", "/Part/Geometry/Source[0]/KModel/Params",
                                    "K\xE4lte \xD8"
                                    "250"),
              0);
    EXPECT_EQ(bench::PartAttribute("2A3", "/Part/Geometry/Source[0]/KModel/Params"),
              "K\xC3\xA4lte \xC3\x98"
              "250");
    std::string value;
    ASSERT_EQ(connection.getPartAtt("2A3", "/Part/Geometry/Source[0]/KModel/Params", value), 0);
    EXPECT_EQ(value,
              "K\xE4lte \xD8"
              "250");
}

TEST_F(ServerTexts, TraceLineIsCutToItsBuffer) {
    StartServer();
    KlimComSrvImpl connection;
    connection.setTrace({true, false, false});
    connection.manageProductData(std::string(20000, 'y').c_str());
    EXPECT_EQ(connection.lastTrace().size(), 8191u);
    connection.setBinVariableSize(1, 1000000);
    connection.setBinVariableData(1, 0, std::string(2000000, 'A').c_str());
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::setBinVariableData:(1, 0, 'hexdata')=0 \n");
    connection.freeBinVariable(1);
}

TEST_F(ServerTexts, VersionAndErrorTextAreNeverTraced) {
    bench::KlimoraServer server;
    server.version = 20090300;
    StartServer(server);
    KlimComSrvImpl connection;
    connection.setTrace({true, true, true});
    EXPECT_EQ(connection.getVersion(), 20090300);
    EXPECT_EQ(connection.getLastErrorText(), "");
    bench::FailCall("IKlimora200805::getVersion", 2);
    bench::FailCall("IKlimora200805::getLastErrorText", 2);
    EXPECT_EQ(connection.getVersion(), 0);
    EXPECT_EQ(connection.getLastErrorText(), "");
    EXPECT_EQ(connection.lastTrace(), "");
    EXPECT_EQ(Printed(), "");
}

}  // namespace
