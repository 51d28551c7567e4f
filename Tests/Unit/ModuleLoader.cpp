// Starting and stopping the module with the test's own tables: libraries, ARX modules, failures and look-ups by name;
// and the module's exported markers.
#include <windows.h>

#include "ModuleLoader.h"

#include <stdexcept>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Entry.h"
#include "RecordedCalls.h"
#include "gtest/gtest.h"

namespace {

std::string Folder() {
    char folder[MAX_PATH] = "";
    GetModuleFolder("Sorvik_R24_x64.arx", folder, sizeof folder);
    return folder;
}

std::string Upper(std::string text) {
    CharUpperA(text.data());
    return text;
}

std::string Printed() {
    const std::string text = bench::Transcript();
    bench::ClearTranscript();
    return text;
}

TEST(ModuleFolder, ReturnsNoTrailingBackslashAndRejectsSmallBuffers) {
    const std::string folder = Folder();
    ASSERT_GT(folder.size(), 2u);
    EXPECT_NE(folder.back(), '\\');
    EXPECT_EQ(GetFileAttributesA((folder + "\\Sorvik_R24_x64.arx").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    std::string buffer(folder.size() + 2, 'x');
    EXPECT_EQ(GetModuleFolder("Sorvik_R24_x64.arx", nullptr, folder.size() + 1), -1);
    EXPECT_EQ(GetModuleFolder("Sorvik_R24_x64.arx", buffer.data(), 0), -1);
    EXPECT_EQ(buffer[0], 'x');
    EXPECT_EQ(GetModuleFolder("Sorvik_R24_x64.arx", buffer.data(), folder.size()), -1);
    EXPECT_EQ(buffer[0], '\0') << "emptied first";
    EXPECT_EQ(buffer[1], 'x');
    EXPECT_EQ(GetModuleFolder("Sorvik_R24_x64.arx", buffer.data(), folder.size() + 1), 0);
    EXPECT_EQ(buffer.c_str(), folder);
    EXPECT_EQ(buffer.back(), 'x');
    EXPECT_EQ(GetModuleFolder("no_such_module.dll", buffer.data(), buffer.size()), -1);
    EXPECT_EQ(buffer[0], '\0');
}

TEST(ModuleLoader, ReleasesLibrariesAndKeepsArxModules) {
    // A name with ".ARX" is never freed, even with a handle of a library.
    const HMODULE kept = GetModuleHandleA("kernel32.dll");
    ModuleRecord records[] = {{"KEEP.ARX", kept}, {"Kbase640.dll", nullptr}, {"beyond the count.dll", kept}};
    EXPECT_EQ(LoadModule(records[1], Folder().c_str()), 0);
    EXPECT_EQ(records[1].handle, GetModuleHandleA("Kbase640.dll"));
    RecordedCalls calls({{records[1].handle, "library"}});
    calls.Record("FreeLibrary", FreeLibrary);
    StopApplication(records, 2);
    EXPECT_EQ(calls.Take(), "FreeLibrary library\n");
    EXPECT_EQ(records[0].handle, kept);
    EXPECT_EQ(records[1].handle, nullptr);
    EXPECT_EQ(Printed(), "");
}

TEST(ModuleLoader, LoadsArxModulesThroughAutoCAD) {
    ModuleRecord record = {"Other.arx", nullptr};
    const std::string path = Upper(Folder() + "\\Other.arx");
    EXPECT_EQ(LoadModule(record, Folder().c_str()), -2);
    EXPECT_EQ(bench::CallLog().at(0), "acedArxLoad " + path + " -> -5001");
    Printed();
    const ImportPatch patch(
        "acedArxLoad", +[](const wchar_t*) { return SetLastError(5), 0; });
    EXPECT_EQ(LoadModule(record, Folder().c_str()), -2);
    EXPECT_EQ(Printed(), "Error: 5 - cannot load arx-module: " + path + "\n");
}

TEST(ModuleLoader, FindsModulesByTheStartOfTheirName) {
    const HMODULE one = reinterpret_cast<HMODULE>(1), two = reinterpret_cast<HMODULE>(2);
    const ModuleRecord records[] = {{"Kgeom310.dll", one}, {"Kgeom400.dll", two}};
    const struct {
        const char* name;
        HMODULE handle;
    } cases[] = {{"Kgeom310.dll", one}, {"Kgeom400.dll", two},     {"Kgeom", one}, {"Kgeom4", two}, {"", one},
                 {"kgeom", nullptr},    {"Kgeom310.dll2", nullptr}};
    for (const auto& c : cases)
        EXPECT_EQ(FindModuleHandle(records, 2, c.name), c.handle) << c.name;
    EXPECT_EQ(FindModuleHandle(records, 1, "Kgeom4"), nullptr) << "only the given number of records is searched";
}

TEST(ModuleStart, FailsAndUndoesEverythingWhenAModuleFails) {
    const auto nothingIsLeft = [](const ModuleRecord& loaded) {
        EXPECT_EQ(loaded.handle, nullptr) << "the loaded library is freed";
        EXPECT_FALSE(bench::CommandExists("SORV_CMDS", "SorvSIL")) << "the command is removed";
        EXPECT_FALSE(bench::ServiceExists("SORV"));
        for (const std::string& line : bench::CallLog())
            EXPECT_EQ(line.find("acrxUnlockApplication"), std::string::npos);
    };
    ModuleRecord records[] = {{"Kbase640.dll", nullptr}, {"Kgeom310.dll", nullptr}};
    int packet = 0;
    EXPECT_EQ(StartApplication(records, 2, &packet), 3);
    EXPECT_EQ(Printed(), "Error: 126 - cannot load dll-module <" + Upper(Folder() + "\\Kgeom310.dll") +
                             ">\nErrors in modules - Application not loaded\nModule not loaded: 1\n");
    nothingIsLeft(records[0]);
    EXPECT_EQ(LoadModule(records[1], Folder().c_str()), -1);
    // An exception is undone as well: here from printing the line of success.
    const ImportPatch patch(
        "acutPrintf", +[](const wchar_t*) -> int { throw std::runtime_error("no print"); });
    EXPECT_EQ(StartApplication(records, 1, &packet), 3);
    EXPECT_EQ(acrxEntryPoint(AcRx::kInitAppMsg, &packet), 3);
    nothingIsLeft(records[0]);
}

TEST(ModuleStart, SetsTheModulesFolderAsCurrent) {
    char before[MAX_PATH] = "", after[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, before);
    SetCurrentDirectoryA("C:\\");
    EXPECT_EQ(LoadModules(g_modules, kWalkedModuleCount), 0);
    GetCurrentDirectoryA(MAX_PATH, after);
    SetCurrentDirectoryA(before);
    EXPECT_STRCASEEQ(after, Folder().c_str());
    EXPECT_STREQ(g_modules[0].name, "Kgeom310.dll");
    EXPECT_EQ(g_modules[0].handle, nullptr);
}

TEST(ModuleExports, ContainsTheBitsOfTheNullMarkers) {
    const auto bytes = [](const char* name, size_t size) {
        const auto place = reinterpret_cast<const char*>(GetProcAddress(GetModuleHandleA("Sorvik_R24_x64.arx"), name));
        return place ? std::string(place, size) : "not exported";
    };
    EXPECT_EQ(bytes("NULLBYTE", 1), "\x80");
    EXPECT_EQ(bytes("NULLSHORT", 2), std::string("\x00\x80", 2));
    EXPECT_EQ(bytes("NULLLONG", 4), std::string("\x00\x00\x00\x08", 4));
    EXPECT_EQ(bytes("NULLFLOAT", 4), "\x9E\xC9\x7F\xFF");
    const double number = -1.7E+38;
    EXPECT_EQ(bytes("NULLDOUBLE", 8), std::string(reinterpret_cast<const char*>(&number), 8));
}

}  // namespace
