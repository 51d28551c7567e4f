// The server connection against a raw server: tables of function pointers in the order of the server's type library,
// written here and not taken from our declarations. It fills its outputs even when the call fails, and counts the
// terminator in its strings, as real servers do. The cases check slots, arguments, results, outputs, trace lines, the
// order of releases, and that every BSTR is freed.
#include <array>

#include "ImportPatch.h"
#include "KlimoraBench.h"
#include "NoMemory.h"

namespace {

// ---- The raw server

using Slot = void (*)();
struct RawObject {
    const Slot* slots;
    const char* name;
    int references;
};
extern RawObject g_drawing, g_iDrawing, g_klimora, g_200805, g_201011, g_latest;

// The server's results, and the calls that it received.
struct RawState {
    HRESULT outcome = S_OK;
    long code = 0;
    std::wstring answer = std::wstring(L"answer\0", 7);
    bool hasLatest = true, errorTextFails = false;
    std::string called;    // the last call, except for version and error text
    int errorQueries = 0;  // calls of slot 8
    std::string released;  // interfaces, in order
};
RawState g_raw;

// What the client received.
struct Outputs {
    std::string text = "sentinel";
    double x = -7, y = -7, z = -7;
    int last = 0;  // the last number
};
Outputs g_out;

template <class Parameter>
void Take(Parameter value) {
    if constexpr (std::is_same_v<Parameter, BSTR>) {
        g_raw.called += " ";
        for (UINT i = 0; i < SysStringLen(value); ++i)
            g_raw.called += value[i] ? std::string(1, static_cast<char>(value[i])) : "\\0";
    } else if constexpr (std::is_same_v<Parameter, BSTR*>) {
        *value = SysAllocStringLen(g_raw.answer.data(), static_cast<UINT>(g_raw.answer.size()));
    } else if constexpr (std::is_pointer_v<Parameter>) {
        *value = std::is_same_v<Parameter, long*> ? g_raw.code : static_cast<long>(++g_out.last);
    } else {
        g_raw.called += " " + std::to_string(value);
    }
}

template <int slot, class... Parameters>
HRESULT STDMETHODCALLTYPE Answer(RawObject* object, Parameters... parameters) {
    g_raw.called = object->name + std::string(" ") + std::to_string(slot);
    (Take(parameters), ...);
    return g_raw.outcome;
}
HRESULT STDMETHODCALLTYPE Version(RawObject*, long* version) {
    *version = 20090300;
    return g_raw.outcome;
}
HRESULT STDMETHODCALLTYPE ErrorText(RawObject*, BSTR* text) {
    ++g_raw.errorQueries;
    *text = SysAllocStringLen(L"reason", 6);
    return g_raw.errorTextFails ? E_FAIL : S_OK;
}
ULONG STDMETHODCALLTYPE AddRef(RawObject* object) {
    return static_cast<ULONG>(++object->references);
}
ULONG STDMETHODCALLTYPE Release(RawObject* object) {
    if (object != &g_drawing && object != &g_klimora) g_raw.released += std::string(object->name) + " ";
    return static_cast<ULONG>(--object->references);
}
HRESULT STDMETHODCALLTYPE Query(RawObject* object, REFIID id, RawObject** found) {
    const bool isDrawing = object == &g_drawing || object == &g_iDrawing;
    *found = nullptr;
    if (id == IID_IUnknown) *found = isDrawing ? &g_drawing : &g_klimora;
    if (isDrawing && id == KLIMCOMSRVLib::IID_IDrawing) *found = &g_iDrawing;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimora200805) *found = &g_200805;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimora201011) *found = &g_201011;
    if (!isDrawing && id == KLIMCOMSRVLib::IID_IKlimoraLatest && g_raw.hasLatest) *found = &g_latest;
    if (!*found) return E_NOINTERFACE;
    AddRef(*found);
    return S_OK;
}

HRESULT STDMETHODCALLTYPE Unused(RawObject*) {
    ADD_FAILURE() << "a call of an unused slot";
    return E_NOTIMPL;
}

template <class... Functions>
std::array<Slot, sizeof...(Functions)> Slots(Functions*... functions) {
    return {reinterpret_cast<Slot>(functions)...};
}
// In the order of their numbers, from 0.
const std::array<Slot, 28> kSlots = Slots(
    Query, AddRef, Release, Unused, Unused, Unused, Unused, Version, ErrorText, Answer<9, BSTR, BSTR, BSTR*, long*>,
    Answer<10, BSTR, BSTR, BSTR, long*>, Answer<11, BSTR, BSTR, double*, long*>, Answer<12, BSTR, BSTR, double, long*>,
    Answer<13, BSTR, BSTR, double*, double*, double*, long*>, Answer<14, BSTR, BSTR, double, double, double, long*>,
    Answer<15, BSTR, BSTR*, long*>, Answer<16, BSTR, BSTR*, long*>, Unused, Answer<18, BSTR, BSTR*, long*>,
    Answer<19, long, long, long*>, Answer<20, long, long, BSTR, long*>, Answer<21, long, long*>,
    Answer<22, BSTR, long*>, Answer<23, BSTR, long*>, Answer<24, BSTR, long*>, Answer<25, BSTR, BSTR*, long*>,
    Answer<26, BSTR, long*>, Answer<27, BSTR, long*>);
RawObject g_drawing{kSlots.data(), "drawing", 0}, g_iDrawing{kSlots.data(), "IDrawing", 0},
    g_klimora{kSlots.data(), "klimora", 0}, g_200805{kSlots.data(), "200805", 0}, g_201011{kSlots.data(), "201011", 0},
    g_latest{kSlots.data(), "latest", 0};

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

class RawServer : public KlimoraBench {
 protected:
    RawServer() {
        bench::KlimoraServer installed;
        installed.drawingRunning = installed.klimoraRunning = false;
        StartServer(installed);
        Run(L"KlimComSrv.Drawing", g_drawing, drawingCookie_);
        Run(L"KlimComSrv.Klimora", g_klimora, klimoraCookie_);
        g_raw = RawState();
        g_out = Outputs();
        g_texts = 0;
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

TEST_F(RawServer, ReleasesInterfacesInOrder) {
    {
        const KlimComSrvImpl connection;
        EXPECT_EQ(g_raw.released, "");
        for (const RawObject* object : {&g_iDrawing, &g_200805, &g_201011, &g_latest})
            EXPECT_EQ(object->references, 1) << object->name;
    }
    EXPECT_EQ(g_raw.released, "IDrawing 200805 201011 latest ");
}

TEST_F(RawServer, OffersAllButCalculateOnAnOlderServer) {
    g_raw.hasLatest = false;
    KlimComSrvImpl connection;
    EXPECT_EQ(connection.selectProduct("<H/>"), 0);
    EXPECT_EQ(connection.calculate("<I/>"), -1);
    EXPECT_EQ(g_raw.called, "201011 26 <H/>\\0") << "nothing is sent without the interface";
}

// ---- One row for each operation

struct Operation {
    const char* name;
    const char* called;       // interface, slot and arguments
    char output;              // 't' a string, 'r' a real, 'p' a point, '-' none
    const char* trace;        // arguments after success; null when only a failed call is traced
    const char* failedTrace;  // arguments after a failed call; null when they are the same
    int (*call)(KlimComSrvImpl&);
};

const Operation kOperations[] = {
    {"getPartAtt", "200805 9 2A1\\0 /Part\\0", 't', "'2A1', '/Part', 'answer'", "'2A1', '/Part', ''",
     [](auto& c) { return c.getPartAtt("2A1", "/Part", g_out.text); }},
    {"setPartAtt", "200805 10 2A1\\0 /Part\\0 a\"b\\0", '-', "'2A1', '/Part', 'a\"b'", nullptr,
     [](auto& c) { return c.setPartAtt("2A1", "/Part", "a\"b"); }},
    {"getPartAttDouble", "200805 11 2A1\\0 /Part\\0", 'r', "'2A1', '/Part', 1.000000", "'2A1', '/Part', 0.000000",
     [](auto& c) { return c.getPartAttDouble("2A1", "/Part", g_out.x); }},
    {"setPartAttDouble", "200805 12 2A1\\0 /Part\\0 12.500000", '-', "'2A1', '/Part', 12.500000", nullptr,
     [](auto& c) { return c.setPartAttDouble("2A1", "/Part", 12.5); }},
    {"getPartAttPoint", "200805 13 2A1\\0 /Part\\0", 'p', "'2A1', '/Part', 1.000000, 2.000000, 3.000000",
     "'2A1', '/Part', 0.000000, 0.000000, 0.000000",
     [](auto& c) { return c.getPartAttPoint("2A1", "/Part", g_out.x, g_out.y, g_out.z); }},
    {"setPartAttPoint", "200805 14 2A1\\0 /Part\\0 1.000000 2.500000 -3.000000", '-',
     "'2A1', '/Part', 1.000000, 2.500000, -3.000000", nullptr,
     [](auto& c) { return c.setPartAttPoint("2A1", "/Part", 1, 2.5, -3); }},
    {"createPart", "200805 15 <A/>\\0", 't', "'<A/>', 'answer'", "'<A/>', ''",
     [](auto& c) { return c.createPart("<A/>", g_out.text); }},
    {"selectPart", "200805 16 <B/>\\0", 't', "'<B/>', 'answer'", "'<B/>', ''",
     [](auto& c) { return c.selectPart("<B/>", g_out.text); }},
    {"createConnectionStub", "200805 18 <C/>\\0", 't', "'<C/>', 'answer'", "'<C/>', ''",
     [](auto& c) { return c.createConnectionStub("<C/>", g_out.text); }},
    {"setBinVariableSize", "200805 19 3 8", '-', "3, 8", nullptr, [](auto& c) { return c.setBinVariableSize(3, 8); }},
    {"setBinVariableData", "200805 20 3 4 00FF\\0", '-', "3, 4, 'hexdata'", nullptr,
     [](auto& c) { return c.setBinVariableData(3, 4, "00FF"); }},
    {"freeBinVariable", "200805 21 3", '-', "3", nullptr, [](auto& c) { return c.freeBinVariable(3); }},
    {"manageProductData", "200805 22 <D/>\\0", '-', "'<D/>'", nullptr,
     [](auto& c) { return c.manageProductData("<D/>"); }},
    {"erasePart", "200805 23 <E/>\\0", '-', "'<E/>'", nullptr, [](auto& c) { return c.erasePart("<E/>"); }},
    {"movePart", "200805 24 <F/>\\0", '-', "'<F/>'", nullptr, [](auto& c) { return c.movePart("<F/>"); }},
    {"manageCalculationDatabase", "201011 25 <G/>\\0", 't', nullptr, "'<G/>'",
     [](auto& c) { return c.manageCalculationDatabase("<G/>", g_out.text); }},
    {"selectProduct", "201011 26 <H/>\\0", '-', nullptr, "'<H/>'", [](auto& c) { return c.selectProduct("<H/>"); }},
    {"calculate", "latest 27 <I/>\\0", '-', nullptr, "'<I/>'", [](auto& c) { return c.calculate("<I/>"); }},
};

std::string Line(const Operation& operation, const char* arguments, int result, const std::string& error) {
    return std::string("KlimComSrvImpl::") + operation.name + ":(" + arguments + ")=" + std::to_string(result) + " " +
           error + (operation.name == std::string("getPartAtt") ? "" : "\n");
}

TEST_F(RawServer, CallsTheSlotOfEachOperationAndTracesAsSwitchedOn) {
    for (const Operation& operation : kOperations) {
        KlimComSrvImpl connection;
        for (int bits = 0; bits < 32; ++bits) {
            SCOPED_TRACE(operation.name + std::string(", switches ") + std::to_string(bits));
            const bool keep = (bits & 1) != 0, failures = (bits & 2) != 0, all = (bits & 4) != 0;
            const bool hasCode = (bits & 8) != 0, fails = (bits & 16) != 0;
            g_raw.outcome = fails ? E_FAIL : S_FALSE;
            g_raw.code = hasCode ? 17 : 0;
            g_raw.errorQueries = 0;
            g_out = Outputs();
            connection.setTrace({keep, failures, all});
            const std::string before = connection.lastTrace();
            const int result = fails ? -2 : g_raw.code;
            EXPECT_EQ(operation.call(connection), result);
            EXPECT_EQ(g_raw.called, operation.called);
            const char output = fails ? '-' : operation.output;
            EXPECT_EQ(g_out.text, output == 't' ? "answer" : "sentinel");
            EXPECT_EQ(g_out.x, output == 'r' || output == 'p' ? 1 : -7);
            EXPECT_EQ(g_out.y, output == 'p' ? 2 : -7);
            EXPECT_EQ(g_out.z, output == 'p' ? 3 : -7);
            const char* arguments = fails && operation.failedTrace ? operation.failedTrace : operation.trace;
            const bool traced = arguments && (keep || failures || all);
            const bool echoed = traced && (all || (failures && result != 0));
            const std::string line = traced ? Line(operation, arguments, result, result ? "reason" : "") : before;
            EXPECT_EQ(connection.lastTrace(), line);
            EXPECT_EQ(Printed(), echoed ? line + "\n" : "");
            EXPECT_EQ(g_raw.errorQueries, traced && result ? 1 : 0);
        }
    }
}

// ---- Strings and trace lines

TEST_F(RawServer, PassesStringsOfEveryLength) {
    KlimComSrvImpl connection;
    for (const size_t length : {0u, 1u, 255u, 256u, 257u, 9000u}) {
        const std::string text(length, 'x');
        g_raw.answer = std::wstring(length, L'x');
        EXPECT_EQ(connection.createPart(text.c_str(), g_out.text), 0);
        EXPECT_EQ(g_raw.called, "200805 15 " + text + "\\0");
        EXPECT_EQ(g_out.text, text) << length;
    }
    EXPECT_EQ(connection.erasePart(nullptr), 0);
    EXPECT_EQ(g_raw.called, "200805 23 ") << "a null string is a null BSTR";
}

TEST_F(RawServer, ConvertsStringsWithTheCodePage) {
    if (GetACP() != 1252) GTEST_SKIP() << "needs the western code page";
    g_raw.answer = L"\u00D8 250 \u20AC";
    KlimComSrvImpl connection;
    EXPECT_EQ(connection.createPart("\xD8\x80", g_out.text), 0);
    EXPECT_EQ(g_out.text, "\xD8 250 \x80");
    EXPECT_EQ(g_raw.called, "200805 15 \xD8\xAC\\0") << "the low bytes of U+00D8 and U+20AC";
}

TEST_F(RawServer, TruncatesTheTraceLine) {
    KlimComSrvImpl connection;
    connection.setTrace({true, false, false});
    connection.manageProductData(std::string(20000, 'y').c_str());
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::manageProductData:('" + std::string(8155, 'y'));
    connection.setBinVariableData(1, 0, std::string(2000000, 'A').c_str());
    EXPECT_EQ(connection.lastTrace(), "KlimComSrvImpl::setBinVariableData:(1, 0, 'hexdata')=0 \n");
}

TEST_F(RawServer, KeepsTheResultWhenTheTraceLineFails) {
    KlimComSrvImpl connection;
    connection.setTrace({true, true, true});
    g_raw.code = 17;
    int result = 0;
    {
        const NoMemory noMemory;
        result = connection.erasePart("<A/>");
    }
    EXPECT_EQ(result, 17);
    EXPECT_EQ(connection.lastTrace() + Printed(), "");
}

TEST_F(RawServer, NeverTracesVersionAndErrorText) {
    KlimComSrvImpl connection;
    connection.setTrace({true, true, true});
    EXPECT_EQ(connection.getVersion(), 20090300);
    EXPECT_EQ(connection.getLastErrorText(), "reason");
    g_raw.outcome = E_FAIL;
    g_raw.errorTextFails = true;
    EXPECT_EQ(connection.getVersion(), 0);
    EXPECT_EQ(connection.getLastErrorText(), "");
    EXPECT_EQ(connection.lastTrace(), "");
    EXPECT_EQ(Printed(), "");
}

// ---- Results that no correct server returns

TEST_F(RawServer, RejectsCountsOverAMillionAndEmptyOrRefusedAnswers) {
    KLComUtils utils;
    ASSERT_EQ(utils.Connect(), 0);
    for (const auto& [count, read] :
         {std::pair{L"1000000", "1000000"}, {L"1000001", ""}, {L"3e9", ""}, {L"-1e300", ""}, {L"0.9", ""}}) {
        g_raw.answer = count;
        std::string first, second;
        utils.GetTwoConnectedParts("2A3", first, second, true);
        EXPECT_EQ(second, read);
    }
    g_raw.answer = L"1000000";
    EXPECT_EQ(utils.GetCountOrDefault("/Part", -7), 1000000);
    g_raw.answer = L"1000001";
    EXPECT_EQ(utils.GetCountOrDefault("/Part", -7), -7);
    bench::NewDrawing("Office.dwg");
    const std::string block = bench::AddBlockReference({"", "AHU-2", "0", {1, 2, 3}, 0, {0, 0, 1}, {}});
    for (const wchar_t* const reply : {L"", L"0"}) {
        g_raw.answer = reply;
        utils.CreateCustomObject(block, CustomObjectData(), false);
        EXPECT_EQ(g_raw.called.substr(0, 10), "200805 15 ") << "a new object has only createPart as well";
        utils.CreateCustomObject(PartPlacement(), CustomObjectData(), "abc", 3);
        EXPECT_EQ(g_raw.called.substr(0, 10), "200805 15 ") << "line types and geometry were set without a part";
    }
    g_raw.code = 17;
    std::string value = "old";
    EXPECT_EQ(utils.GetPartAtt("2A3", "/Part", value, false), 17);
    EXPECT_EQ(value, "");
    EXPECT_EQ(utils.GetPartAttOrDefault("2A3", "/Part", std::string("none")), "none");
}

}  // namespace
