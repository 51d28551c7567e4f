// AcDbDatabase, and the ids, handles and entity names that lead to its objects.
#include <set>

#include "HostObjects.h"
#include "HostSession.h"
#include "dbtrans.h"

using bench::Drawing;
using bench::Handle;
using bench::HostCall;

namespace {

std::set<const AcDbStub*>& KnownStubs() {
    static std::set<const AcDbStub*> stubs;
    return stubs;
}

}  // namespace

AcDbImpDatabase::AcDbImpDatabase(AcDbTransactionManager* manager) : transactions(manager), database_(new AcDbDatabase) {
    database_->mpImpDatabase = this;
}

AcDbObjectId AcDbImpDatabase::id(Handle handle) {
    if (handle == 0) return AcDbObjectId();
    std::unique_ptr<AcDbStub>& stub = stubs_[handle];
    if (stub == nullptr) {
        stub.reset(new AcDbStub{handle, this});
        KnownStubs().insert(stub.get());
    }
    return AcDbObjectId(stub.get());
}

const AcDbStub* AcDbImpDatabase::stub(AcDbObjectId id) {
    const AcDbStub* stub = static_cast<AcDbStub*>(id);
    return KnownStubs().count(stub) == 0 ? nullptr : stub;
}

AcDbDatabase::AcDbDatabase() : mpImpDatabase(nullptr) {}
AcDbDatabase::~AcDbDatabase() = default;

AcDbTransactionManager* AcDbDatabase::transactionManager() const {
    HostCall call("AcDbDatabase::transactionManager", "");
    return call.fails() ? nullptr : mpImpDatabase->transactions;
}

AcDbObjectId AcDbDatabase::blockTableId() const {
    HostCall call("AcDbDatabase::blockTableId", "");
    return call.fails() ? AcDbObjectId() : mpImpDatabase->id(Drawing::kBlockTable);
}

AcDbObjectId AcDbDatabase::currentSpaceId() const {
    HostCall call("AcDbDatabase::currentSpaceId", "");
    return call.fails() ? AcDbObjectId() : mpImpDatabase->id(Drawing::kModelSpace);
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode) {
    AcDbBlockTable* table = nullptr;
    const Acad::ErrorStatus status = getBlockTable(table, mode);
    pTable = table;
    return status;
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) {
    HostCall call("AcDbDatabase::getBlockTable", mode == AcDb::kForWrite ? "write" : "read");
    pTable = nullptr;
    if (call.fails()) return call.failed(Acad::eWasOpenForWrite);
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status =
        AcDbImpObject::Open(object, mpImpDatabase->id(Drawing::kBlockTable), mode, false, AcDbBlockTable::desc());
    pTable = static_cast<AcDbBlockTable*>(object);
    return call.done(status);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode) {
    return getBlockTable(pTable, mode);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                                Adesk::UInt32) {
    HostCall call("AcDbDatabase::getAcDbObjectId", bench::HandleText(objHandle));
    retId.setNull();
    if (call.fails()) return call.failed(Acad::eUnknownHandle);
    if (objHandle.isNull()) return call.done(Acad::eNullHandle);
    if (mpImpDatabase->drawing.find(objHandle) == nullptr && !createIfNotFound) return call.done(Acad::eUnknownHandle);
    retId = mpImpDatabase->id(objHandle);
    return call.done(Acad::eOk);
}

AcGePoint3d AcDbDatabase::ucsorg() const {
    HostCall call("AcDbDatabase::ucsorg", "");
    return call.fails() ? AcGePoint3d() : mpImpDatabase->drawing.ucs.origin;
}

AcGeVector3d AcDbDatabase::ucsxdir() const {
    HostCall call("AcDbDatabase::ucsxdir", "");
    return call.fails() ? AcGeVector3d() : mpImpDatabase->drawing.ucs.xAxis;
}

AcGeVector3d AcDbDatabase::ucsydir() const {
    HostCall call("AcDbDatabase::ucsydir", "");
    return call.fails() ? AcGeVector3d() : mpImpDatabase->drawing.ucs.yAxis;
}

bool AcDbDatabase::tilemode() const {
    HostCall call("AcDbDatabase::tilemode", "");
    const bool on = !call.fails() && bench::SystemVariable("TILEMODE") == "1";
    call.result(on);
    return on;
}

// ---- Ids ----

bool AcDbObjectId::isValid() const {
    const AcDbStub* stub = AcDbImpDatabase::stub(*this);
    return stub != nullptr && stub->database->open && stub->database->drawing.find(stub->handle) != nullptr;
}

bool AcDbObjectId::isErased() const {
    const AcDbStub* stub = AcDbImpDatabase::stub(*this);
    return isValid() && stub->database->drawing.find(stub->handle)->erased;
}

AcDbDatabase* AcDbObjectId::database() const {
    const AcDbStub* stub = AcDbImpDatabase::stub(*this);
    return stub == nullptr ? nullptr : stub->database->database();
}

AcRxClass* AcDbObjectId::objectClass() const {
    const AcDbStub* stub = AcDbImpDatabase::stub(*this);
    if (stub == nullptr || !isValid()) return nullptr;
    return AcRxImpClass::Get(stub->database->drawing.find(stub->handle)->className.c_str(), AcDbEntity::desc());
}

AcDbHandle AcDbObjectId::handle() const {
    const AcDbStub* stub = AcDbImpDatabase::stub(*this);
    return AcDbHandle(stub == nullptr ? Adesk::UInt64(0) : stub->handle);
}

// ---- Handles ----

AcDbHandle::AcDbHandle(const ACHAR* text) : AcDbHandle(Adesk::UInt64(bench::HandleFromText(text))) {}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* pBuf, size_t nBufLen) const {
    const std::wstring text = bench::Wide(bench::HandleText(*this));
    if (pBuf == nullptr || text.size() >= nBufLen) return false;
    text.copy(pBuf, text.size());
    pBuf[text.size()] = L'\0';
    return true;
}

// ---- Entity names ----

Acad::ErrorStatus acdbGetAdsName(ads_name& objName, AcDbObjectId objId) {
    HostCall call("acdbGetAdsName", bench::HandleText(objId.handle()));
    objName[0] = objName[1] = 0;
    if (call.fails()) return call.failed(Acad::eNullObjectId);
    if (objId.isNull()) return call.done(Acad::eNullObjectId);
    objName[0] = objId.asOldId();
    return call.done(Acad::eOk);
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName) {
    AcDbObjectId id;
    id.setFromOldId(objName[0]);
    const bool known = AcDbImpDatabase::stub(id) != nullptr && objName[1] == 0;
    HostCall call("acdbGetObjectId", known ? bench::HandleText(id.handle()) : "(no entity)");
    objId.setNull();
    if (call.fails()) return call.failed(Acad::eInvalidAdsName);
    if (!known) return call.done(Acad::eInvalidAdsName);
    objId = id;
    return call.done(Acad::eOk);
}
