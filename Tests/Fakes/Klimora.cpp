// The fake Klimora server: its insert command, rejected commands, and the contract violations that it reports.
#include <windows.h>
#include <oleauto.h>

#include "BenchAutoCAD.h"
#include "BenchKlimora.h"
#include "FakeFixture.h"
#include "KLIMCOMSRVLib.h"

using KLIMCOMSRVLib::IKlimora200805;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using bench::Answer;

// A fake AutoCAD with a drawing, a server with the sample project and one client.
class Klimora : public FakeTest {
 protected:
    static void SetUpTestSuite() { bench::StartAutoCAD(); }
    static void TearDownTestSuite() { bench::StopAutoCAD(); }
    Klimora() {
        bench::NewDrawing("office.dwg");
        bench::StartKlimora({});
        std::string error;
        EXPECT_TRUE(bench::OpenProject(SORVIK_SAMPLE_FOLDER "/office.xml", error)) << error;
        CLSID classId = {};
        IUnknown* object = nullptr;
        CLSIDFromProgID(L"KlimComSrv.Klimora", &classId);
        EXPECT_EQ(GetActiveObject(classId, nullptr, &object), S_OK);
        void* asked = nullptr;
        EXPECT_EQ(object->QueryInterface(KLIMCOMSRVLib::IID_IKlimora200805, &asked), S_OK);
        object->Release();
        client_ = static_cast<IKlimora200805*>(asked);
    }
    ~Klimora() override {
        client_->Release();
        bench::StopKlimora();
        bench::CloseDrawing();
    }

    static BSTR Text(const std::string& text) {  // never freed
        return SysAllocString(std::wstring(text.begin(), text.end()).c_str());
    }
    // Returns the result of a command, or the sentinel -8.
    long Sends(HRESULT (STDMETHODCALLTYPE IKlimora200805::*method)(BSTR, long*), const std::string& command) {
        long result = -8;
        EXPECT_EQ((client_->*method)(Text(command), &result), S_OK);
        return result;
    }
    long Creates(const std::string& command) {
        long result = -8;
        BSTR reply = nullptr;
        EXPECT_EQ(client_->createPart(Text(command), &reply, &result), S_OK);
        return result;
    }
    long SendsBytes(long variable, long offset, const char* hex) {
        long result = -8;
        EXPECT_EQ(client_->setBinVariableData(variable, offset, Text(hex), &result), S_OK);
        return result;
    }
    static std::string Inserts(const char* key, const char* userCode, const std::vector<Answer>& answers) {
        bench::ClearTranscript();
        for (const Answer& answer : std::vector<Answer>{{Answer::kText, key}, {Answer::kText, userCode}})
            bench::QueueAnswer(answer);
        for (const Answer& answer : answers)
            bench::QueueAnswer(answer);
        EXPECT_TRUE(bench::RunCommand("KLIMSILX"));
        return bench::Transcript();
    }

    IKlimora200805* client_ = nullptr;
};

TEST_F(Klimora, TracksReferencesOfEachInterface) {
    client_->AddRef();
    EXPECT_THAT(bench::OutstandingResources(), ElementsAre("interface reference IKlimora200805 (2 times)"));
    client_->Release();
    client_->Release();
    client_->Release();
    EXPECT_THAT(TakeViolations(),
                ElementsAre("Interface IKlimora200805 was released more often than it was acquired."));
    client_->AddRef();
    bench::StopKlimora();
    long version = 77;
    EXPECT_EQ(client_->getVersion(&version), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(client_->freeBinVariable(7, &version), HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE));
    EXPECT_EQ(version, 77);
}

TEST_F(Klimora, KeepsOrCorruptsOutputsOnAnInjectedFault) {
    double x = 77, y = 77, z = 77;
    long result = 77;
    BSTR text = nullptr;
    const auto reads = [&] {
        return client_->getPartAttPoint(Text("2A3"), Text("/Part/Position/WCS"), &x, &y, &z, &result);
    };
    bench::InjectFault({"IKlimora200805::*", 1, RPC_E_DISCONNECTED});
    EXPECT_EQ(reads(), RPC_E_DISCONNECTED);
    EXPECT_EQ(x + y + z + result, 4 * 77);
    bench::InjectFault({"IKlimora200805::getPartAttPoint", 2, E_FAIL, false, true});
    EXPECT_EQ(reads(), E_FAIL);
    EXPECT_TRUE(x < -1e300 && y < -1e300 && z < -1e300 && result == 0x0BADF00D);
    bench::InjectFault({"IKlimora200805::getPartAttPoint", 3, -7});
    EXPECT_EQ(reads(), S_OK);
    EXPECT_TRUE(x == 0 && y == 0 && z == 0 && result == -7);
    client_->getLastErrorText(&text);
    EXPECT_STREQ(text, L"IKlimora200805::getPartAttPoint failed by injection.");
}

TEST_F(Klimora, ReportsMisuseOfABinaryVariable) {
    long result = -8;
    EXPECT_EQ(SendsBytes(7, 0, "00"), -130);
    client_->setBinVariableSize(7, 0, &result);
    EXPECT_EQ(result, -130);
    client_->setBinVariableSize(7, 2, &result);
    EXPECT_THAT(bench::OutstandingResources(), testing::Contains("binary variable 7"));
    for (const char* hex : {"0", "0a", "000000"})
        EXPECT_EQ(SendsBytes(7, 0, hex), -130);
    EXPECT_EQ(SendsBytes(7, -1, "FF"), -130);
    EXPECT_EQ(SendsBytes(7, 1, "FF"), 0);
    client_->setPartAtt(Text("2A4"), Text("/Part/Geometry/Source[0]/gm_model/binvar"), Text("7"), &result);
    EXPECT_EQ(result, -130);
    EXPECT_THAT(TakeViolations(),
                ElementsAre("Binary variable 7 was sent data before its size was set.",
                            "Binary variable 7 was sent an odd number of hexadecimal digits, or none.",
                            "Binary variable 7 was sent data that are not upper-case hexadecimal digits.",
                            "Binary variable 7 was sent data beyond its size of 2.",
                            "Binary variable 7 was sent data beyond its size of 2.",
                            "Binary variable 7 was used before all of its bytes were sent."));
    EXPECT_EQ(bench::BinaryVariable(7), std::string("\0\xFF", 2));
    EXPECT_EQ(SendsBytes(7, 0, "00"), 0);
    client_->setPartAtt(Text("2A4"), Text("/Part/Geometry/Source[0]/gm_model/binvar"), Text("7"), &result);
    EXPECT_NE(result, -130);
    client_->freeBinVariable(7, &result);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(client_->freeBinVariable(7, nullptr), E_POINTER);
    EXPECT_EQ(client_->reservedSlot17(), E_NOTIMPL);
    EXPECT_THAT(TakeViolations(), ElementsAre("IKlimora200805::freeBinVariable was called with a null output pointer.",
                                              HasSubstr("Slot 17")));
}

TEST_F(Klimora, RejectsBadCommands) {
    const std::string before = bench::ProjectXml();
    const std::string product =
        "<ManageProductData><Function><Name>Add</Name></Function><KPD><Filename>" SORVIK_SAMPLE_FOLDER
        "/sorvik.kpd</Filename></KPD><KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>SORV2</Usercode>"
        "<Productfamilykey>SRC-999</Productfamilykey></ManageProductData>";
    const auto with = [&](const char* from, const char* to) {
        std::string text = product;
        return text.replace(text.find(from), std::string(from).size(), to);
    };
    EXPECT_EQ(Sends(&IKlimora200805::manageProductData, product), -120);
    EXPECT_EQ(Sends(&IKlimora200805::manageProductData, with("sorvik.kpd", "none.kpd")), -121);
    EXPECT_EQ(Sends(&IKlimora200805::manageProductData, with("SORV2", "SORV2345678")), -105);
    for (const std::string& command : {with("</ManageProductData>", ""), product + product, with("SORV2", "S&2"),
                                       with("SORV2", "S<2"), with("Add", "Remove")})
        EXPECT_EQ(Sends(&IKlimora200805::manageProductData, command), -110) << command;
    EXPECT_EQ(Sends(&IKlimora200805::erasePart, "<ErasePart><PartList>2A4 7FF</PartList></ErasePart>"), -102);
    EXPECT_EQ(Creates("<CreatePart><Part><Type><Define>EWAPART_UNKNOWN</Define></Type></Part></CreatePart>"), -110);
    EXPECT_EQ(bench::ProjectXml(), before);
}

TEST_F(Klimora, SplitsOnlyADuctForTheSilencer) {
    const std::string before = bench::ProjectXml();
    EXPECT_THAT(Inserts("SRC-400", "SORV1", {}), HasSubstr("SRC-400 with user code SORV1 is not in the project."));
    EXPECT_THAT(Inserts("SRC-400-1200", "SORV1", {{Answer::kPick, "2AA"}}),
                HasSubstr("KLIMSILX: part 2AA is not a duct"));
    EXPECT_THAT(Inserts("SRC-400-1200", "SORV1", {{Answer::kEscape, ""}}),
                HasSubstr("KLIMSILX: no duct was selected."));
    EXPECT_EQ(bench::ProjectXml(), before);
    EXPECT_THAT(Inserts("SRC-400-1200", "SORV1", {{Answer::kMiss, ""}, {Answer::kPick, "2B3"}}),
                HasSubstr("3650 mm from the start of the duct."));
    std::string error;
    EXPECT_TRUE(bench::OpenProjectText(bench::ProjectXml(), error)) << error << " (connections must be mutual)";
    const std::string silencer = bench::PartAttribute("2B3", "/Part/Connection[1]/ConnectedTo");
    const std::string second = bench::PartAttribute(silencer, "/Part/Connection[1]/ConnectedTo");
    EXPECT_EQ(bench::PartAttribute(silencer, "/Part/Position/WCS"), "17150 6000 2800");
    EXPECT_EQ(bench::PartAttribute(second, "/Part/Position/WCS"), "18350 6000 2800");
    EXPECT_EQ(bench::PartAttribute(second, "/Part/Connection[1]/ConnectedTo"), "2B4");
    EXPECT_THAT(Inserts("SRC-400-1200", "SORV1", {{Answer::kEnter, ""}}), HasSubstr("between ducts 2B3 and"));
    Inserts("SRC-400-1200", "SORV1", {{Answer::kEnter, ""}});
    EXPECT_THAT(Inserts("SRC-400-1200", "SORV1", {{Answer::kEnter, ""}}),
                HasSubstr("part 2B3 is 12.5 mm long, too short for a silencer of 1200 mm"));
}

}  // namespace
