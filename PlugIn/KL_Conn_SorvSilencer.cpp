#include "KL_Conn_SorvSilencer.h"

#include <windows.h>

#include "acdocman.h"
#include "acedads.h"
#include "actrans.h"

#include "ConfiguratorDialog.h"
#include "KL_Conn.h"
#include "Lib/CommandLine.h"
#include "Lib/ExceptionReport.h"
#include "Lib/ModuleIdentity.h"
#include "ProductTitle.h"
#include "Util/ArxHandles.h"
#include "Util/WaitCursor.h"

namespace {

constexpr char kSource[] = "PlugIn/KL_Conn_SorvSilencer";
constexpr char kConfiguratorProgram[] = "CAD_Connection_UI_x64.exe";

AcDbTransactionManager* CurrentTransactionManager() {
    AcApDocManager* documents = acDocManager;
    AcApDocument* document = documents ? documents->curDocument() : nullptr;
    return document ? document->transactionManager() : nullptr;
}

bool TakeResult(KlConn& session) {
    if (session.GetResultsFromConfigurator(session.ResultAddress().c_str()) >= 0) return true;
    MessageBoxA(adsw_acadMainWnd(), "No product exported.\n", kDisplayName, MB_OK | MB_ICONERROR);
    return false;
}

bool ChooseSilencer(KlConn& session) {
    if (session.Initialize() < 0) return false;
    if (session.SelectDuct() < 0) return false;
    if (session.ExportExistingDevices(session.Root(), kSilencerCommand) < 0) return false;
    const std::string address = session.ConfiguratorAddress();
    if (session.LaunchConfigurator(kConfiguratorProgram, kSilencerCommand, address.c_str(), ProductTitle().c_str()) < 0)
        return false;
    if (!TakeResult(session)) return false;
    return ShowUserCodeDialog(adsw_acadMainWnd(), session) == 0;
}

}  // namespace

void SorvSilencer() noexcept {
    ReportOnThrow({"SorvSilencer", kSource, 246, "SorvSilencer"}, [] {
        ScopedTransaction transaction(CurrentTransactionManager());
        if (!transaction.started()) {
            PrintCommandLine("\n%s: Can not start a transaction in the drawing.\n", kDisplayName);
            return;
        }
        KlConn session;
        if (!ChooseSilencer(session)) return;
        const KLUtils::WaitCursor waitCursor;  // two downloads, the record and Klimora's project take time
        if (session.AddDeviceFromXMLToDatabase(kSilencerCommand) < 0) return;
        if (session.InstallSilencer() < 0) return;
        transaction.SetAbortOnEnd(false);
    });
}
