#include "Util/ArxHandles.h"

#include <acedads.h>
#include <dbapserv.h>
#include <dbhandle.h>

#include "Lib/Text.h"

AcDbDatabase* WorkingDatabase() {
    const AcDbHostApplicationServices* services = acdbHostApplicationServices();
    return services ? services->workingDatabase() : nullptr;
}

AcDbObjectId ObjectIdOf(const std::string& handle, const char* missing) {
    AcDbDatabase* database = WorkingDatabase();
    if (!database) throw "Can't get working database.";
    AcDbObjectId id;
    const AcDbHandle number(Widen(handle).c_str());
    if (database->getAcDbObjectId(id, false, number) != Acad::eOk) throw missing;
    return id;
}

SelectionSet::~SelectionSet() {
    if (filled_) acedSSFree(name_);
}

ScopedTransaction::ScopedTransaction(AcDbTransactionManager* manager) : manager_(manager) {
    started_ = manager_ && manager_->startTransaction();
}

ScopedTransaction::~ScopedTransaction() {
    if (!started_) return;
    if (abortOnEnd_) {
        manager_->abortTransaction();
    } else {
        manager_->endTransaction();
    }
}
