// The server connection against a server of bare slots: tables of function pointers in the order of the server's type
// library, written down here and not taken from our declarations. It answers at once, fills its outputs also when the
// call fails, and counts the terminator into its texts, as real servers do. Held are slots, arguments, results,
// outputs, trace lines, the order of releases, and that every BSTR is freed.
#include <ostream>

#include "ImportPatch.h"
#include "KlimoraBench.h"
#include "Util/KLComUtils.h"

namespace {

// ---- The raw server

using Slot = void (*)();
struct RawObject {
    const Slot* slots;
    const char* name;
    int references;
};
extern RawObject g_drawing, g_iDrawing, g_klimora, g_200805, g_201011, g_latest;

HRESULT g_outcome;
long g_code;
std::wstring g_answer;
bool g_hasLatest;
std::string g_called;                 // the last call but slot 8
int g_errorsAsked;                    // calls of slot 8
bool g_errorFails;                    // slot 8
std::vector<std::string> g_released;  // interfaces, in order
double g_number;

void Take(BSTR text) {
    g_called += " ";
    for (UINT i = 0; i < SysStringLen(text); ++i)
        g_called += text[i] ? std::string(1, static_cast<char>(text[i])) : "\\0";
}
void Take(long number) {
    g_called += " " + std::to_string(number);
}
void Take(double number) {
    g_called += " " + std::to_string(number);
}
void Take(BSTR* text) {
    *text = SysAllocStringLen(g_answer.data(), static_cast<UINT>(g_answer.size()));
}
void Take(double* number) {
    *number = ++g_number;
}
void Take(long* code) {
    *code = g_code;
}

template <int slot, class... Parameters>
HRESULT STDMETHODCALLTYPE Answer(RawObject* object, Parameters... parameters) {
    g_called = object->name + std::string(" ") + std::to_string(slot);
    (Take(parameters), ...);
    return g_outcome;
}
HRESULT STDMETHODCALLTYPE Version(RawObject*, long* version) {
    *version = 20090300;
    return g_outcome;
}
HRESULT STDMETHODCALLTYPE ErrorText(RawObject*, BSTR* text) {
    ++g_errorsAsked;
    *text = SysAllocStringLen(L"reason", 6);
    return g_errorFails ? E_FAIL : S_OK;
}
ULONG STDMETHODCALLTYPE AddRef(RawObject* object) {
    return static_cast<ULONG>(++object->references);
}
ULONG STDMETHODCALLTYPE Release(RawObject* object) {
    if (object != &g_drawing && object != &g_klimora) g_released.push_back(object->name);
    return static_cast<ULONG>(--object->references);
}
HRESULT STDMETHODCALLTYPE Query(RawObject* object, REFIID id, RawObject** found) {
    const bool isDrawing = object == &g_drawing || object == &g_iDrawing;
    *found = nullptr;
    if (id == IID_IUnknown) *found = isDrawing ? &g_drawing : &g_klimora;
    if (isDrawing && id == KLIMCOMSRVLib::IID_IDrawing) *found = &g_iDrawing;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimora200805) *found = &g_200805;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimora201011) *found = &g_201011;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimoraLatest && g_hasLatest) *found = &g_latest;
    if (!*found) return E_NOINTERFACE;
    AddRef(*found);
    return S_OK;
}

template <class Function>
Slot At(Function* function) {
    return reinterpret_cast<Slot>(function);
}
const Slot kSlots[28] = {
    At(Query),
    At(AddRef),
    At(Release),
    nullptr,
    nullptr,
    nullptr,
    nullptr,
    At(Version),
    At(ErrorText),
    At(Answer<9, BSTR, BSTR, BSTR*, long*>),                       // getPartAtt
    At(Answer<10, BSTR, BSTR, BSTR, long*>),                       // setPartAtt
    At(Answer<11, BSTR, BSTR, double*, long*>),                    // getPartAttDouble
    At(Answer<12, BSTR, BSTR, double, long*>),                     // setPartAttDouble
    At(Answer<13, BSTR, BSTR, double*, double*, double*, long*>),  // getPartAttPoint
    At(Answer<14, BSTR, BSTR, double, double, double, long*>),     // setPartAttPoint
    At(Answer<15, BSTR, BSTR*, long*>),                            // createPart
    At(Answer<16, BSTR, BSTR*, long*>),                            // selectPart
    nullptr,
    At(Answer<18, BSTR, BSTR*, long*>),       // createConnectionStub
    At(Answer<19, long, long, long*>),        // setBinVariableSize
    At(Answer<20, long, long, BSTR, long*>),  // setBinVariableData
    At(Answer<21, long, long*>),              // freeBinVariable
    At(Answer<22, BSTR, long*>),              // manageProductData
    At(Answer<23, BSTR, long*>),              // erasePart
    At(Answer<24, BSTR, long*>),              // movePart
    At(Answer<25, BSTR, BSTR*, long*>),       // manageCalculationDatabase
    At(Answer<26, BSTR, long*>),              // selectProduct
    At(Answer<27, BSTR, long*>),              // calculate
};
RawObject g_drawing{kSlots, "drawing", 0}, g_iDrawing{kSlots, "IDrawing", 0}, g_klimora{kSlots, "klimora", 0},
    g_200805{kSlots, "200805", 0}, g_201011{kSlots, "201011", 0}, g_latest{kSlots, "latest", 0};

// ---- BSTRs of this program that were not freed

int g_texts;
decltype(&SysAllocStringLen) g_allocate;
decltype(&SysFreeString) g_free;

BSTR WINAPI CountedAllocate(const OLECHAR* text, UINT length) {
    ++g_texts;
    return g_allocate(text, length);
}
void WINAPI CountedFree(BSTR text) {
    if (text) --g_texts;
    g_free(text);
}

std::string g_text;
double g_x, g_y, g_z;

class RawServer : public KlimoraBench {
 protected:
    RawServer() {
        bench::KlimoraServer installed;
        installed.drawingRunning = installed.klimoraRunning = false;
        StartServer(installed);
        Run(L"KlimComSrv.Drawing", g_drawing, drawingCookie_);
        Run(L"KlimComSrv.Klimora", g_klimora, klimoraCookie_);
        g_outcome = S_OK;
        g_code = 0;
        g_answer = std::wstring(L"answer\0", 7);
        g_hasLatest = true;
        g_errorFails = false;
        g_called.clear();
        g_released.clear();
        g_errorsAsked = g_texts = 0;
        g_number = 0;
        g_text = "poison";
        g_x = g_y = g_z = -7;
        g_allocate = allocations_.original<decltype(SysAllocStringLen)>();
        g_free = frees_.original<decltype(SysFreeString)>();
    }
    ~RawServer() override {
        RevokeActiveObject(drawingCookie_, nullptr);
        RevokeActiveObject(klimoraCookie_, nullptr);
        EXPECT_EQ(g_texts, 0) << "BSTRs were not freed";
        EXPECT_EQ(g_drawing.references + g_klimora.references, 0);
    }

    static void Run(const wchar_t* progId, RawObject& object, DWORD& cookie) {
        CLSID id;
        ASSERT_EQ(CLSIDFromProgID(progId, &id), S_OK);
        ASSERT_EQ(RegisterActiveObject(reinterpret_cast<IUnknown*>(&object), id, ACTIVEOBJECT_STRONG, &cookie), S_OK);
    }

    DWORD drawingCookie_ = 0, klimoraCookie_ = 0;
    const ImportPatch allocations_{"SysAllocStringLen", CountedAllocate};
    const ImportPatch frees_{"SysFreeString", CountedFree};
};

TEST_F(RawServer, InterfacesAreGivenBackInTheirOrder) {
    {
        const KlimComSrvImpl connection;
        EXPECT_EQ(g_released, std::vector<std::string>{});
        for (const RawObject* object : {&g_iDrawing, &g_200805, &g_201011, &g_latest})
            EXPECT_EQ(object->references, 1) << object->name;
    }
    EXPECT_EQ(g_released, (std::vector<std::string>{"IDrawing", "200805", "201011", "latest"}));
}

TEST_F(RawServer, OlderServerServesAllButCalculate) {
    g_hasLatest = false;
    KlimComSrvImpl connection;
    EXPECT_EQ(connection.selectProduct("<H/>"), 0);
    EXPECT_EQ(connection.calculate("<I/>"), -1);
    EXPECT_EQ(g_called, "201011 26 <H/>\\0") << "nothing is sent without the interface";
}

// ---- One row an operation

enum class Gives { kNothing, kText, kReal, kPoint };

struct Operation {
    const char* name;
    const char* called;  // interface, slot and arguments
    int (*call)(KlimComSrvImpl&);
    Gives gives;
    const char* trace;                  // arguments after success
    const char* failedTrace = nullptr;  // and after a failed call, when they differ
};

const Operation kOperations[] = {
    {"getPartAtt", "200805 9 2A1\\0 /Part\\0", [](KlimComSrvImpl& c) { return c.getPartAtt("2A1", "/Part", g_text); },
     Gives::kText, "'2A1', '/Part', 'answer'", "'2A1', '/Part', ''"},
    {"setPartAtt", "200805 10 2A1\\0 /Part\\0 a\"b\\0",
     [](KlimComSrvImpl& c) { return c.setPartAtt("2A1", "/Part", "a\"b"); }, Gives::kNothing, "'2A1', '/Part', 'a\"b'"},
    {"getPartAttDouble", "200805 11 2A1\\0 /Part\\0",
     [](KlimComSrvImpl& c) { return c.getPartAttDouble("2A1", "/Part", g_x); }, Gives::kReal,
     "'2A1', '/Part', 1.000000", "'2A1', '/Part', 0.000000"},
    {"setPartAttDouble", "200805 12 2A1\\0 /Part\\0 12.500000",
     [](KlimComSrvImpl& c) { return c.setPartAttDouble("2A1", "/Part", 12.5); }, Gives::kNothing,
     "'2A1', '/Part', 12.500000"},
    {"getPartAttPoint", "200805 13 2A1\\0 /Part\\0",
     [](KlimComSrvImpl& c) { return c.getPartAttPoint("2A1", "/Part", g_x, g_y, g_z); }, Gives::kPoint,
     "'2A1', '/Part', 1.000000, 2.000000, 3.000000", "'2A1', '/Part', 0.000000, 0.000000, 0.000000"},
    {"setPartAttPoint", "200805 14 2A1\\0 /Part\\0 1.000000 2.500000 -3.000000",
     [](KlimComSrvImpl& c) { return c.setPartAttPoint("2A1", "/Part", 1, 2.5, -3); }, Gives::kNothing,
     "'2A1', '/Part', 1.000000, 2.500000, -3.000000"},
    {"createPart", "200805 15 <A/>\\0", [](KlimComSrvImpl& c) { return c.createPart("<A/>", g_text); }, Gives::kText,
     "'<A/>', 'answer'", "'<A/>', ''"},
    {"selectPart", "200805 16 <B/>\\0", [](KlimComSrvImpl& c) { return c.selectPart("<B/>", g_text); }, Gives::kText,
     "'<B/>', 'answer'", "'<B/>', ''"},
    {"createConnectionStub", "200805 18 <C/>\\0",
     [](KlimComSrvImpl& c) { return c.createConnectionStub("<C/>", g_text); }, Gives::kText, "'<C/>', 'answer'",
     "'<C/>', ''"},
    {"setBinVariableSize", "200805 19 3 8", [](KlimComSrvImpl& c) { return c.setBinVariableSize(3, 8); },
     Gives::kNothing, "3, 8"},
    {"setBinVariableData", "200805 20 3 4 00FF\\0",
     [](KlimComSrvImpl& c) { return c.setBinVariableData(3, 4, "00FF"); }, Gives::kNothing, "3, 4, 'hexdata'"},
    {"freeBinVariable", "200805 21 3", [](KlimComSrvImpl& c) { return c.freeBinVariable(3); }, Gives::kNothing, "3"},
    {"manageProductData", "200805 22 <D/>\\0", [](KlimComSrvImpl& c) { return c.manageProductData("<D/>"); },
     Gives::kNothing, "'<D/>'"},
    {"erasePart", "200805 23 <E/>\\0", [](KlimComSrvImpl& c) { return c.erasePart("<E/>"); }, Gives::kNothing,
     "'<E/>'"},
    {"movePart", "200805 24 <F/>\\0", [](KlimComSrvImpl& c) { return c.movePart("<F/>"); }, Gives::kNothing, "'<F/>'"},
    // These three are traced only when the call itself failed.
    {"manageCalculationDatabase", "201011 25 <G/>\\0",
     [](KlimComSrvImpl& c) { return c.manageCalculationDatabase("<G/>", g_text); }, Gives::kText, nullptr, "'<G/>'"},
    {"selectProduct", "201011 26 <H/>\\0", [](KlimComSrvImpl& c) { return c.selectProduct("<H/>"); }, Gives::kNothing,
     nullptr, "'<H/>'"},
    {"calculate", "latest 27 <I/>\\0", [](KlimComSrvImpl& c) { return c.calculate("<I/>"); }, Gives::kNothing, nullptr,
     "'<I/>'"},
};

class ServerCall : public RawServer, public testing::WithParamInterface<Operation> {
 protected:
    static std::string Line(const char* arguments, int result, const std::string& error) {
        return std::string("KlimComSrvImpl::") + GetParam().name + ":(" + arguments + ")=" + std::to_string(result) +
               " " + error + (GetParam().name == std::string("getPartAtt") ? "" : "\n");
    }
};

void PrintTo(const Operation& operation, std::ostream* stream) {
    *stream << operation.name;
}
INSTANTIATE_TEST_SUITE_P(Klimora, ServerCall, testing::ValuesIn(kOperations),
                         [](const testing::TestParamInfo<Operation>& info) { return info.param.name; });

TEST_P(ServerCall, ReachesItsSlotAndGivesItsAnswer) {
    KlimComSrvImpl connection;
    g_outcome = S_FALSE;
    g_code = 17;
    EXPECT_EQ(GetParam().call(connection), 17) << "the server's own code comes back as it is";
    EXPECT_EQ(g_called, GetParam().called);
    EXPECT_EQ(g_text, GetParam().gives == Gives::kText ? "answer" : "poison");
    EXPECT_EQ(g_x, GetParam().gives >= Gives::kReal ? 1 : -7);
    EXPECT_EQ(g_y, GetParam().gives == Gives::kPoint ? 2 : -7);
    EXPECT_EQ(g_z, GetParam().gives == Gives::kPoint ? 3 : -7);
    EXPECT_EQ(connection.lastTrace(), "") << "all switches are off";
}

TEST_P(ServerCall, FailedCallGivesMinusTwoAndLeavesOutputs) {
    KlimComSrvImpl connection;
    connection.setTrace({false, true, false});
    g_outcome = E_FAIL;
    g_code = 17;
    EXPECT_EQ(GetParam().call(connection), -2);
    EXPECT_EQ(g_text, "poison");
    EXPECT_TRUE(g_x == -7 && g_y == -7 && g_z == -7);
    const std::string line = Line(GetParam().failedTrace ? GetParam().failedTrace : GetParam().trace, -2, "reason");
    EXPECT_EQ(connection.lastTrace(), line);
    EXPECT_EQ(Printed(), line + "\n");
}

TEST_P(ServerCall, TracesAsTheSwitchesSay) {
    KlimComSrvImpl connection;
    for (int bits = 0; bits < 16; ++bits) {
        const TraceSwitches switches = {(bits & 1) != 0, (bits & 2) != 0, (bits & 4) != 0};
        connection.setTrace(switches);
        const std::string before = connection.lastTrace();
        g_errorsAsked = 0;
        g_number = 0;
        g_code = bits & 8 ? -100 - bits : 0;
        ASSERT_EQ(GetParam().call(connection), g_code);
        const bool traced = GetParam().trace && bits % 8 != 0;
        const bool echoed = traced && (switches.all || (switches.failures && g_code != 0));
        const std::string line = traced ? Line(GetParam().trace, g_code, g_code ? "reason" : "") : before;
        EXPECT_EQ(connection.lastTrace(), line) << "switches " << bits;
        EXPECT_EQ(Printed(), echoed ? line + "\n" : "") << "switches " << bits;
        EXPECT_EQ(g_errorsAsked, traced && g_code ? 1 : 0);
    }
}

// ---- Texts

TEST_F(RawServer, TextsOfEveryLengthArriveWhole) {
    KlimComSrvImpl connection;
    for (const size_t length : {0u, 1u, 255u, 256u, 257u, 9000u}) {
        const std::string text(length, 'x');
        g_answer = std::wstring(length, L'x');
        EXPECT_EQ(connection.createPart(text.c_str(), g_text), 0);
        EXPECT_EQ(g_called, "200805 15 " + text + "\\0");
        EXPECT_EQ(g_text, text) << length;
    }
    EXPECT_EQ(connection.erasePart(nullptr), 0);
    EXPECT_EQ(g_called, "200805 23 ") << "a null text is no BSTR";
}

TEST_F(RawServer, TextsAreInTheCodePage) {
    if (GetACP() != 1252) GTEST_SKIP() << "needs the western code page";
    g_answer = L"\u00D8 250 \u20AC";
    KlimComSrvImpl connection;
    EXPECT_EQ(connection.createPart("\xD8\x80", g_text), 0);
    EXPECT_EQ(g_text, "\xD8 250 \x80");
    EXPECT_EQ(g_called, "200805 15 \xD8\xAC\\0") << "the low bytes of U+00D8 and U+20AC";
}

TEST_F(RawServer, TraceLineIsCutToItsBuffer) {
    KlimComSrvImpl connection;
    connection.setTrace({true, false, false});
    connection.manageProductData(std::string(20000, 'y').c_str());
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::manageProductData:('" + std::string(8155, 'y'));
    connection.setBinVariableData(1, 0, std::string(2000000, 'A').c_str());
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::setBinVariableData:(1, 0, 'hexdata')=0 \n");
}

TEST_F(RawServer, VersionAndErrorTextAreNeverTraced) {
    KlimComSrvImpl connection;
    connection.setTrace({true, true, true});
    EXPECT_EQ(connection.getVersion(), 20090300);
    EXPECT_EQ(connection.getLastErrorText(), "reason");
    g_outcome = E_FAIL;
    g_errorFails = true;
    EXPECT_EQ(connection.getVersion(), 0);
    EXPECT_EQ(connection.getLastErrorText(), "");
    EXPECT_EQ(connection.lastTrace(), "");
    EXPECT_EQ(Printed(), "");
}

// ---- Answers that no good server gives

TEST_F(RawServer, CountsBeyondEveryPartAreCutToTheLargestInteger) {
    KLComUtils utils;
    ASSERT_EQ(utils.Connect(), 0);
    const struct {
        const wchar_t* count;
        const char* read;
    } cases[] = {{L"3e9", "3e9"}, {L"-1e300", ""}, {L"0.9", ""}};
    for (const auto& c : cases) {
        g_answer = c.count;
        std::string first, second;
        utils.GetTwoConnectedParts("2A3", first, second, true);
        EXPECT_EQ(second, c.read);
    }
}

TEST_F(RawServer, EmptyReplyOfACreationIsNoPartToChange) {
    KLComUtils utils;
    ASSERT_EQ(utils.Connect(), 0);
    for (const wchar_t* const reply : {L"", L"0"}) {
        g_answer = reply;
        utils.CreateCustomObject(PartPlacement(), CustomObjectData(), "abc", 3);
        EXPECT_EQ(g_called.substr(0, 10), "200805 15 ") << "line types and geometry are for parts";
    }
}

}  // namespace
