#include "KL_Conn.h"

#include <io.h>
#include <ole2.h>

#include <cstdio>
#include <cstring>
#include <utility>

#include "acdocman.h"
#include "acedads.h"
#include "dbapserv.h"

#include "kbase.h"

#include "Lib/CommandLine.h"
#include "Lib/Diagnostics.h"
#include "Lib/ExceptionReport.h"
#include "Lib/FormatText.h"
#include "Lib/Md5Driver.h"
#include "Lib/ModuleIdentity.h"
#include "Lib/Text.h"
#include "ModuleLoader.h"
#include "PluginStat.h"
#include "Util/ArxHandles.h"
#include "Util/Download.h"
#include "Util/FileTree.h"
#include "Util/ModuleVersion.h"
#include "Util/SystemVariables.h"
#include "Util/XmlLimits.h"

namespace {

constexpr char kSource[] = "PlugIn/KL_Conn";
constexpr int kRequiredServerVersion = 20091200;
constexpr char kResultFile[] = "output.xml";
constexpr size_t kMaxCommandLength = 1023;
constexpr char kGetResults[] = "KlConn::GetResultsFromConfigurator";
constexpr char kShutdown[] = "KlConn::Shutdown";
constexpr ReportSite kInstallation = {"InstallSilencer", kSource, 573, "KlConn::InstallSilencer"};
constexpr char kNotLoaded[] = "\n%s: Can not start application, Klimora is not loaded.\n";

bool FileExists(const std::string& path) {
    return _access(path.c_str(), 0) == 0;
}

std::string ChildText(const ticpp::Element& parent, const char* name) {
    const ticpp::Element* child = parent.FirstChildElement(name, false);
    return child ? child->GetText(false) : std::string();
}

// Returns whether AutoCAD's command line reads the text as a name. A control character ends the line or acts on it, and
// a word that begins like an expression of AutoLISP or DIESEL may be evaluated.
bool IsCommandLineText(const std::string& text) {
    char before = ' ';
    for (const char c : text) {
        if ((c >= 0 && c < ' ') || c == 0x7F) return false;
        if (before == ' ' && (c == '(' || c == '!' || c == '\'')) return false;
        before = c;
    }
    return true;
}

// Returns the text cut to a length that fits a message box, which does not scroll.
std::string BoxText(std::string text) {
    constexpr size_t kMaxBoxLength = 2000;
    if (text.size() <= kMaxBoxLength) return text;
    return text.erase(kMaxBoxLength) + Narrow(L" \u2026");
}

std::string NewSessionId() {
    const std::string ticks = FormatString("%d", static_cast<int>(GetTickCount()));
    char digest[33] = "";
    MD5Driver::MD5HexDigest(digest, sizeof digest, ticks.c_str(), ticks.size());
    return digest;
}

// Runs one step of reading the result. Prints an XML error in the parser's words and returns -2; reports any other
// exception and returns -1.
template <class Step>
int ReadResultStep(const char* message, int line, const Step& step) {
    return ReportOnThrow({message, kSource, line, kGetResults}, -1, [&] {
        try {
            return step();
        } catch (const ticpp::Exception& exception) {
            PrintCommandLine("%s: Can't parse xml data %s.\n", kDisplayName, exception.m_details.c_str());
            return -2;
        }
    });
}

// Shows the server's error and warning. Returns 0 when there is neither or the user continues after the warning.
int ShowServerMessages(const ticpp::Element& resultRoot) {
    int result = 0;
    const std::string error = ChildText(resultRoot, "error");
    if (!error.empty()) {
        MessageBoxA(adsw_acadMainWnd(), BoxText(error).c_str(), kDisplayName, MB_OK | MB_ICONERROR);
        result = -6;
    }
    const std::string warning = ChildText(resultRoot, "warning");
    if (!warning.empty()) {
        const std::string question = BoxText(warning) + "\nContinue?";
        if (MessageBoxA(adsw_acadMainWnd(), question.c_str(), kDisplayName, MB_YESNO | MB_ICONWARNING) != IDYES)
            result = -5;
    }
    return result;
}

int QueueInsertCommand(const std::string& command) {
    return ReportOnThrow(kInstallation, -1, [&] {
        AcApDocManager* documents = acDocManager;
        AcApDocument* document = documents ? documents->curDocument() : nullptr;
        if (!document) return -1;
        // CMDECHO is restored before the queued command runs, which is after this command has returned.
        const SystemVariableGuard noEcho(L"CMDECHO", 0);
        const std::wstring text = Widen(command);
        return documents->sendStringToExecute(document, text.c_str(), true, false, false) == Acad::eOk ? 0 : -1;
    });
}

}  // namespace

// ---- Lifetime ------------------------------------------------------------------------------------------------------

KlConn::KlConn()
    : document_(new ticpp::Document("SorvikKlimora")),
      statistics_(3, L"sorvik-autocad-plugin", L"Tq7#pL2~vK9$wR4:xM8!") {
    // From now on every report goes to the debug log and none opens a message box.
    constexpr uint32_t kErrorLevel = RF_LOG | RF_FILELINE | RF_RESULT1;
    SetReportLevels(kErrorLevel, kErrorLevel, RF_LOG | RF_FILELINE | RF_FUNCTION, RF_LOG);
    kbsetwarningmode(0);
    // Without a data folder the run uses a temporary one.
    char folder[MAX_PATH] = "";
    if (GetModuleFolder(kModuleFileName, folder, sizeof folder) == 0)
        std::snprintf(dataFolder_, sizeof dataFolder_, "%s/Sorvik", folder);
}

KlConn::~KlConn() {
    KlConn::Shutdown();
}

int KlConn::Initialize() {
    if (const int result = Connect(); result < 0) {
        PrintCommandLine(kNotLoaded, kDisplayName);
        return result;
    }
    const ReportSite site = {"Failed to initialize application. Klimora is not loaded.", kSource, 175,
                             "KlConn::Initialize"};
    return ReportOnThrow(site, -1, [&] {
        SetTrace(true, true, false);
        if (!CheckKlimoraProject(kRequiredServerVersion)) {
            PrintCommandLine(kNotLoaded, kDisplayName);
            return -1;
        }
        oleInitialized_ = SUCCEEDED(OleInitialize(nullptr));
        if (sessionId_.empty()) sessionId_ = NewSessionId();
        CreateWorkingFolder();
        if (!document_->FirstChildElement(false)) document_->InsertEndChild(ticpp::Element("SorvikKlimora"));
        currentDevice_ = nullptr;
        return 0;
    });
}

void KlConn::CreateWorkingFolder() {
    if (FileExists(dataFolder_)) {
        CopyTruncated(workingFolder_, sizeof workingFolder_, dataFolder_);
        return;
    }
    char temporaryPath[MAX_PATH] = "";
    char unique[MAX_PATH] = "";
    const DWORD length = GetTempPathA(MAX_PATH, temporaryPath);
    if (length >= MAX_PATH) throw "The temporary folder's path is too long.";
    if (length == 0 || GetTempFileNameA(temporaryPath, "Sorvik", 0, unique) == 0)
        throw "Can't get a name for the temporary folder.";
    DeleteFileA(unique);
    if (!CreateDirectoryA(unique, nullptr)) throw std::string("Can't create temporary folder ") + unique;
    CopyTruncated(workingFolder_, sizeof workingFolder_, unique);
}

void KlConn::Shutdown() {
    configurator_.reset();
    // Balance OleInitialize only if it succeeded; AutoCAD uses OLE too.
    if (oleInitialized_) OleUninitialize();
    oleInitialized_ = false;
    Disconnect();
    ReportOnThrow({"Failed to delete the working folder.", kSource, 204, kShutdown}, [&] {
        if (*workingFolder_ && std::strcmp(workingFolder_, dataFolder_) != 0) DeleteDirectoryTree(workingFolder_);
    });
    *workingFolder_ = '\0';
    currentDevice_ = nullptr;
    if (std::exchange(statisticsClosed_, true)) return;
    ReportOnThrow({"Failed to close the statistics.", kSource, 204, kShutdown}, [&] { statistics_.CloseStatistics(); });
}

// ---- Result of the configurator ------------------------------------------------------------------------------------

bool KlConn::UsesLocalData(const std::string& resultFile) const {
    return std::strcmp(workingFolder_, dataFolder_) == 0 && FileExists(resultFile);
}

int KlConn::FetchResult(const char* address, const std::string& resultFile) {
    if (UsesLocalData(resultFile)) {
        PrintCommandLine("%s: Local data used.\n", kDisplayName);
        return 0;
    }
    if (!address) return 0;
    return DeleteAndDownload(address, resultFile.c_str()) < 0 ? -1 : 0;
}

int KlConn::GetResultsFromConfigurator(const char* address) {
    auto result = std::make_unique<ticpp::Document>();
    const int code = ReadResultStep("Failed to get results from webserver.", 359, [&] {
        const std::string resultFile = FilePath(kResultFile);
        if (FetchResult(address, resultFile) < 0) return -1;
        result->Parse(ReadXmlFile(resultFile), resultFile);
        return ShowServerMessages(*result->FirstChildElement());
    });
    if (code < 0) return code;
    return ReadResultStep("Failed to get results from configurator.", 398,
                          [&] { return UseResult(std::move(result)); });
}

int KlConn::UseResult(std::unique_ptr<ticpp::Document> result) {
    document_ = std::move(result);
    currentDevice_ = Root()->FirstChildElement("device", false);
    if (currentDevice_) return 0;
    PrintCommandLine("\n%s: Can not find product data in output.xml", kDisplayName);
    return -1;
}

// ---- Installation --------------------------------------------------------------------------------------------------

int KlConn::InstallSilencer() {
    if (!currentDevice_) return -1;
    int result = -1;
    // An exception after queueing leaves the result at 0: the statistics do not undo an insertion.
    ReportOnThrow(kInstallation, [&] {
        const std::string className = currentDevice_->GetAttribute("KPDClassName", false);
        if (className != kSilencerClass) {
            PrintCommandLine("\n%s: Unsupported device class '%s'\n", kDisplayName, className.c_str());
            return;
        }
        const std::string productFamilyKey = currentDevice_->GetAttribute("ProductFamilyKey");
        const std::string userCode = currentDevice_->GetAttribute("UserCode");
        const std::string command = FormatString("KLIMSILX\n%s\n%s\n", productFamilyKey.c_str(), userCode.c_str());
        if (!MayInstall(productFamilyKey, userCode, command)) return;
        if (AddDeviceToKlimoraProject({className, userCode, productFamilyKey, FilePath(kDatabaseFile)}) < 0) {
            throw "Can not add device to Klimora project. Product " + productFamilyKey +
                " is not found in the selected database.";
        }
        result = QueueInsertCommand(command);
        if (result < 0) {
            PrintCommandLine(
                "\n%s: Product %s is in the project, but was not inserted. Type KLIMSILX, the product and "
                "its user code %s, or run %s again and replace it.\n",
                kDisplayName, productFamilyKey.c_str(), userCode.c_str(), kSilencerCommand);
        }
        RecordInsertion(className, productFamilyKey);
    });
    return result;
}

// Prints the reason for a refusal.
bool KlConn::MayInstall(const std::string& productFamilyKey, const std::string& userCode, const std::string& command) {
    if (!IsCommandLineText(productFamilyKey) || !IsCommandLineText(userCode) || command.size() > kMaxCommandLength) {
        PrintCommandLine("\n%s: Product not added: its key and user code do not make one command of Klimora's.\n",
                         kDisplayName);
        return false;
    }
    if (!IsUserCodeAccepted(userCode)) {
        PrintCommandLine("\n%s: Product not added: its user code '%s' was not confirmed, and is in use or too long.\n",
                         kDisplayName, userCode.c_str());
        return false;
    }
    return true;
}

// The user confirms a code for the first device of the result, but the last one is installed.
bool KlConn::IsUserCodeAccepted(const std::string& userCode) {
    const ticpp::Element* const confirmed = Root()->FirstChildElement("device");
    if (confirmed == currentDevice_) return true;
    if (userCode.size() > kMaxUserCodeLength) return false;
    return userCode == confirmed->GetAttribute("UserCode", false) || !IsUserCodeInUse(kSilencerClass, userCode);
}

void KlConn::RecordInsertion(const std::string& className, const std::string& productFamilyKey) {
    constexpr size_t kMaxVersionLength = 49;
    PluginStat record;
    record.pluginName = kDisplayName;
    record.pluginVersion = ModuleFileVersion(kModuleFileName).substr(0, kMaxVersionLength);
    record.vendorName = "Sorvik";
    record.vendorId = "4b7e20c9-91d3-4a56-8e0f-6c2d95a7b318";
    record.productLineName = "Sorvik";
    record.productLineKey = "3f9a1c07e2d84b6a95c0e7d2a1b8f460";
    record.product = productFamilyKey;
    record.productFamily = productFamilyKey;
    record.cadPlatform = "AutoCAD";
    AcDbHostApplicationServices* host = acdbHostApplicationServices();
    const ACHAR* product = host ? host->product() : nullptr;
    record.cadPlatformVersion = product ? Narrow(product) : std::string();
    record.discipline = "Ventilation";
    record.deviceClass = className;
    record.action = "Insert";
    statistics_.AddInsertStatistics(L"KLIMORAPLUGIN_INSERT_PRODUCT", &record);
    statistics_.FlushStatistics();
}
