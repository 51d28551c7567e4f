// The server as a machine has it: registration, running objects, interfaces, references and planned failures.
#include "KlimoraClient.h"

using namespace KLIMCOMSRVLib;

namespace {

constexpr wchar_t kDrawing[] = L"KlimComSrv.Drawing";
constexpr wchar_t kKlimora[] = L"KlimComSrv.Klimora";

bool InRegistry(const wchar_t* progId) {
    HKEY key = nullptr;
    const bool found = RegOpenKeyExW(HKEY_CLASSES_ROOT, progId, 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (found) RegCloseKey(key);
    return found;
}

// What a client meets on the way to both objects and the three interfaces, one letter a step that works.
std::string WayIn() {
    std::string way;
    CLSID classId = {};
    IUnknown* object = nullptr;
    if (SUCCEEDED(CLSIDFromProgID(kDrawing, &classId))) way += 'd';
    if (SUCCEEDED(Running(kDrawing, &object))) way += 'D', object->Release();
    if (Connect<IDrawing>(kDrawing, IID_IDrawing)) way += '*';
    if (SUCCEEDED(CLSIDFromProgID(kKlimora, &classId))) way += 'k';
    if (SUCCEEDED(Running(kKlimora, &object))) way += 'K', object->Release();
    if (Connect<IKlimora200805>(kKlimora, IID_IKlimora200805)) way += '1';
    if (Connect<IKlimora201011>(kKlimora, IID_IKlimora201011)) way += '2';
    if (Connect<IKlimoraLatest>(kKlimora, IID_IKlimoraLatest)) way += '3';
    return way;
}

using KlimoraServerTest = KlimoraBench;

TEST_F(KlimoraServerTest, HalfInstalledAndOldServersMissWhatIsSwitchedOff) {
    const struct {
        bool bench::KlimoraServer::*off;
        const char* way;
    } cases[] = {
        {&bench::KlimoraServer::drawingInstalled, "kK123"}, {&bench::KlimoraServer::drawingRunning, "dkK123"},
        {&bench::KlimoraServer::hasDrawing, "dDkK123"},     {&bench::KlimoraServer::klimoraInstalled, "dD*"},
        {&bench::KlimoraServer::klimoraRunning, "dD*k"},    {&bench::KlimoraServer::has200805, "dD*kK23"},
        {&bench::KlimoraServer::has201011, "dD*kK13"},      {&bench::KlimoraServer::hasLatest, "dD*kK12"},
    };
    EXPECT_EQ(WayIn(), "dD*kK123");
    for (const auto& c : cases) {
        bench::KlimoraServer server;
        server.*c.off = false;
        Restart(server);
        EXPECT_EQ(WayIn(), c.way);
    }
}

TEST_F(KlimoraServerTest, StopTakesEverythingAwayAndASecondStartBringsItBack) {
    bench::StopKlimora();
    EXPECT_EQ(WayIn(), "");
    EXPECT_FALSE(InRegistry(kDrawing));
    EXPECT_FALSE(InRegistry(kKlimora));
    EXPECT_FALSE(bench::RunCommand("KLIMSILX"));
    Restart({});
    EXPECT_EQ(WayIn(), "dD*kK123");
    EXPECT_EQ(Get("2A1", "/part/width").text, "500");
}

TEST_F(KlimoraServerTest, ReferencesAreOwedByInterfaceUntilTheyAreReleased) {
    IUnknown* object = nullptr;
    ASSERT_EQ(Running(kKlimora, &object), S_OK);
    auto drawing = Connect<IDrawing>(kDrawing, IID_IDrawing);
    auto first = ConnectKlimora();
    auto second = ConnectKlimora();
    auto latest = Connect<IKlimoraLatest>(kKlimora, IID_IKlimoraLatest);
    const std::vector<std::string> owed = {
        "interface reference IDrawing", "interface reference IKlimora200805 (2 times)",
        "interface reference IKlimoraLatest", "interface reference KlimComSrv.Klimora"};
    EXPECT_EQ(bench::BenchBalance(), owed);
    object->Release();
    second.Let();
    latest.Let();
    bench::StopKlimora();
    EXPECT_EQ(bench::BenchBalance(),
              (std::vector<std::string>{"interface reference IDrawing", "interface reference IKlimora200805"}));
    long version = 77;
    EXPECT_EQ(first->getVersion(&version), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(version, 77);
}

TEST_F(KlimoraServerTest, ReleasingTooOftenIsAccused) {
    auto klimora = ConnectKlimora();
    IKlimora200805* const raw = klimora.get();
    klimora.Let();
    raw->Release();
    EXPECT_EQ(TakeAccusations(),
              std::vector<std::string>{"Interface IKlimora200805 was released more often than it was handed out."});
}

TEST_F(KlimoraServerTest, JournalNamesTheInterfaceThatWasUsedWithArgumentsAndResult) {
    Get("2A1", "/part/width");
    Get("2A1", "/part/colour");
    const auto latest = Connect<IKlimoraLatest>(kKlimora, IID_IKlimoraLatest);
    long result = 77;
    latest->calculate(SentText("<Calculate/>"), &result);
    Manage("<ManageProductData></ManageProductData>");
    const std::vector<std::string> journal = bench::Journal();
    ASSERT_EQ(journal.size(), 4u);
    EXPECT_EQ(journal[0], "IKlimora200805::getPartAtt '2A1' '/part/width' -> '500' 0");
    EXPECT_EQ(journal[1], "IKlimora200805::getPartAtt '2A1' '/part/colour' -> -103");
    EXPECT_EQ(journal[2], "IKlimoraLatest::calculate <Calculate/> -> 0");
    EXPECT_EQ(journal[3], "IKlimora200805::manageProductData <ManageProductData></ManageProductData> -> -110");
}

TEST_F(KlimoraServerTest, PlannedHresultLeavesOutputsAloneAndOtherCodesComeAsResults) {
    const struct {
        long code;
        HRESULT call;
        long result;
        bool textWritten;
    } cases[] = {
        {static_cast<long>(0x80004005), E_FAIL, 77, false},
        {static_cast<long>(0x80010108), static_cast<HRESULT>(0x80010108), 77, false},
        {3, S_OK, 3, true},
        {-8, S_OK, -8, true},
    };
    const auto klimora = ConnectKlimora();
    for (const auto& c : cases) {
        bench::ClearFailures();
        bench::FailCall("IKlimora200805::getPartAtt", 1, c.code);
        BSTR const poison = reinterpret_cast<BSTR>(0x10);
        BSTR text = poison;
        long result = 77;
        EXPECT_EQ(klimora->getPartAtt(SentText("2A1"), SentText("/part/width"), &text, &result), c.call);
        EXPECT_EQ(result, c.result);
        EXPECT_EQ(text != poison, c.textWritten);
        if (text == poison) continue;
        EXPECT_EQ(Received(text), "");
        EXPECT_EQ(ErrorText(), "IKlimora200805::getPartAtt was planned to fail.");
    }
    bench::ClearFailures();
    bench::FailCall("IKlimora200805::erasePart", 1);
    EXPECT_EQ(Erase("<ErasePart><PartList>2A4</PartList></ErasePart>").call, E_FAIL);
    EXPECT_TRUE(InDrawing("2A4"));
    EXPECT_EQ(Get("2A1", "/part/width").text, "500");
    EXPECT_EQ(ErrorText(), "");
}

}  // namespace
