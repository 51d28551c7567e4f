// Symbol tables and their records.
#include "HostObjects.h"
#include "HostSession.h"
#include "HostStrings.h"

using bench::HostCall;
using bench::Record;

AcDbSymbolTable::AcDbSymbolTable() = default;
AcDbSymbolTable::~AcDbSymbolTable() = default;
AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;
AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;
AcDbBlockTable::AcDbBlockTable() = default;
AcDbBlockTable::~AcDbBlockTable() = default;
AcDbBlockTableRecord::AcDbBlockTableRecord() = default;
AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErased) const {
    HostCall call("AcDbSymbolTable::getIdAt", AcDbImpObject::Name(this) + " " + bench::Narrow(entryName));
    recordId.setNull();
    if (call.fails()) return call.failed(Acad::eKeyNotFound);
    const Record* table = AcDbImpObject::Read(this, "getIdAt");
    if (table == nullptr) return call.done(Acad::eNotOpenForRead);
    if (entryName == nullptr) return call.done(Acad::eInvalidInput);
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    const Record* record = database->drawing.findNamed(table->handle, entryName);
    if (record == nullptr) return call.done(Acad::eKeyNotFound);
    if (record->erased && !getErased) return call.done(Acad::eWasErased);
    recordId = database->id(record->handle);
    return call.done(Acad::eOk);
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getIdAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    HostCall call("AcDbSymbolTable::has", AcDbImpObject::Name(this));
    const AcDbStub* stub = AcDbImpDatabase::stub(id);
    const Record* table = call.fails() || stub == nullptr ? nullptr : AcDbImpObject::Read(this, "has");
    const Record* record = table == nullptr ? nullptr : stub->database->drawing.find(stub->handle);
    return record != nullptr && record->owner == table->handle && !record->erased;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(AcString& sName) const {
    const ACHAR* name = nullptr;
    const Acad::ErrorStatus status = getName(name);
    if (status == Acad::eOk) sName = name;
    return status;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const {
    const ACHAR* name = nullptr;
    const Acad::ErrorStatus status = getName(name);
    pName = status == Acad::eOk ? bench::HandOut(name, "name of " + AcDbImpObject::Name(this)) : nullptr;
    return status;
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(const ACHAR*& pName) const {
    HostCall call("AcDbSymbolTableRecord::getName", AcDbImpObject::Name(this));
    pName = nullptr;
    if (call.fails()) return call.failed(Acad::eNotOpenForRead);
    const Record* record = AcDbImpObject::Read(this, "getName");
    if (record == nullptr) return call.done(Acad::eNotOpenForRead);
    pName = record->name.c_str();
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity) {
    HostCall call("AcDbBlockTableRecord::appendAcDbEntity", AcDbImpObject::Name(this));
    pOutputId.setNull();
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    Acad::ErrorStatus status;
    if (AcDbImpObject::Write(this, "appendAcDbEntity", status) == nullptr) return call.done(status);
    if (pEntity == nullptr) return call.done(Acad::eNullEntityPointer);
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    status = AcDbImpObject::Adopt(pEntity, AcDbImpObject::of(this).handle, database);
    if (status == Acad::eOk) pOutputId = database->id(AcDbImpObject::of(pEntity).handle);
    return call.done(status);
}
