// Type libraries created here, read by typelib_slots and compared with a listing.
#include "TypeLibrary.h"

#include <windows.h>
#include <gmock/gmock.h>
#include <oleauto.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr VARTYPE kOut = VT_BYREF;

struct Method {
    const wchar_t* name;
    std::vector<VARTYPE> parameters;  // kOut marks a pointer
};

struct Interface {
    const wchar_t* name;
    GUID identifier;
    std::vector<Method> methods;
};

constexpr GUID kFirst = {0x0a1b2c3d, 0x1111, 0x2222, {0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0x01}};
constexpr GUID kSecond = {0x0a1b2c3d, 0x1111, 0x2222, {0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0x02}};
constexpr GUID kOther = {0x0a1b2c3e, 0x1111, 0x2222, {0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0x02}};

const char kListing[] =
    "# a comment\n"
    "Session\n"
    "   0 ~Session()\n"
    "\n"
    "IPart {0A1B2C3D-1111-2222-3344-556677889901}\n"
    "   7 HRESULT getText(BSTR, BSTR *, long *)\n"
    "   8 HRESULT setSize(long, double)\n"
    "   9 HRESULT reservedSlot9()\n"
    "\n"
    "ILaterPart {0A1B2C3D-1111-2222-3344-556677889902}\n"
    "   7 HRESULT getText(BSTR, BSTR *, long *)\n"
    "   8 HRESULT setSize(long, double)\n"
    "   9 HRESULT reservedSlot9()\n"
    "  10 HRESULT erase(BSTR)\n";

class TypeLibraryTest : public testing::Test {
 protected:
    ~TypeLibraryTest() override {
        std::remove(kLibrary);
        std::remove(kListingFile);
    }

    // Each interface extends the previous one, the first one IDispatch. Only the last one is dual: Wine 8 ignores the
    // own methods of a dual interface when another one of its library extends it.
    void Make(const std::vector<Interface>& interfaces) {
        ICreateTypeLib2* library = nullptr;
        ITypeLib* standard = nullptr;
        ITypeInfo* base = nullptr;
        ASSERT_EQ(CreateTypeLib2(SYS_WIN64, L"made.tlb", &library), S_OK);
        ASSERT_EQ(LoadTypeLib(L"stdole2.tlb", &standard), S_OK);
        ASSERT_EQ(standard->GetTypeInfoOfGuid(IID_IDispatch, &base), S_OK);
        for (const Interface& row : interfaces) {
            ICreateTypeInfo* type = nullptr;
            ASSERT_EQ(library->CreateTypeInfo(const_cast<wchar_t*>(row.name), TKIND_INTERFACE, &type), S_OK);
            EXPECT_EQ(type->SetGuid(row.identifier), S_OK);
            const UINT dual = &row == &interfaces.back() ? TYPEFLAG_FDUAL : 0;
            EXPECT_EQ(type->SetTypeFlags(dual | TYPEFLAG_FOLEAUTOMATION), S_OK);
            HREFTYPE reference = 0;
            EXPECT_EQ(type->AddRefTypeInfo(base, &reference), S_OK);
            EXPECT_EQ(type->AddImplType(0, reference), S_OK);
            for (UINT i = 0; i < row.methods.size(); ++i)
                Add(*type, i, row.methods[i]);
            EXPECT_EQ(type->LayOut(), S_OK);
            base->Release();
            EXPECT_EQ(type->QueryInterface(IID_ITypeInfo, reinterpret_cast<void**>(&base)), S_OK);
            type->Release();
        }
        base->Release();
        EXPECT_EQ(library->SaveAllChanges(), S_OK);
        library->Release();
        standard->Release();
    }

    static std::vector<std::string> DifferencesFrom(const char* listing) {
        std::ofstream(kListingFile) << listing;
        return bench::Differences(bench::ReadListing(kListingFile), bench::ReadTypeLibrary(kLibrary));
    }

    static std::vector<Interface> Interfaces() {
        return {{L"IPart",
                 kFirst,
                 {{L"getText", {VT_BSTR, VT_BSTR | kOut, VT_I4 | kOut}},
                  {L"setSize", {VT_I4, VT_R8}},
                  {L"unknown", {VT_VARIANT}}}},
                {L"ILaterPart", kSecond, {{L"erase", {VT_BSTR}}}}};
    }

    static constexpr char kLibrary[] = "made.tlb";
    static constexpr char kListingFile[] = "made-listing.txt";

 private:
    static void Add(ICreateTypeInfo& type, UINT index, const Method& method) {
        std::vector<TYPEDESC> targets(method.parameters.size());
        std::vector<ELEMDESC> parameters(method.parameters.size());
        for (size_t i = 0; i < parameters.size(); ++i) {
            const bool isOut = (method.parameters[i] & kOut) != 0;
            targets[i].vt = static_cast<VARTYPE>(method.parameters[i] & ~kOut);
            parameters[i].tdesc = targets[i];
            if (isOut) parameters[i].tdesc.vt = VT_PTR;
            if (isOut) parameters[i].tdesc.lptdesc = &targets[i];
            parameters[i].paramdesc.wParamFlags = isOut ? PARAMFLAG_FOUT : PARAMFLAG_FIN;
        }
        FUNCDESC function = {};
        function.memid = static_cast<MEMBERID>(100 + index);
        function.lprgelemdescParam = parameters.data();
        function.funckind = FUNC_PUREVIRTUAL;
        function.invkind = INVOKE_FUNC;
        function.callconv = CC_STDCALL;
        function.cParams = static_cast<SHORT>(parameters.size());
        function.elemdescFunc.tdesc.vt = VT_HRESULT;
        EXPECT_EQ(type.AddFuncDesc(index, &function), S_OK);
        wchar_t* name = const_cast<wchar_t*>(method.name);
        EXPECT_EQ(type.SetFuncAndParamNames(index, &name, 1), S_OK);
    }
};

TEST_F(TypeLibraryTest, FindsNoDifferenceBetweenEqualInterfaces) {
    Make(Interfaces());
    EXPECT_THAT(DifferencesFrom(kListing), IsEmpty());
    EXPECT_EQ(bench::Listing(bench::ReadTypeLibrary(kLibrary)),
              "IPart {0A1B2C3D-1111-2222-3344-556677889901}\n"
              "   7 HRESULT getText(BSTR, BSTR *, long *)\n"
              "   8 HRESULT setSize(long, double)\n"
              "   9 HRESULT unknown(VARIANT)\n"
              "\n"
              "ILaterPart {0A1B2C3D-1111-2222-3344-556677889902}\n"
              "   7 HRESULT getText(BSTR, BSTR *, long *)\n"
              "   8 HRESULT setSize(long, double)\n"
              "   9 HRESULT unknown(VARIANT)\n"
              "  10 HRESULT erase(BSTR)\n");
}

TEST_F(TypeLibraryTest, ReportsEveryDifferenceInOneSentence) {
    const struct {
        const char* change;
        void (*make)(std::vector<Interface>& interfaces);
        std::vector<std::string> sentences;
    } kRows[] = {
        {"methods swapped",
         [](auto& rows) { std::swap(rows[0].methods[0], rows[0].methods[1]); },
         {"IPart: getText is in slot 8, not in slot 7.", "IPart: setSize is in slot 7, not in slot 8.",
          "ILaterPart: getText is in slot 8, not in slot 7.", "ILaterPart: setSize is in slot 7, not in slot 8."}},
        {"value for pointer",
         [](auto& rows) { rows[1].methods[0].parameters[0] = VT_BSTR | kOut; },
         {"ILaterPart: parameter 1 of erase is BSTR *, not BSTR."}},
        {"parameter added",
         [](auto& rows) { rows[1].methods[0].parameters.push_back(VT_I4 | kOut); },
         {"ILaterPart: erase has the parameters (BSTR, long *), not (BSTR)."}},
        {"identifier changed",
         [](auto& rows) { rows[1].identifier = kOther; },
         {"ILaterPart has the identifier {0A1B2C3E-1111-2222-3344-556677889902}, not "
          "{0A1B2C3D-1111-2222-3344-556677889902}."}},
        {"method renamed",
         [](auto& rows) { rows[1].methods[0].name = L"remove"; },
         {"ILaterPart: erase is missing; slot 10 is remove(BSTR)."}},
        {"methods missing",
         [](auto& rows) { rows[0].methods.pop_back(), rows[1].methods.clear(); },
         {"IPart: slot 9 is missing.", "ILaterPart: slot 9 is missing.",
          "ILaterPart: erase is missing; slot 10 is missing too."}},
        {"interface missing", [](auto& rows) { rows.pop_back(); }, {"ILaterPart is missing."}},
    };
    for (const auto& row : kRows) {
        std::vector<Interface> interfaces = Interfaces();
        row.make(interfaces);
        Make(interfaces);
        EXPECT_EQ(DifferencesFrom(kListing), row.sentences) << row.change;
    }
    Make(Interfaces());
    EXPECT_THAT(DifferencesFrom("IPart {0A1B2C3D-1111-2222-3344-556677889901}\n   8 void setSize(long, double)\n"),
                ElementsAre("IPart: setSize returns HRESULT, not void."));
}

TEST_F(TypeLibraryTest, ReadsTheListingOfTheModulesInterfaces) {
    std::vector<std::string> found;
    for (const bench::ComInterface& row : bench::ReadListing(VIRTUAL_SLOTS))
        found.push_back(row.name + " " + std::to_string(row.methods.size()));
    EXPECT_THAT(found, ElementsAre("IDrawing 0", "IKlimora200805 18", "IKlimora201011 20", "IKlimoraLatest 21"));
}

TEST_F(TypeLibraryTest, ComparesPrintsAndReturnsAnExitCode) {
    Make(Interfaces());
    const auto run = [](const std::string& arguments) {
        const int code = std::system(("typelib_slots.exe " + arguments + " >made-output.txt").c_str());
        std::ifstream file("made-output.txt");
        std::string line;
        std::getline(file, line);
        file.close();
        std::remove("made-output.txt");
        return std::to_string(code) + " " + line;
    };
    std::ofstream(kListingFile) << kListing;
    EXPECT_EQ(run("made.tlb --check made-listing.txt"), "0 2 interfaces compared, 0 differences");
    std::ofstream(kListingFile) << "IPart {0A1B2C3D-1111-2222-3344-556677889901}\n  10 HRESULT erase(BSTR)\n";
    EXPECT_EQ(run("made.tlb --check made-listing.txt"), "1 IPart: erase is missing; slot 10 is missing too.");
    EXPECT_EQ(run("made.tlb"), "0 IPart {0A1B2C3D-1111-2222-3344-556677889901}");
    EXPECT_EQ(run("none.tlb"), "2 typelib_slots: The type library of none.tlb cannot be read (0x80029C4A).");
    EXPECT_EQ(run("made.tlb --check none.txt"), "2 typelib_slots: The listing none.txt cannot be read.");
    std::ofstream(kListingFile) << "IPart {0A1B2C3D-1111-2222-3344-556677889901}\n  ten erase\n";
    EXPECT_EQ(run("made.tlb --check made-listing.txt"), "2 typelib_slots: The listing has the line \"  ten erase\".");
}

}  // namespace
