// Symbol tables and their records.
#include "AcDbObject.h"
#include "AcDbObjectId.h"
#include "Memory.h"
#include "Texts.h"
#include "dbsymtb.h"

using bench::ArxCall;
using bench::Record;

ACDB_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
AcDbSymbolTable::AcDbSymbolTable() = default;
AcDbSymbolTable::~AcDbSymbolTable() = default;
ACDB_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
AcDbSymbolTableRecord::AcDbSymbolTableRecord() = default;
AcDbSymbolTableRecord::~AcDbSymbolTableRecord() = default;
ACDB_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable)
AcDbBlockTable::AcDbBlockTable() = default;
AcDbBlockTable::~AcDbBlockTable() = default;
ACDB_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord)
AcDbBlockTableRecord::AcDbBlockTableRecord() = default;
AcDbBlockTableRecord::~AcDbBlockTableRecord() = default;

Acad::ErrorStatus AcDbSymbolTable::getIdAt(const ACHAR* entryName, AcDbObjectId& recordId, bool) const {
    ArxCall call("AcDbSymbolTable::getIdAt", AcDbObjectOpening::Name(this) + " " + bench::LogText(entryName));
    recordId.setNull();
    if (call.fails()) return call.failed(Acad::eKeyNotFound);
    const Record* table = AcDbObjectOpening::Read(this, "getIdAt");
    if (table == nullptr) return call.done(Acad::eNotOpenForRead);
    if (entryName == nullptr) return call.done(Acad::eInvalidInput);
    bench::DrawingDatabase* database = AcDbObjectOpening::of(this).database;
    const Record* record = database->drawing.findNamed(table->handle, entryName);
    if (record == nullptr) return call.done(Acad::eKeyNotFound);
    recordId = bench::IdOf(database, record->handle);
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& pName) const {
    ArxCall call("AcDbSymbolTableRecord::getName", AcDbObjectOpening::Name(this));
    pName = nullptr;
    if (call.fails()) return call.failed(Acad::eNotOpenForRead);
    const Record* record = AcDbObjectOpening::Read(this, "getName");
    if (record == nullptr) return call.done(Acad::eNotOpenForRead);
    pName = bench::AllocateForCaller(record->name, "name of " + AcDbObjectOpening::Name(this));
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity) {
    ArxCall call("AcDbBlockTableRecord::appendAcDbEntity", AcDbObjectOpening::Name(this));
    pOutputId.setNull();
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    Acad::ErrorStatus status;
    const Record* block = AcDbObjectOpening::Write(this, "appendAcDbEntity", status);
    if (block == nullptr) return call.done(status);
    if (pEntity == nullptr) return call.done(Acad::eNullEntityPointer);
    bench::DrawingDatabase* database = AcDbObjectOpening::of(this).database;
    status = AcDbObjectOpening::Adopt(pEntity, block->handle, database);
    if (status == Acad::eOk) pOutputId = bench::IdOf(database, AcDbObjectOpening::of(pEntity).handle);
    return call.done(status);
}
