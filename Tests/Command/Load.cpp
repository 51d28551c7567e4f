// What loading and unloading the real module does to AutoCAD, and what the file itself offers and needs.
#include <cstdio>

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

    // The calls in order, a line each, without results.
    static std::string Calls() {
        std::string calls;
        for (const std::string& line : bench::Journal())
            if (!bench::NameFits(line, "acrxSysRegistry*|acedArx*")) calls += line.substr(0, line.find(" ->")) + "\n";
        return calls;
    }
};

TEST_F(Load, RegistersInOrderAndPrintsOneLine) {
    ASSERT_EQ(acedArxLoad(kModule), 5100);
    EXPECT_EQ(Calls(), R"(AcRxDictionary::at ACAD_REGISTERED_COMMANDS
AcEdCommandStack::addCommand SORV_CMDS SorvSIL SorvSIL 0
acrxRegisterService SORV
acutPrintf \nSorvik Klimora Cloud Plugin successfully loaded.\n
acrxUnlockApplication
AcRxDictionary::at DynamicLinker
AcRxDynamicLinker::registerAppMDIAware
)");
    EXPECT_EQ(GetModuleHandleA("Kgeom310.dll"), nullptr);
    EXPECT_EQ(acedArxUnload(kModule), 5100);
}

TEST_F(Load, UnloadTakesEverythingBack) {
    ASSERT_EQ(acedArxLoad(kModule), 5100);
    bench::ClearJournal();
    EXPECT_EQ(acedArxUnload(kModule), 5100);
    EXPECT_EQ(Calls(), R"(AcRxDictionary::at ACAD_REGISTERED_COMMANDS
AcEdCommandStack::removeGroup SORV_CMDS
AcRxDictionary::at ServiceDictionary
AcRxDictionary::remove SORV
)");
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
    std::string exported;
    for (DWORD i = 0; i < table->NumberOfNames; ++i) {
        const std::string name = base_ + names[i];
        // Constructors and destructors come twice, once for derived classes.
        if (name.find("C2E") == std::string::npos && name.find("D2E") == std::string::npos) exported += name + ' ';
    }
    EXPECT_EQ(exported,
              "NULLBYTE NULLDOUBLE NULLFLOAT NULLLONG NULLSHORT _ZN10PluginStatC1EOS_ _ZN10PluginStatC1ERKS_ "
              "_ZN10PluginStatC1Ev _ZN10PluginStatD1Ev _ZN10PluginStataSEOS_ _ZN10PluginStataSERKS_ "
              "_ZN6PMutex7AcquireEv _ZN6PMutex7ReleaseEv _ZN6PMutexC1Ev _ZN6PMutexD1Ev _ZN6PMutexaSERKS_ "
              "acrxEntryPoint acrxGetApiVersion gwGfree gwGmalloc gwGmallocH gwGrealloc gwclip_copy gwclip_has_data "
              "gwclip_paste gwgetsubstring ");
    EXPECT_STREQ(base_ + table->Name, "Sorvik_R24_x64.arx");
}

TEST_F(ModuleFile, NeedsNeighboursAndWindowsOnly) {
    std::string neighbours;
    const std::string known =
        " ADVAPI32.DLL COMCTL32.DLL COMDLG32.DLL GDI32.DLL KERNEL32.DLL MSVCRT.DLL OLE32.DLL OLEAUT32.DLL SHELL32.DLL "
        "USER32.DLL VERSION.DLL WININET.DLL ";
    const auto* table = Directory<IMAGE_IMPORT_DESCRIPTOR>(module_, IMAGE_DIRECTORY_ENTRY_IMPORT);
    for (; table->Name; ++table) {
        const std::string name = base_ + table->Name;
        std::string upper = ' ' + name + ' ';
        CharUpperA(upper.data());
        if (known.find(upper) == std::string::npos) neighbours += name + ' ';
    }
    EXPECT_EQ(neighbours, "Kbase640.dll Klimora.Plugins.Statistics.Sorvik.dll accore.dll ");
}

// An extended dialog template as lines. The dialog: extended style and style, place and size, title, font. Then each
// control: the same, its identifier, class and text.
std::vector<std::string> Template(HMODULE module, LPCWSTR name) {
    const WORD* next =
        static_cast<const WORD*>(LockResource(LoadResource(module, FindResourceW(module, name, RT_DIALOG))));
    const auto number = [&next] {
        next += 2;
        return static_cast<unsigned>(next[-2] | next[-1] << 16);
    };
    const auto styles = [&] {
        char text[32] = "";
        const unsigned extended = number();
        std::snprintf(text, sizeof text, "%X %08X", extended, number());
        return std::string(text);
    };
    const auto place = [&next] {
        std::string text;
        for (int i = 0; i < 4; ++i)
            text += " " + std::to_string(static_cast<short>(*next++));
        return text;
    };
    // A text, or the number of a class.
    const auto words = [&next] {
        std::string text;
        if (*next == 0xFFFF) {
            text = std::to_string(next[1]);
            next += 2;
            return text;
        }
        while (*next)
            text += static_cast<char>(*next++);
        ++next;
        return text;
    };
    EXPECT_EQ(number(), 0xFFFF0001u) << "an extended template";
    number();  // help
    std::string line = styles();
    const WORD controls = *next++;
    line += place();
    EXPECT_EQ(words(), "") << "menu";
    EXPECT_EQ(words(), "") << "class";
    line += " '" + words() + "'";
    line += " " + std::to_string(*next);
    next += 3;  // points, weight and character set
    std::vector<std::string> lines = {line + " " + words()};
    for (WORD i = 0; i < controls; ++i) {
        next += reinterpret_cast<ULONG_PTR>(next) % 4 / 2;
        number();
        line = styles();
        line += place();
        line += " " + std::to_string(static_cast<int>(number()));
        line += " " + words();
        lines.push_back(line + " '" + words() + "'");
        next += 1 + *next / 2;
    }
    return lines;
}

TEST_F(ModuleFile, HoldsItsResources) {
    for (const WORD icon : {115, 118})
        EXPECT_NE(FindResourceW(module_, MAKEINTRESOURCEW(icon), RT_GROUP_ICON), nullptr) << icon;
    EXPECT_EQ(Template(module_, MAKEINTRESOURCEW(10000)),
              std::vector<std::string>{"4 80000048 0 0 5 0 '' 8 MS Shell Dlg"});
    EXPECT_EQ(Template(module_, L"SORVIK_WEB"),
              (std::vector<std::string>{"0 82CD0040 0 0 127 47 'Configurator' 8 MS Shell Dlg",
                                        "0 50020001 4 11 50 8 -1 130 'User code'", "0 50810080 71 8 50 14 1102 129 ''",
                                        "0 50010001 4 29 50 14 1 128 'OK'", "0 50010000 71 29 50 14 2 128 'Cancel'"}));
}

}  // namespace
