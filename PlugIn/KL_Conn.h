// One run of the command SorvSIL: the connection to Klimora, the session document, the working folder, the configurator
// process and the usage statistics. Made on the command handler's stack and gone with it; its end terminates a running
// configurator, leaves COM, deletes a temporary working folder and closes the statistics. Results are 0 or negative;
// failures are told on the command line or in a message box where they happen. AutoCAD's main thread only.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "KlimoraPluginsStatisticsWrapper.h"
#include "ticpp.h"

#include "Lib/Handles.h"
#include "Util/KLComUtils.h"

inline void TerminateAndClose(HANDLE process) noexcept {
    TerminateProcess(process, static_cast<UINT>(-1));
    CloseHandle(process);
}
// A program that runs no longer than its owner lives. Release it once it has ended by itself.
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

    // Connects, checks server and project, and makes session identifier, working folder and document root.
    virtual int Initialize();
    virtual void Shutdown();

    // ---- Duct selection (KL_Conn_DuctSelection.cpp) ----------------------------------------------------------------
    // Lets the user pick a duct and writes its size (mm) and design airflow (l/s) into the document's `duct` element.
    // -1 when nothing was picked; the negative answer of a query that failed, which was told.
    int SelectDuct();

    // ---- Configurator (ConfiguratorProcess.cpp) --------------------------------------------------------------------
    // Address of the configurator, preset with the session document's duct. Throws when there is no duct.
    std::string ConfiguratorAddress() const;
    std::string ResultAddress() const;
    // Runs a program of the module's folder as a modal configurator: 0 when it exported a product, else -1.
    int LaunchConfigurator(const char* program, const char* commandName, const char* address, const char* title);

    // ---- Result (KL_Conn.cpp) ---------------------------------------------------------------------------------------
    // Fetches (null address: takes what is there) and reads the result; its root replaces the document's, its `device`
    // becomes current. -1 no file or no device, -2 not XML, -5 declined after a warning, -6 error from the server.
    int GetResultsFromConfigurator(const char* address);

    // ---- Silencers of the project (KL_Conn_Devices.cpp) -------------------------------------------------------------
    std::string ProposeUserCode(const std::string& className, const std::string& suffix);
    // True also when Klimora does not give the codes of the class.
    bool IsUserCodeInUse(const std::string& className, const std::string& code);
    int ExportExistingDevices(ticpp::Element* parent, const char* commandName);
    int ExportDuctworkSystems(ticpp::Element* parent);

    // ---- Product record (KL_Conn_DevicesData.cpp) -------------------------------------------------------------------
    // Downloads the database files, builds a record for every device of the document and writes the record's keys onto
    // the current device.
    int AddDeviceFromXMLToDatabase(const std::string& commandName);

    // ---- Installation (KL_Conn.cpp) ---------------------------------------------------------------------------------
    // Adds the current device to the project, queues Klimora's insert command and records the usage event. 0 when the
    // command was queued. A key or user code that would not be one line of it is refused first, and so is a user code
    // of a further device that was neither confirmed in the dialog nor is free.
    int InstallSilencer();

    // Throws before Initialize.
    ticpp::Element* Root() { return document_->FirstChildElement(); }
    // Null until a result was read.
    ticpp::Element* CurrentDevice() const { return currentDevice_; }
    const std::string& SessionId() const { return sessionId_; }
    std::string WorkingFolder() const { return workingFolder_; }

 private:
    void MakeSessionId();
    void MakeWorkingFolder();
    std::string FilePath(const char* name) const { return std::string(workingFolder_) + "/" + name; }
    bool UsesLocalData(const std::string& resultFile) const;
    int FetchResult(const char* address, const std::string& resultFile);
    int TakeDevice(std::unique_ptr<ticpp::Document> answer);
    bool MayInstall(const std::string& className, const std::string& userCode);
    int QueueInsertCommand(const std::string& command);
    void RecordInsertion(const std::string& className, const std::string& productFamilyKey);

    int StoreDevices(const std::string& classSymbol, std::string& productKey);
    void WriteKeys(const std::string& classSymbol, const std::string& productKey);
    int WaitForConfigurator();
    bool ReadUserCodes(const std::string& className, const std::function<bool(const std::string&)>& take);
    int ExportRecords(ticpp::Element* parent, const char* listName, const char* elementName, const std::string& path,
                      const std::vector<std::string>& names);

    std::unique_ptr<ticpp::Document> document_;
    ticpp::Element* currentDevice_ = nullptr;
    long serial_ = 20100801;  // kept for those who look for it; nothing here reads it
    char workingFolder_[300] = "";
    std::string sessionId_;
    RunningProgram configurator_;
    char dataFolder_[300] = "";
    KlimoraPluginsStatisticsWrapper statistics_;
    bool oleInitialized_ = false;
    bool statisticsClosed_ = false;
};
