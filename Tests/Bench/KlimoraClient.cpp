#include "KlimoraClient.h"

HRESULT Running(const wchar_t* progId, IUnknown** object) {
    CLSID classId = {};
    const HRESULT found = CLSIDFromProgID(progId, &classId);
    return FAILED(found) ? found : GetActiveObject(classId, nullptr, object);
}

Held<KLIMCOMSRVLib::IKlimora200805> ConnectKlimora() {
    return Connect<KLIMCOMSRVLib::IKlimora200805>(L"KlimComSrv.Klimora", KLIMCOMSRVLib::IID_IKlimora200805);
}

SentText::SentText(const std::string& text) : text_(SysAllocStringLen(nullptr, static_cast<UINT>(text.size() + 1))) {
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, text_, static_cast<int>(text.size() + 1));
}

std::string Received(BSTR text) {
    std::string narrow;
    for (UINT i = 0; i < SysStringLen(text); ++i)
        narrow += static_cast<char>(text[i]);
    SysFreeString(text);
    return narrow;
}

void KlimoraBench::SetUpTestSuite() {
    bench::StartAutoCAD();
}

void KlimoraBench::TearDownTestSuite() {
    bench::StopAutoCAD();
}

void KlimoraBench::SetUp() {
    bench::ResetBench();
    bench::NewDrawing("office.dwg");
    bench::ClearTranscript();
    Restart({});
}

void KlimoraBench::TearDown() {
    bench::StopKlimora();
    bench::CloseDrawing();
    EXPECT_EQ(bench::BenchBalance(), std::vector<std::string>());
    EXPECT_EQ(bench::Accusations(), std::vector<std::string>());
    bench::ResetBench();
}

void KlimoraBench::Restart(const bench::KlimoraServer& server) {
    bench::StartKlimora(server);
    std::string error;
    ASSERT_TRUE(bench::OpenProject(SORVIK_SAMPLE_FOLDER "/office.xml", error)) << error;
    bench::ClearJournal();
}

Answered KlimoraBench::Get(const std::string& part, const std::string& path) {
    Answered answered;
    const auto klimora = ConnectKlimora();
    BSTR value = nullptr;
    answered.call = klimora->getPartAtt(SentText(part), SentText(path), &value, &answered.result);
    answered.text = Received(value);
    return answered;
}

Answered KlimoraBench::Set(const std::string& part, const std::string& path, const std::string& value) {
    Answered answered;
    answered.call = ConnectKlimora()->setPartAtt(SentText(part), SentText(path), SentText(value), &answered.result);
    return answered;
}

Answered KlimoraBench::Manage(const std::string& command) {
    Answered answered;
    answered.call = ConnectKlimora()->manageProductData(SentText(command), &answered.result);
    return answered;
}

Answered KlimoraBench::Create(const std::string& command) {
    Answered answered;
    BSTR reply = nullptr;
    answered.call = ConnectKlimora()->createPart(SentText(command), &reply, &answered.result);
    answered.text = Received(reply);
    return answered;
}

Answered KlimoraBench::CreateStub(const std::string& command) {
    Answered answered;
    BSTR reply = nullptr;
    answered.call = ConnectKlimora()->createConnectionStub(SentText(command), &reply, &answered.result);
    answered.text = Received(reply);
    return answered;
}

Answered KlimoraBench::Erase(const std::string& command) {
    Answered answered;
    answered.call = ConnectKlimora()->erasePart(SentText(command), &answered.result);
    return answered;
}

long KlimoraBench::SetSize(long variable, long size) {
    long result = 0x0BADF00D;
    EXPECT_EQ(ConnectKlimora()->setBinVariableSize(variable, size, &result), S_OK);
    return result;
}

long KlimoraBench::SetData(long variable, long offset, const std::string& hex) {
    long result = 0x0BADF00D;
    EXPECT_EQ(ConnectKlimora()->setBinVariableData(variable, offset, SentText(hex), &result), S_OK);
    return result;
}

long KlimoraBench::Free(long variable) {
    long result = 0x0BADF00D;
    EXPECT_EQ(ConnectKlimora()->freeBinVariable(variable, &result), S_OK);
    return result;
}

std::string KlimoraBench::ErrorText() {
    BSTR text = nullptr;
    EXPECT_EQ(ConnectKlimora()->getLastErrorText(&text), S_OK);
    return Received(text);
}

std::vector<std::string> KlimoraBench::TakeAccusations() {
    const std::vector<std::string> accusations = bench::Accusations();
    bench::ClearAccusations();
    return accusations;
}

bool KlimoraBench::InDrawing(const std::string& handle) {
    for (const bench::EntityInfo& entity : bench::Entities())
        if (entity.handle == handle) return true;
    return false;
}
