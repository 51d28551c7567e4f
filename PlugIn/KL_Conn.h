// One run of the command SorvSIL: the connection to Klimora, the session document, the working folder, the configurator
// process and the usage statistics. It lives on the command handler's stack; the destructor terminates a running
// configurator, leaves COM, deletes a temporary working folder and closes the statistics. Results are 0 or negative;
// failures are printed on the command line or shown in a message box where they happen. AutoCAD's main thread only.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "KlimoraPluginsStatisticsWrapper.h"
#include "ticpp.h"

#include "Lib/Handles.h"
#include "Util/KLComUtils.h"

inline void TerminateAndClose(HANDLE process) noexcept {
    TerminateProcess(process, static_cast<UINT>(-1));
    CloseHandle(process);
}
// A program that must not outlive its owner. Release it once it has ended by itself.
using RunningProgram = Owner<HANDLE, TerminateAndClose>;

inline constexpr size_t kMaxUserCodeLength = 10;

// Product database in the working folder: the record builder writes it, Klimora reads it.
inline constexpr char kDatabaseFile[] = "output.kpd";

// Class of duct silencers in Kbase and Klimora.
inline constexpr char kSilencerClass[] = "dSilencerType";

class KlConn : public KLComUtils {
 public:
    KlConn();
    ~KlConn() override;

    // Connects, checks server and project, and creates session identifier, working folder and document root.
    virtual int Initialize();
    virtual void Shutdown();

    // ---- Duct selection (KL_Conn_DuctSelection.cpp) ----------------------------------------------------------------
    // Lets the user pick a duct and writes its size (mm) and design airflow (l/s) into the document's `duct` element.
    // Returns -1 when nothing was picked, or the failed query's negative result, after printing it.
    int SelectDuct();

    // ---- Configurator (KL_Conn_Configurator.cpp) -------------------------------------------------------------------
    // Returns the configurator's address with the values of the session document's duct. Throws when there is no duct.
    std::string ConfiguratorAddress() const;
    std::string ResultAddress() const;
    // Runs a program of the module's folder as a modal configurator. Returns 0 when it exported a product, else -1.
    // Throws "ARX is not loaded." when the module's folder is unknown.
    int LaunchConfigurator(const char* program, const char* commandName, const char* address, const char* title);

    // ---- Result (KL_Conn.cpp) ---------------------------------------------------------------------------------------
    // Downloads the result, or with a null address uses the file that is there, and reads it; its root replaces the
    // document's, its `device` becomes current. Returns -1 without a file or device, -2 when the file is not XML, -5
    // when the user declined after a warning, -6 on an error from the server.
    int GetResultsFromConfigurator(const char* address);

    // ---- Silencers of the project (KL_Conn_Project.cpp) -------------------------------------------------------------
    // Returns the first code of the form "SORV<number><suffix>" that no product of the class has.
    std::string ProposeUserCode(const std::string& className, const std::string& suffix);
    // Returns true also when the codes of the class cannot be read.
    bool IsUserCodeInUse(const std::string& className, const std::string& code);
    int ExportExistingDevices(ticpp::Element* parent, const char* commandName);
    int ExportDuctworkSystems(ticpp::Element* parent);

    // ---- Product record (KL_Conn_DevicesData.cpp) -------------------------------------------------------------------
    // Downloads the database files, builds a record for every device of the document and writes the record's keys to
    // the current device. Returns 0, or -1 after reporting the failure.
    int AddDeviceFromXMLToDatabase(const std::string& commandName);

    // ---- Installation (KL_Conn.cpp) ---------------------------------------------------------------------------------
    // Adds the current device to the project, queues Klimora's insert command and records the usage event. Returns 0
    // when the command was queued, else -1. Refuses, before anything is added, a key or user code that is not one line
    // of that command, and a user code of a further device that was not confirmed in the dialog and is not free.
    int InstallSilencer();

    // Throws before Initialize.
    ticpp::Element* Root() { return document_->FirstChildElement(); }
    // Null until a result has been read.
    ticpp::Element* CurrentDevice() const { return currentDevice_; }
    const std::string& SessionId() const { return sessionId_; }
    std::string WorkingFolder() const { return workingFolder_; }

 private:
    void CreateWorkingFolder();
    std::string FilePath(const char* name) const { return std::string(workingFolder_) + "/" + name; }
    bool UsesLocalData(const std::string& resultFile) const;
    int FetchResult(const char* address, const std::string& resultFile);
    int UseResult(std::unique_ptr<ticpp::Document> result);
    bool IsUserCodeAccepted(const std::string& userCode);
    bool MayInstall(const std::string& productFamilyKey, const std::string& userCode, const std::string& command);
    void RecordInsertion(const std::string& className, const std::string& productFamilyKey);

    int StoreDevices(const std::string& classSymbol, std::string& productKey);
    void WriteKeys(const std::string& classSymbol, const std::string& productKey);

    std::unique_ptr<ticpp::Document> document_;
    ticpp::Element* currentDevice_ = nullptr;
    long serial_ = 20100801;  // part of the session's data; nothing in this module reads it
    char workingFolder_[300] = "";
    std::string sessionId_;
    RunningProgram configurator_;
    char dataFolder_[300] = "";
    KlimoraPluginsStatisticsWrapper statistics_;
    bool oleInitialized_ = false;
    bool statisticsClosed_ = false;
};
