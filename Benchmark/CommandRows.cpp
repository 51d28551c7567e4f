#include "CommandRows.h"

#include <windows.h>

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "acdocman.h"
#include "kbase.h"

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "Catalogue.h"
#include "KL_Conn.h"
#include "KL_Conn_SorvSilencer.h"
#include "Lib/ModuleIdentity.h"
#include "LibraryRows.h"
#include "QuickFakes.h"
#include "TestFiles.h"
#include "Util/ComTypes.h"
#include "WebServer.h"

namespace {

constexpr char kProduct[] = "SRC-250-900";
constexpr char kUserCode[] = "NEW";
constexpr char kParts[] = "/Project/KPDClass[dSilencerType]/Part";
const std::string kResultAddress = SORVIK_WEB_SERVER "/klimora/export/result.xml";

// Opens the sample project with this number of silencers: SORV1, SORV2, …
void OpenProjectOf(int silencers) {
    const std::string head = "<Name>dSilencerType</Name>";
    std::string project = ReadWholeFile(SAMPLE_FOLDER "/office.xml"), parts, error;
    for (int i = 2; i <= silencers; ++i)
        parts += "<Part><UserCode>SORV" + std::to_string(i) +
                 "</UserCode><ProductCode>SRC 400 1200</ProductCode><ProductKey>SRC-400-1200</ProductKey>"
                 "<ProductFamilyKey>SRC-400-1200</ProductFamilyKey><Length>1200</Length></Part>";
    project.insert(project.find(head) + head.size(), parts);
    bench::NewDrawing("Office.dwg");
    if (!bench::OpenProjectText(project, error)) throw std::runtime_error(error);
}

struct Insertion {
    short attribute;
    std::string bytes;
    short count;
};
std::vector<Insertion> insertions;  // of the module's record

short LearnInsertion(KB_HANDLE, KB_RECORD*, short attribute, const void* value, short count) {
    const std::map<short, short> sizes = {{1110, 2},  {1150, 2},  {1650, 22}, {1651, 8},
                                          {1652, 12}, {1653, 16}, {1654, 8}};
    const auto size = sizes.find(attribute);
    const size_t bytes = static_cast<size_t>(count * (size == sizes.end() ? 1 : size->second));
    insertions.push_back({attribute, std::string(static_cast<const char*>(value), bytes), count});
    return 0;
}

// A run's calls to its dependencies, without the module.
class BareCalls {
 public:
    BareCalls(KLIMCOMSRVLib::IKlimora200805* server, int silencers) : server_(server), silencers_(silencers) {}

    // User codes, product record and product: everything between the dialog's OK and the queued command.
    void Install() const {
        Ask("Count(" + std::string(kParts) + ")");
        for (int i = 0; i <= silencers_; ++i)
            Ask(Part(i) + "Usercode");
        const std::string dictionaryFile = folder_.file("output.ddk"), databaseFile = folder_.file("output.kpd");
        BareDownload(SORVIK_WEB_SERVER "/klimora/database/2.4/sorvik.ddk", dictionaryFile.c_str());
        BareDownload(SORVIK_WEB_SERVER "/klimora/database/2.4/sorvik.kpd", databaseFile.c_str());
        SaveRecord(dictionaryFile.c_str(), databaseFile.c_str());
        const std::string command =
            "<ManageProductData><Function><Name>Add</Name></Function><KPD><Filename>" + databaseFile +
            "</Filename></KPD><KPDClass><Name>dSilencerType</Name></KPDClass><Usercode>" + kUserCode +
            "</Usercode><Productfamilykey>" + kProduct + "</Productfamilykey></ManageProductData>";
        long result = 0;
        server_->manageProductData(BStr(command.c_str()).get(), &result);
        if (result != 0) throw std::runtime_error("the server rejects the product");
        acDocManager->sendStringToExecute(acDocManager->curDocument(), L"KLIMSILX\nSRC-250-900\nNEW\n", true, false,
                                          false);
    }
    // The whole run: also export, result and the proposed user code.
    void Run() const {
        for (int i = 0; i < silencers_; ++i) {
            for (const char* name : {"ProductKey", "ProductCode", "UserCode", "Usercode"})
                Ask(Part(i) + name);
        }
        BareDownload(kResultAddress.c_str(), folder_.file("output.xml").c_str());
        Install();
    }

 private:
    static std::string Part(int index) { return std::string(kParts) + "[" + std::to_string(index) + "]/"; }
    void Ask(const std::string& path) const {
        const BStr part(""), attribute(path.c_str());
        BSTR value = nullptr;
        long result = 0;
        server_->getPartAtt(part.get(), attribute.get(), &value, &result);
        SysFreeString(value);
    }
    static void SaveRecord(const char* dictionaryFile, const char* databaseFile) {
        const KB_HANDLE dictionary = ddk_opendatabase(dictionaryFile, 1, 0);
        const KB_HANDLE database = kbopendatabase(dictionaryFile, databaseFile, 0);
        KB_CLASSID silencers = {};
        ddk_classsymboltoID(dictionary, kSilencerClass, &silencers);
        kbdeleterec(database, &silencers, kProduct);
        KB_RECORD record = kbcreaterec(database, &silencers, kProduct);
        for (const Insertion& one : insertions)
            kbinsertatt(database, &record, one.attribute, one.bytes.data(), one.count);
        kbreleaserec(kbfindrec(database, "KMD", "SV-SRC-ROUND", 0));
        if (kbsaverec(database, record) != 0) throw std::runtime_error("the record is not saved");
        kbreleaserec(record);
        ddk_releasedatabase(dictionary);
        kbclosedatabase(database);
    }

    KLIMCOMSRVLib::IKlimora200805* const server_;
    const int silencers_;
    const TestFolder folder_;
};

// The work after OK in the dialog.
void InstallFrom(KlConn& session) {
    session.IsUserCodeInUse(kSilencerClass, kUserCode);
    session.CurrentDevice()->SetAttribute("UserCode", kUserCode);
    if (session.AddDeviceFromXMLToDatabase(kSilencerCommand) != 0 || session.InstallSilencer() != 0)
        throw std::runtime_error("the silencer is not installed: " + bench::Transcript());
}

// A run in which all dependencies and the user respond at once.
double RunAlone(const std::string& result, int silencers) {
    const QuickServer server;
    QuickServer::SetSilencers(silencers);
    const QuickRun run(result);
    const ImportPatch dialog(
        "DialogBoxParamA", +[](HINSTANCE, LPCSTR, HWND, DLGPROC, LPARAM session) -> INT_PTR {
            KlConn& of = *reinterpret_cast<KlConn*>(session);
            of.IsUserCodeInUse(kSilencerClass, of.ProposeUserCode(kSilencerClass, ""));
            return IDOK;
        });
    QuickRun::program = CreateEventA(nullptr, TRUE, TRUE, nullptr);
    bench::QueueAnswer({bench::Answer::kPick, "2A3"});
    bench::ClearTranscript();
    bench::ClearCallLog();
    const double taken = Timed([] { SorvSilencer(); })();
    for (const std::string& line : bench::CallLog()) {
        if (line.rfind("AcTransactionManager::endTransaction", 0) == 0) return taken;
    }
    throw std::runtime_error("the run failed: " + bench::Transcript());
}

}  // namespace

void CommandRows(Table& table) {
    bench::WebServer web{SORVIK_CATALOGUE};
    web.UseAsProxy();
    const std::string result = bench::Catalogue(SORVIK_CATALOGUE).Result({kProduct}, SORVIK_WEB_SERVER, {});
    web.Serve("/klimora/export/result.xml", result);
    for (const int silencers : {1, 100, 1000}) {
        const std::string with = " with " + std::to_string(silencers) + (silencers == 1 ? " silencer" : " silencers");
        OpenProjectOf(silencers);
        const RunningServer server;
        const BareCalls bare(server.get(), silencers);
        KlConn session;
        if (session.Initialize() != 0) throw std::runtime_error("the session cannot be initialized");
        WriteWholeFile(session.WorkingFolder() + "/output.xml", result);
        if (session.GetResultsFromConfigurator(nullptr) != 0) throw std::runtime_error("the result is refused");
        if (insertions.empty()) {
            const ImportPatch learn("kbinsertatt", LearnInsertion);
            session.AddDeviceFromXMLToDatabase(kSilencerCommand);
        }
        const auto quietly = [](auto work) {
            return Timed([=] {
                bench::ClearCallLog();
                work();
            });
        };
        table.Ratio("from OK to the command" + with + " / bare calls", 1.5, quietly([&] { InstallFrom(session); }),
                    quietly([&] { bare.Install(); }));
        table.Ratio(
            "the module's part of a run" + with + " / calls", 0.55, [&] { return RunAlone(result, silencers); },
            quietly([&] { bare.Run(); }));
    }
}
