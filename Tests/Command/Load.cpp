// Loading and unloading the real module.
#include "CommandBench.h"
#include "acedads.h"

namespace {

constexpr wchar_t kModule[] = L"Sorvik_R24_x64.arx";

class Load : public testing::Test {
 protected:
    Load() {
        bench::NewDrawing("Office.dwg");
        bench::ResetBench();
        bench::ClearTranscript();
    }
    ~Load() override {
        for (const std::string& sentence : bench::Violations())
            ADD_FAILURE() << "contract violation: " << sentence;
        for (const std::string& resource : bench::OutstandingResources())
            ADD_FAILURE() << "outstanding: " << resource;
    }

    // The calls in order, one line each, without results.
    static std::string Calls() {
        std::string calls;
        for (const std::string& line : bench::CallLog())
            if (!bench::NameFits(line, "acrxSysRegistry*|acedArx*")) calls += line.substr(0, line.find(" ->")) + "\n";
        return calls;
    }
};

TEST_F(Load, RegistersInOrderAndUndoesItAtUnload) {
    ASSERT_EQ(acedArxLoad(kModule), 5100);
    EXPECT_EQ(GetModuleHandleA("Kgeom310.dll"), nullptr);
    bench::LogMarker("-- unload");
    EXPECT_EQ(acedArxUnload(kModule), 5100);
    EXPECT_EQ(Calls(), R"(AcRxDictionary::at ACAD_REGISTERED_COMMANDS
AcEdCommandStack::addCommand SORV_CMDS SorvSIL SorvSIL 0
acrxRegisterService SORV
acutPrintf \nSorvik Klimora Cloud Plugin successfully loaded.\n
acrxUnlockApplication
AcRxDictionary::at DynamicLinker
AcRxDynamicLinker::registerAppMDIAware
-- unload
AcRxDictionary::at ACAD_REGISTERED_COMMANDS
AcEdCommandStack::removeGroup SORV_CMDS
AcRxDictionary::at ServiceDictionary
AcRxDictionary::remove SORV
)");
    EXPECT_FALSE(bench::CommandExists("SORV_CMDS", "SorvSIL"));
    EXPECT_FALSE(bench::ServiceExists("SORV"));
    EXPECT_EQ(GetModuleHandleW(kModule), nullptr) << "the library is unloaded";
}

TEST_F(Load, IgnoresUnknownMessages) {
    const HMODULE module = LoadLibraryW(kModule);
    ASSERT_NE(module, nullptr);
    using Entry = int (*)(int, void*);
    const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "acrxEntryPoint")));
    ASSERT_NE(entry, nullptr);
    for (const int message : {0, 3, 4, 5, 6, 7, 8, 9, 12, 18, 99})
        EXPECT_EQ(entry(message, nullptr), 0) << message;
    EXPECT_TRUE(bench::CallLog().empty());
    EXPECT_EQ(entry(2, nullptr), 0) << "unload without a start";
    EXPECT_EQ(entry(2, nullptr), 0);
    FreeLibrary(module);
}

}  // namespace
