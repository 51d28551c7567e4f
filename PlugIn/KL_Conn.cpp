#include <windows.h>

#include "KL_Conn.h"

#include <io.h>
#include <ole2.h>

#include <cstring>

#include "acdocman.h"
#include "acedads.h"
#include "dbapserv.h"

#include "kbase.h"

#include "Lib/CommandLine.h"
#include "Lib/DisplayName.h"
#include "Lib/ExceptionReport.h"
#include "Lib/FormatText.h"
#include "Lib/Md5Driver.h"
#include "Lib/Text.h"
#include "ModuleLoader.h"
#include "ModuleNames.h"
#include "PluginStat.h"
#include "Util/ArxHandles.h"
#include "Util/Download.h"
#include "Util/FileTree.h"
#include "Util/ModuleVersion.h"

namespace {

constexpr char kSource[] = "PlugIn/KL_Conn";
constexpr int kRequiredServerVersion = 20091200;
constexpr char kResultFile[] = "output.xml";
constexpr char kNotLoaded[] = "\n%s: Can not start application, Klimora is not loaded.\n";

bool FileExists(const std::string& path) {
    return _access(path.c_str(), 0) == 0;
}

std::string ChildText(const ticpp::Element* parent, const char* name) {
    const ticpp::Element* child = parent->FirstChildElement(name, false);
    return child ? child->GetText(false) : std::string();
}

template <size_t size>
void Store(char (&buffer)[size], const std::string& text) {
    std::strncpy(buffer, text.c_str(), size - 1);
    buffer[size - 1] = '\0';
}

}  // namespace

// ---- Life
// ------------------------------------------------------------------------------------------------------------

KlConn::KlConn() : document_("SorvikKlimora"), statistics_(3, L"sorvik-autocad-plugin", L"Tq7#pL2~vK9$wR4:xM8!") {
    kbsetwarningmode(0);
    char folder[MAX_PATH] = "";
    GetModuleFolder(kModuleFileName, folder, sizeof folder);
    Store(dataFolder_, std::string(folder) + "/Sorvik");
}

KlConn::~KlConn() {
    KlConn::Shutdown();
}

int KlConn::Initialize() {
    int result = Connect();
    if (result < 0) {
        PrintCommandLine(kNotLoaded, kDisplayName);
        return result;
    }
    result = -1;
    try {
        SetTrace(true, true, false);
        if (!CheckKlimoraProject(kRequiredServerVersion)) {
            PrintCommandLine(kNotLoaded, kDisplayName);
            return -1;
        }
        oleInitialized_ = SUCCEEDED(OleInitialize(nullptr));
        if (sessionId_.empty()) MakeSessionId();
        MakeWorkingFolder();
        if (!document_.FirstChildElement(false)) document_.InsertEndChild(ticpp::Element("SorvikKlimora"));
        currentDevice_ = nullptr;
        result = 0;
    } catch (...) {
        ReportException("Failed to initialize application. Klimora is not loaded.", kSource, 175, "KlConn::Initialize");
    }
    return result;
}

void KlConn::MakeSessionId() {
    const std::string ticks = FormatString("%d", static_cast<int>(GetTickCount()));
    char digest[33] = "";
    MD5Driver::MD5HexDigest(digest, sizeof digest, ticks.c_str(), ticks.size());
    sessionId_ = digest;
}

void KlConn::MakeWorkingFolder() {
    if (FileExists(dataFolder_)) {
        Store(workingFolder_, dataFolder_);
        return;
    }
    char temporaryPath[MAX_PATH] = "";
    char unique[MAX_PATH] = "";
    if (GetTempPathA(MAX_PATH, temporaryPath) == 0 || GetTempFileNameA(temporaryPath, "Sorvik", 0, unique) == 0)
        throw "Can't get a name for the temporary folder.";
    DeleteFileA(unique);
    if (!CreateDirectoryA(unique, nullptr)) throw std::string("Can't create temporary folder ") + unique;
    Store(workingFolder_, unique);
}

void KlConn::Shutdown() {
    if (configurator_) {
        TerminateProcess(configurator_, static_cast<UINT>(-1));
        CloseHandle(configurator_);
        configurator_ = nullptr;
    }
    // A session that never came to initialise OLE must not end AutoCAD's own use of it.
    if (oleInitialized_) OleUninitialize();
    oleInitialized_ = false;
    Disconnect();
    if (*workingFolder_ && *dataFolder_ && std::strcmp(workingFolder_, dataFolder_) != 0)
        DeleteDirectoryTree(workingFolder_);
    *workingFolder_ = '\0';
    currentDevice_ = nullptr;
    if (!statisticsClosed_) statistics_.CloseStatistics();
    statisticsClosed_ = true;
}

// ---- Result of the configurator
// --------------------------------------------------------------------------------------

bool KlConn::UsesLocalData(const std::string& resultFile) const {
    return std::strcmp(workingFolder_, dataFolder_) == 0 && FileExists(resultFile);
}

int KlConn::FetchResult(const char* address, const std::string& resultFile) {
    if (UsesLocalData(resultFile)) {
        PrintCommandLine("%s: Local data used.\n", kDisplayName);
        return 0;
    }
    if (!address) return 0;
    return DownloadAfresh(address, resultFile.c_str()) < 0 ? -1 : 0;
}

int KlConn::GetResultsFromConfigurator(const char* address) {
    int result = -1;
    ticpp::Document answer;
    ticpp::Element* root = nullptr;
    std::string error, warning;
    try {
        const std::string resultFile = FilePath(kResultFile);
        if (FetchResult(address, resultFile) < 0) return -1;
        answer.LoadFile(resultFile);
        root = answer.FirstChildElement();
        error = ChildText(root, "error");
        warning = ChildText(root, "warning");
        result = 0;
    } catch (const ticpp::Exception& exception) {
        PrintCommandLine("%s: Can't parse xml data %s.\n", kDisplayName, exception.m_details.c_str());
        return -2;
    } catch (...) {
        ReportException("Failed to get results from webserver.", kSource, 359, "KlConn::GetResultsFromConfigurator");
        return result;
    }
    if (!error.empty()) {
        MessageBoxA(adsw_acadMainWnd(), error.c_str(), kDisplayName, MB_OK | MB_ICONERROR);
        result = -6;
    }
    if (!warning.empty()) {
        const std::string question = warning + "\nContinue?";
        if (MessageBoxA(adsw_acadMainWnd(), question.c_str(), kDisplayName, MB_YESNO | MB_ICONWARNING) != IDYES)
            result = -5;
    }
    return result == 0 ? TakeDevice(root) : result;
}

int KlConn::TakeDevice(ticpp::Element* resultRoot) {
    try {
        currentDevice_ = nullptr;
        ticpp::Element* root = document_.ReplaceChild(document_.FirstChildElement(), *resultRoot);
        currentDevice_ = root->FirstChildElement("device", false);
        if (currentDevice_) return 0;
        PrintCommandLine("\n%s: Can not find product data in output.xml", kDisplayName);
        return -1;
    } catch (const ticpp::Exception& exception) {
        PrintCommandLine("%s: Can't parse xml data %s.\n", kDisplayName, exception.m_details.c_str());
        return -2;
    } catch (...) {
        ReportException("Failed to get results from configurator.", kSource, 398, "KlConn::GetResultsFromConfigurator");
        return -1;
    }
}

// ---- Installation
// ----------------------------------------------------------------------------------------------------

int KlConn::InstallSilencer() {
    int result = -1;
    try {
        if (!currentDevice_) return -1;
        const std::string className = currentDevice_->GetAttribute("KPDClassName", false);
        if (className != kSilencerClass) {
            PrintCommandLine("\n%s: Unsupported device class '%s'\n", kDisplayName, className.c_str());
            return -1;
        }
        const std::string productFamilyKey = currentDevice_->GetAttribute("ProductFamilyKey");
        const std::string userCode = currentDevice_->GetAttribute("UserCode");
        if (AddDeviceToKlimoraProject(FilePath(kDatabaseFile).c_str(), nullptr, 0, className, userCode,
                                      productFamilyKey, nullptr, nullptr) < 0) {
            throw "Can not add device to Klimora project. Product " + productFamilyKey +
                " is not found in the selected database.";
        }
        result = QueueInsertCommand();
        RecordInsertion(className, productFamilyKey);
    } catch (...) {
        result = -1;
        ReportException("InstallSilencer", kSource, 573, "KlConn::InstallSilencer");
    }
    return result;
}

int KlConn::QueueInsertCommand() {
    constexpr size_t kCommandLimit = 1023;
    const std::string command =
        FormatString("KLIMSILX\n%s\n%s\n", currentDevice_->GetAttribute("ProductFamilyKey").c_str(),
                     currentDevice_->GetAttribute("UserCode").c_str());
    AcApDocManager* documents = acDocManager;
    AcApDocument* document = documents ? documents->curDocument() : nullptr;
    if (!document) return -1;
    // The echo is back before the queued command runs, which is after this command has returned.
    const SystemVariableGuard noEcho(L"CMDECHO", 0);
    const std::wstring text = Widen(command.substr(0, kCommandLimit));
    return documents->sendStringToExecute(document, text.c_str(), true, false, false) == Acad::eOk ? 0 : -1;
}

void KlConn::RecordInsertion(const std::string& className, const std::string& productFamilyKey) {
    constexpr size_t kVersionLimit = 49;
    PluginStat record;
    record.pluginName = kDisplayName;
    record.pluginVersion = ModuleFileVersion(kModuleFileName).substr(0, kVersionLimit);
    record.vendorName = "Sorvik";
    record.vendorId = "4b7e20c9-91d3-4a56-8e0f-6c2d95a7b318";
    record.productLineName = "Sorvik";
    record.productLineKey = "3f9a1c07e2d84b6a95c0e7d2a1b8f460";
    record.product = productFamilyKey;
    record.productFamily = productFamilyKey;
    record.cadPlatform = "AutoCAD";
    const ACHAR* product = acdbHostApplicationServices()->product();
    record.cadPlatformVersion = product ? Narrow(product) : std::string();
    record.discipline = "Ventilation";
    record.deviceClass = className;
    record.action = "Insert";
    statistics_.AddInsertStatistics(L"KLIMORAPLUGIN_INSERT_PRODUCT", &record);
    statistics_.FlushStatistics();
}
