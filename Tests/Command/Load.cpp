// What loading and unloading the real module does to AutoCAD, and what the file itself offers and needs.
#include <set>

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
        for (const std::string& sentence : bench::Accusations())
            ADD_FAILURE() << "accusation: " << sentence;
        for (const std::string& owed : bench::BenchBalance())
            ADD_FAILURE() << "still owed: " << owed;
    }

    // Names of the calls, in order, without arguments.
    static std::vector<std::string> Names() {
        std::vector<std::string> names;
        for (const std::string& line : bench::Journal()) {
            const std::string name = line.substr(0, line.find(' '));
            if (name != "acrxSysRegistry" && name.find("acedArx") != 0)
                names.push_back(line.substr(0, line.find(" ->")));
        }
        return names;
    }
};

TEST_F(Load, RegistersInOrderAndPrintsOneLine) {
    ASSERT_EQ(acedArxLoad(kModule), 5100);
    const std::vector<std::string> names = Names();
    ASSERT_EQ(names.size(), 7u) << testing::PrintToString(names);
    EXPECT_EQ(names[0], "AcRxDictionary::at ACAD_REGISTERED_COMMANDS");
    EXPECT_EQ(names[1].substr(0, 61), "AcEdCommandStack::addCommand SORV_CMDS SorvSIL SorvSIL 0");
    EXPECT_EQ(names[2], "acrxRegisterService SORV");
    EXPECT_EQ(names[3].substr(0, 10), "acutPrintf");
    EXPECT_EQ(names[4].substr(0, 21), "acrxUnlockApplication");
    EXPECT_EQ(names[5], "AcRxDictionary::at DynamicLinker");
    EXPECT_EQ(names[6].substr(0, 38), "AcRxDynamicLinker::registerAppMDIAware");
    EXPECT_EQ(bench::Transcript(), "\nSorvik Klimora Cloud Plugin successfully loaded.\n");
    EXPECT_EQ(GetModuleHandleA("Kgeom310.dll"), nullptr);
    EXPECT_EQ(acedArxUnload(kModule), 5100);
}

TEST_F(Load, UnloadTakesEverythingBack) {
    ASSERT_EQ(acedArxLoad(kModule), 5100);
    bench::ClearJournal();
    EXPECT_EQ(acedArxUnload(kModule), 5100);
    const std::vector<std::string> names = Names();
    ASSERT_EQ(names.size(), 4u) << testing::PrintToString(names);
    EXPECT_EQ(names[1], "AcEdCommandStack::removeGroup SORV_CMDS");
    EXPECT_EQ(names[3], "AcRxDictionary::remove SORV");
    EXPECT_FALSE(bench::CommandExists("SORV_CMDS", "SorvSIL"));
    EXPECT_FALSE(bench::ServiceExists("SORV"));
    EXPECT_EQ(GetModuleHandleW(kModule), nullptr) << "the library is gone";
    EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>{});
}

TEST_F(Load, MessagesThatItDoesNotKnowDoNothing) {
    const HMODULE module = LoadLibraryW(kModule);
    ASSERT_NE(module, nullptr);
    using Entry = int (*)(int, void*);
    const auto entry = reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(module, "acrxEntryPoint")));
    ASSERT_NE(entry, nullptr);
    for (const int message : {0, 3, 4, 5, 6, 7, 8, 9, 12, 18, 99})
        EXPECT_EQ(entry(message, nullptr), 0) << message;
    EXPECT_TRUE(bench::Journal().empty());
    EXPECT_EQ(entry(2, nullptr), 0) << "unload without a start";
    EXPECT_EQ(entry(2, nullptr), 0);
    FreeLibrary(module);
}

const IMAGE_NT_HEADERS* Headers(HMODULE module) {
    const char* base = reinterpret_cast<const char*>(module);
    return reinterpret_cast<const IMAGE_NT_HEADERS*>(base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
}

template <class Table>
const Table* Directory(HMODULE module, int index) {
    return reinterpret_cast<const Table*>(reinterpret_cast<const char*>(module) +
                                          Headers(module)->OptionalHeader.DataDirectory[index].VirtualAddress);
}

class ModuleFile : public testing::Test {
 protected:
    ModuleFile() : module_(LoadLibraryW(kModule)), base_(reinterpret_cast<const char*>(module_)) {}
    ~ModuleFile() override { FreeLibrary(module_); }

    HMODULE module_;
    const char* base_;
};

TEST_F(ModuleFile, ExportsItsNamesAndNoMore) {
    const auto* table = Directory<IMAGE_EXPORT_DIRECTORY>(module_, IMAGE_DIRECTORY_ENTRY_EXPORT);
    const DWORD* names = reinterpret_cast<const DWORD*>(base_ + table->AddressOfNames);
    std::set<std::string> plain;
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        const std::string name = base_ + names[i];
        if (name.find("PluginStat") == std::string::npos && name.find("PMutex") == std::string::npos)
            plain.insert(name);
    }
    EXPECT_EQ(plain,
              (std::set<std::string>{"acrxEntryPoint", "acrxGetApiVersion", "gwGmalloc", "gwGrealloc", "gwGfree",
                                     "gwGmallocH", "gwgetsubstring", "gwclip_has_data", "gwclip_copy", "gwclip_paste",
                                     "NULLBYTE", "NULLSHORT", "NULLLONG", "NULLFLOAT", "NULLDOUBLE"}));
    EXPECT_STREQ(base_ + table->Name, "Sorvik_R24_x64.arx");
}

TEST_F(ModuleFile, NeedsNeighboursAndWindowsOnly) {
    std::set<std::string> neighbours, windows;
    const std::set<std::string> known = {"ADVAPI32.DLL", "COMCTL32.DLL", "COMDLG32.DLL", "GDI32.DLL",
                                         "KERNEL32.DLL", "MSVCRT.DLL",   "OLE32.DLL",    "OLEAUT32.DLL",
                                         "SHELL32.DLL",  "USER32.DLL",   "VERSION.DLL",  "WININET.DLL"};
    const auto* table = Directory<IMAGE_IMPORT_DESCRIPTOR>(module_, IMAGE_DIRECTORY_ENTRY_IMPORT);
    for (; table->Name; ++table) {
        std::string name = base_ + table->Name;
        std::string upper = name;
        CharUpperA(upper.data());
        if (known.count(upper) == 0) neighbours.insert(name);
    }
    EXPECT_EQ(neighbours,
              (std::set<std::string>{"Kbase640.dll", "Klimora.Plugins.Statistics.Sorvik.dll", "accore.dll"}));
}

TEST_F(ModuleFile, HoldsItsResources) {
    for (const WORD icon : {115, 118})
        EXPECT_NE(FindResourceW(module_, MAKEINTRESOURCEW(icon), RT_GROUP_ICON), nullptr) << icon;
    EXPECT_NE(FindResourceW(module_, L"SORVIK_WEB", RT_DIALOG), nullptr);
    const HRSRC waiting = FindResourceW(module_, MAKEINTRESOURCEW(10000), RT_DIALOG);
    ASSERT_NE(waiting, nullptr);
    // Extended template: version, signature, help, extended style, style, count, x, y, width, height.
    const WORD* words = static_cast<const WORD*>(LockResource(LoadResource(module_, waiting)));
    EXPECT_EQ(words[1], 0xFFFF);
    EXPECT_EQ(words[4] | words[5] << 16, WS_EX_NOPARENTNOTIFY);
    EXPECT_EQ(static_cast<DWORD>(words[6] | words[7] << 16), WS_POPUP | DS_SHELLFONT);
    EXPECT_EQ(words[8], 0) << "no controls";
    EXPECT_EQ(words[11], 5);
    EXPECT_EQ(words[12], 0);
}

}  // namespace
