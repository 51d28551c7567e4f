#include "AcDbDatabase.h"

#include "AcDbObject.h"
#include "AcDbObjectId.h"
#include "AcRxClass.h"
#include "ArxCall.h"
#include "BenchAutoCAD.h"
#include "Texts.h"
#include "dbsymtb.h"

using bench::ArxCall;
using bench::DrawingDatabase;

ACRX_DEFINE_MEMBERS(AcDbDatabase, AcRxObject)
AcDbDatabase::AcDbDatabase() = default;
AcDbDatabase::~AcDbDatabase() = default;

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) {
    ArxCall call("AcDbDatabase::getBlockTable", mode == AcDb::kForWrite ? "write" : "read");
    pTable = nullptr;
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    AcDbObject* object = nullptr;
    const AcDbObjectId id = bench::IdOf(static_cast<DrawingDatabase*>(this), bench::Drawing::kBlockTable);
    const Acad::ErrorStatus status = AcDbObjectOpening::Open(object, id, mode, false, AcDbBlockTable::desc());
    pTable = static_cast<AcDbBlockTable*>(object);
    return call.done(status);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                                Adesk::UInt32) {
    ArxCall call("AcDbDatabase::getAcDbObjectId", bench::HandleText(objHandle));
    retId.setNull();
    if (call.fails()) return call.failed(Acad::eUnknownHandle);
    if (objHandle.isNull()) return call.done(Acad::eNullHandle);
    DrawingDatabase* database = static_cast<DrawingDatabase*>(this);
    if (database->drawing.find(objHandle) == nullptr && !createIfNotFound) return call.done(Acad::eUnknownHandle);
    retId = bench::IdOf(database, objHandle);
    return call.done(Acad::eOk);
}

AcGeVector3d AcDbDatabase::ucsxdir() const {
    ArxCall call("AcDbDatabase::ucsxdir", "");
    return call.fails() ? AcGeVector3d() : static_cast<const DrawingDatabase*>(this)->drawing.ucs.xAxis;
}

bool AcDbDatabase::tilemode() const {
    ArxCall call("AcDbDatabase::tilemode", "");
    const bool on = !call.fails() && bench::SystemVariable("TILEMODE") == "1";
    call.result(on);
    return on;
}
