// Loading and unloading of modules, with a small real one.
#include "AutoCADFixture.h"

#include "rxdict.h"
#include "rxregsvc.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

class AutoCADModules : public AutoCADTest {
 protected:
    void TearDown() override {
        SetEnvironmentVariableA("BENCH_PROBE", nullptr);
        AutoCADTest::TearDown();
    }
    int Load(const char* behaviour) {
        SetEnvironmentVariableA("BENCH_PROBE", behaviour);
        return acedArxLoad(L"bench_probe.arx");
    }
    static std::vector<std::string> Messages() {
        std::vector<std::string> messages;
        for (const std::string& line : bench::Journal())
            if (line.rfind("probe: ", 0) == 0) messages.push_back(line.substr(7));
        return messages;
    }
};

}  // namespace

TEST_F(AutoCADModules, LoadsRunsAndUnloads) {
    ASSERT_EQ(Load(""), RTNORM);
    EXPECT_TRUE(bench::ModuleLoaded("BENCH_PROBE.ARX"));
    EXPECT_TRUE(bench::CommandExists("PROBE_CMDS", "PROBE"));
    EXPECT_TRUE(bench::ServiceExists("PROBE"));
    EXPECT_EQ(acedArxLoad(L"bench_probe"), RTERROR);
    EXPECT_TRUE(bench::RunCommand("PROBE"));
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("command group PROBE_CMDS", "service PROBE"));
    EXPECT_EQ(acedArxUnload(L"bench_probe"), RTNORM);
    EXPECT_EQ(GetModuleHandleA("bench_probe.arx"), nullptr);
    EXPECT_FALSE(bench::ServiceExists("PROBE"));
    EXPECT_THAT(Messages(), ElementsAre("message 1", "message 3", "command", "message 4", "message 2"));
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTERROR);
}

TEST_F(AutoCADModules, RefusalUnloadsTheModule) {
    EXPECT_EQ(Load("refuse"), RTERROR);
    EXPECT_FALSE(bench::ModuleLoaded("bench_probe.arx"));
    EXPECT_EQ(GetModuleHandleA("bench_probe.arx"), nullptr);
    EXPECT_THAT(Messages(), ElementsAre("message 1"));
    EXPECT_THAT(bench::Transcript(), HasSubstr("failed to load"));
}

TEST_F(AutoCADModules, LockedModuleStaysUntilAutoCADEnds) {
    ASSERT_EQ(Load("locked"), RTNORM);
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTERROR);
    EXPECT_TRUE(bench::ModuleLoaded("bench_probe.arx"));
    bench::StopAutoCAD();
    EXPECT_EQ(GetModuleHandleA("bench_probe.arx"), nullptr);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
    bench::StartAutoCAD();
}

TEST_F(AutoCADModules, LeftoversAreAccused) {
    ASSERT_EQ(Load("leave"), RTNORM);
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTNORM);
    EXPECT_THAT(TakeAccusations(), ElementsAre(AllOf(HasSubstr("command Probe"), HasSubstr("still registered")),
                                               AllOf(HasSubstr("service PROBE"), HasSubstr("still registered"))));
    EXPECT_FALSE(bench::RunCommand("PROBE"));
    bench::ClearBalance();
}

TEST_F(AutoCADModules, WhatIsNoModuleIsRefused) {
    EXPECT_EQ(acedArxLoad(L"no_such_module.arx"), RTERROR);
    ASSERT_TRUE(CopyFileA("BenchControl.dll", "bench_bare.arx", FALSE));
    EXPECT_EQ(acedArxLoad(L"bench_bare.arx"), RTERROR);
    EXPECT_TRUE(DeleteFileA("bench_bare.arx"));
    EXPECT_THAT(bench::Transcript(), AllOf(HasSubstr("cannot find that file"), HasSubstr("is incompatible")));
    EXPECT_FALSE(acrxUnlockApplication(this));
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("no application id")));
}

TEST_F(AutoCADModules, DrawingsAreAnnounced) {
    ASSERT_EQ(Load(""), RTNORM);
    bench::NewDrawing("next.dwg");
    bench::CloseDrawing();
    EXPECT_THAT(Messages(), ElementsAre("message 1", "message 3", "message 4", "message 3", "message 4"));
}

TEST_F(AutoCADModules, RemovalThatFailsHasStillTakenTheServiceAway) {
    ASSERT_NE(acrxRegisterService(L"SORV"), nullptr);
    bench::FailCall("AcRxDictionary::remove", 1);
    EXPECT_EQ(acrxServiceDictionary->remove(L"SORV"), nullptr);
    EXPECT_FALSE(bench::ServiceExists("SORV"));
    EXPECT_EQ(acrxServiceDictionary->remove(L"SORV"), nullptr);
}
