// Symbol tables and their records, as far as blocks go. Include dbmain.h before this file.
#pragma once

#include "dbmain.h"

class AcDbBlockTableRecord;

class ACCORE_PORT AcDbSymbolTable : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTable)
    virtual ~AcDbSymbolTable();

    Acad::ErrorStatus getIdAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRecord = false) const;

 protected:
    AcDbSymbolTable();
};

class ACCORE_PORT AcDbSymbolTableRecord : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTableRecord)
    virtual ~AcDbSymbolTableRecord();

    // The text is the caller's (acutDelString).
    Acad::ErrorStatus getName(ACHAR*& pName) const;

 protected:
    AcDbSymbolTableRecord();
};

class ACCORE_PORT AcDbBlockTable : public AcDbSymbolTable {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTable)
    virtual ~AcDbBlockTable();

    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                            AcDb::OpenMode openMode = AcDb::kForRead, bool openErasedRec = false) const;

 protected:
    AcDbBlockTable();
};

class ACCORE_PORT AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTableRecord)
    virtual ~AcDbBlockTableRecord();

    // The record is open for writing. Afterwards the database owns the entity, which is still open and is to be closed;
    // after a failure it is the caller's to delete.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity);

 protected:
    AcDbBlockTableRecord();
};

inline Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                                               AcDb::OpenMode openMode, bool openErasedRec) const {
    pRec = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getIdAt(entryName, id, openErasedRec);
    return status == Acad::eOk ? acdbOpenObject(pRec, id, openMode, openErasedRec) : status;
}
