// None of these calls fails in AutoCAD, so fault injection has no effect here. The working database is null when no
// drawing is open.
#include "Application.h"

#include "AcRxClass.h"
#include "ArxCall.h"
#include "ProcessState.h"

using bench::ArxCall;
using bench::TheProcess;

ACRX_DEFINE_MEMBERS(AcDbHostApplicationServices, AcRxObject)
AcDbHostApplicationServices::AcDbHostApplicationServices() : mpWorkingDatabase(nullptr) {}
AcDbHostApplicationServices::~AcDbHostApplicationServices() = default;

const ACHAR* AcDbHostApplicationServices::product() {
    ArxCall call("AcDbHostApplicationServices::product", "");
    return TheProcess().product.c_str();
}

int AcDbHostApplicationServices::releaseMajorVersion() {
    ArxCall call("AcDbHostApplicationServices::releaseMajorVersion", "");
    return call.done(TheProcess().releaseMajor);
}

int AcDbHostApplicationServices::releaseMinorVersion() {
    ArxCall call("AcDbHostApplicationServices::releaseMinorVersion", "");
    return call.done(TheProcess().releaseMinor);
}

AcDbTransactionManager* AcDbHostApplicationServices::workingTransactionManager() {
    ArxCall call("AcDbHostApplicationServices::workingTransactionManager", "");
    return call.fails() || TheProcess().current == nullptr ? nullptr : bench::TheTransactionManager();
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
