// Symbol tables and their records, for blocks only. Include dbmain.h before this file.
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

    // The caller frees the string with acutDelString.
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

    // Requires a record open for writing. On success the database owns the entity, which stays open; the caller closes
    // it. On failure the caller deletes it.
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
