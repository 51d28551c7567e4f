// Symbol tables and their records, as far as blocks and layers go. Include dbmain.h before this file. getName: the
// AcString form copies, the const ACHAR*& form lends a pointer into the record that is good while it is open, the
// ACHAR*& form gives a text that the caller frees; the exact type of the variable decides.
#pragma once

#include "dbmain.h"

class AcDbBlockTableRecord;

class AcDbSymbolTable : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTable)
    virtual ~AcDbSymbolTable();

    Acad::ErrorStatus getIdAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRecord = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;

 protected:
    AcDbSymbolTable();
    friend class AcDbImpObject;
};

class AcDbSymbolTableRecord : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbSymbolTableRecord)
    virtual ~AcDbSymbolTableRecord();

    Acad::ErrorStatus getName(AcString& sName) const;
    Acad::ErrorStatus getName(ACHAR*& pName) const;
    Acad::ErrorStatus getName(const ACHAR*& pName) const;

 protected:
    AcDbSymbolTableRecord();
    friend class AcDbImpObject;
};

class AcDbBlockTable : public AcDbSymbolTable {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTable)
    virtual ~AcDbBlockTable();

    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                            AcDb::OpenMode openMode = AcDb::kForRead, bool openErasedRec = false) const;
    Acad::ErrorStatus getAt(const ACHAR* entryName, AcDbObjectId& recordId, bool getErasedRec = false) const;

 private:
    AcDbBlockTable();
    friend class AcDbImpObject;
};

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockTableRecord)
    virtual ~AcDbBlockTableRecord();

    // The record is open for writing. Afterwards the database owns the entity, which is still open and is to be closed;
    // after a failure it is the caller's to delete.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& pOutputId, AcDbEntity* pEntity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* pEntity);

 private:
    AcDbBlockTableRecord();
    friend class AcDbImpObject;
};

inline Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbObjectId& recordId,
                                               bool getErasedRec) const {
    return getIdAt(entryName, recordId, getErasedRec);
}

inline Acad::ErrorStatus AcDbBlockTable::getAt(const ACHAR* entryName, AcDbBlockTableRecord*& pRec,
                                               AcDb::OpenMode openMode, bool openErasedRec) const {
    pRec = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getIdAt(entryName, id, openErasedRec);
    return status == Acad::eOk ? acdbOpenObject(pRec, id, openMode, openErasedRec) : status;
}

inline Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* pEntity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, pEntity);
}
