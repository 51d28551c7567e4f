// What the host says about itself. None of it ever fails in AutoCAD, so the failure plan has no effect here; only the
// working database is null when no drawing is open.
#include "HostCall.h"
#include "HostObjects.h"
#include "HostSession.h"
#include "HostTransactions.h"
#include "dbapserv.h"

using bench::HostCall;
using bench::TheSession;

AcDbHostApplicationServices::AcDbHostApplicationServices() : mpWorkingDatabase(nullptr) {}
AcDbHostApplicationServices::~AcDbHostApplicationServices() = default;

const ACHAR* AcDbHostApplicationServices::program() {
    HostCall call("AcDbHostApplicationServices::program", "");
    return L"acad";
}

const ACHAR* AcDbHostApplicationServices::product() {
    HostCall call("AcDbHostApplicationServices::product", "");
    return TheSession().product.c_str();
}

const ACHAR* AcDbHostApplicationServices::releaseMajorMinorString() {
    HostCall call("AcDbHostApplicationServices::releaseMajorMinorString", "");
    static std::wstring text;
    text = std::to_wstring(TheSession().releaseMajor) + L"." + std::to_wstring(TheSession().releaseMinor);
    return text.c_str();
}

int AcDbHostApplicationServices::releaseMajorVersion() {
    HostCall call("AcDbHostApplicationServices::releaseMajorVersion", "");
    return call.done(TheSession().releaseMajor);
}

int AcDbHostApplicationServices::releaseMinorVersion() {
    HostCall call("AcDbHostApplicationServices::releaseMinorVersion", "");
    return call.done(TheSession().releaseMinor);
}

AcDbTransactionManager* AcDbHostApplicationServices::workingTransactionManager() {
    HostCall call("AcDbHostApplicationServices::workingTransactionManager", "");
    return call.fails() || TheSession().current == nullptr ? nullptr : bench::TransactionManager();
}

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase* pDatabase) {
    mpWorkingDatabase = pDatabase;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    HostCall call("acdbHostApplicationServices", "");
    return &services;
}

namespace bench {

void OpenDatabase() {
    Session& session = TheSession();
    session.current = new AcDbImpDatabase(TransactionManager());
    Quiet quiet;
    acdbHostApplicationServices()->setWorkingDatabase(session.current->database());
}

// Kept: ids and pointers into the closed drawing must stay recognisable.
void CloseDatabase() {
    Session& session = TheSession();
    if (session.current == nullptr) return;
    session.current->open = false;
    session.current = nullptr;
    Quiet quiet;
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
}

}  // namespace bench
