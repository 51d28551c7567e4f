// None of it ever fails in AutoCAD, so the failure plan has no effect here; only the working database is null when no
// drawing is open.
#include "Application.h"

#include "AcRxClass.h"
#include "AcTransactionManager.h"
#include "ArxCall.h"
#include "Session.h"

using bench::ArxCall;
using bench::TheSession;

ACRX_DEFINE_MEMBERS(AcDbHostApplicationServices, AcRxObject)
AcDbHostApplicationServices::AcDbHostApplicationServices() : mpWorkingDatabase(nullptr) {}
AcDbHostApplicationServices::~AcDbHostApplicationServices() = default;

const ACHAR* AcDbHostApplicationServices::product() {
    ArxCall call("AcDbHostApplicationServices::product", "");
    return TheSession().product.c_str();
}

int AcDbHostApplicationServices::releaseMajorVersion() {
    ArxCall call("AcDbHostApplicationServices::releaseMajorVersion", "");
    return call.done(TheSession().releaseMajor);
}

int AcDbHostApplicationServices::releaseMinorVersion() {
    ArxCall call("AcDbHostApplicationServices::releaseMinorVersion", "");
    return call.done(TheSession().releaseMinor);
}

AcDbTransactionManager* AcDbHostApplicationServices::workingTransactionManager() {
    ArxCall call("AcDbHostApplicationServices::workingTransactionManager", "");
    return call.fails() || TheSession().current == nullptr ? nullptr : bench::TheTransactionManager();
}

namespace bench {
namespace {

class HostServices : public AcDbHostApplicationServices {
 public:
    void use(AcDbDatabase* database) { mpWorkingDatabase = database; }
};

HostServices& TheHostServices() {
    static HostServices services;
    return services;
}

}  // namespace

void SetWorkingDatabase(AcDbDatabase* database) {
    TheHostServices().use(database);
}

}  // namespace bench

AcDbHostApplicationServices* acdbHostApplicationServices() {
    ArxCall call("acdbHostApplicationServices", "");
    return &bench::TheHostServices();
}
