// Loading and unloading of modules, with a small real one.
#include "AutoCADFixture.h"

#include "rxregsvc.h"

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

using AutoCADModules = AutoCADTest;

static int Load(const char* behaviour) {
    SetEnvironmentVariableA("BENCH_PROBE", behaviour);
    return acedArxLoad(L"bench_probe.arx");
}

TEST_F(AutoCADModules, RefusalUnloadsAndALockKeeps) {
    EXPECT_EQ(Load("refuse"), RTERROR);
    EXPECT_EQ(GetModuleHandleA("bench_probe.arx"), nullptr);
    ASSERT_EQ(Load("locked"), RTNORM);
    EXPECT_EQ(acedArxLoad(L"BENCH_PROBE"), RTERROR);
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTERROR);
    bench::NewDrawing("next.dwg");
    bench::StopAutoCAD();
    EXPECT_EQ(GetModuleHandleA("bench_probe.arx"), nullptr);
    std::string messages;
    for (const std::string& line : bench::Journal())
        if (line.rfind("probe: ", 0) == 0) messages += line.substr(7);
    EXPECT_EQ(messages, "1134342");
    bench::StartAutoCAD();
}

TEST_F(AutoCADModules, LeftoversAreAccused) {
    ASSERT_EQ(Load("leave"), RTNORM);
    EXPECT_EQ(acedArxUnload(L"bench_probe.arx"), RTNORM);
    EXPECT_THAT(TakeAccusations(), ElementsAre(AllOf(HasSubstr("command Probe"), HasSubstr("still registered")),
                                               AllOf(HasSubstr("service PROBE"), HasSubstr("still registered"))));
    EXPECT_FALSE(bench::RunCommand("PROBE"));
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("command group PROBE_CMDS", "service PROBE"));
    bench::ClearBalance();
}

TEST_F(AutoCADModules, WhatIsNoModuleIsRefused) {
    EXPECT_EQ(acedArxLoad(L"no_such_module.arx"), RTERROR);
    EXPECT_EQ(acedArxUnload(L"no_such_module.arx"), RTERROR);
    ASSERT_TRUE(CopyFileA("BenchControl.dll", "bench_bare.arx", FALSE));
    EXPECT_EQ(acedArxLoad(L"bench_bare.arx"), RTERROR);
    EXPECT_TRUE(DeleteFileA("bench_bare.arx"));
    EXPECT_FALSE(acrxUnlockApplication(this));
    EXPECT_THAT(TakeAccusations(), ElementsAre(HasSubstr("no application id")));
}
