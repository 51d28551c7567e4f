// Database, objects and entities. An object from acdbOpenObject must be closed with close() on every path; its pointer
// is invalid afterwards. After a failure the pointer is null.
#pragma once

#include "AcHeapOpers.h"
#include "acadstrc.h"
#include "acdb.h"
#include "adsdef.h"
#include "dbboiler.h"
#include "dbid.h"
#include "drawable.h"
#include "gepnt3d.h"
#include "gevec3d.h"

class AcDbBlockTable;
class AcDbObjectOpening;
class AcGeMatrix3d;

// ---- Entity names ----

ACCORE_PORT Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName);

// ---- Database ----

class ACCORE_PORT AcDbDatabase : public AcRxObject, public AcHeapOperators {
 public:
    ACDB_DECLARE_MEMBERS(AcDbDatabase)
    virtual ~AcDbDatabase();

    // On success the table is open and must be closed.
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);

    // Returns eUnknownHandle when no object has the handle, eNullHandle for a null handle.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                      Adesk::UInt32 xRefId = 0);

    AcGeVector3d ucsxdir() const;
    // Returns true when the model tab is active.
    bool tilemode() const;

 protected:
    AcDbDatabase();
};

// ---- Objects ----

class ACCORE_PORT AcDbObject : public AcGiDrawable, public AcHeapOperators {
 public:
    ACDB_DECLARE_MEMBERS(AcDbObject)
    virtual ~AcDbObject();

    Acad::ErrorStatus close();

    // Returns the application's chain, which starts with its 1001 node, or null when there is none. The caller releases
    // it with acutRelRb. A null name means all applications.
    virtual resbuf* xData(const ACHAR* regappName = nullptr) const;
    // Copies the chain, which starts with a 1001 node of a registered application, and keeps other applications' data.
    virtual Acad::ErrorStatus setXData(const resbuf* xdata);

 protected:
    AcDbObject();

 private:
    friend class AcDbObjectOpening;
    AcDbObjectOpening* mpOpening;
};

// ---- Entities ----

class ACCORE_PORT AcDbEntity : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbEntity)
    virtual ~AcDbEntity();

    // Returns a string that the caller frees with acutDelString, or null on failure.
    ACHAR* layer() const;
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) final;
    void recordGraphicsModified(Adesk::Boolean setModified = true);

 protected:
    AcDbEntity();
};

// ---- Iteration ----

// The caller deletes the iterator.
class ACCORE_PORT AcDbObjectIterator : public AcRxObject, public AcHeapOperators {
 public:
    ACRX_DECLARE_MEMBERS(AcDbObjectIterator)
    virtual ~AcDbObjectIterator();

    bool done() const;
    void step(bool backwards = false, bool skipDeleted = true);
    AcDbObjectId objectId();

 protected:
    AcDbObjectIterator();
};

// ---- Opening ----

ACCORE_PORT Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                             const AcRxClass* pClass);
ACCORE_PORT Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* (*pfDesc)(),
                                             AcDb::OpenMode mode, bool openErased);
ACCORE_PORT Acad::ErrorStatus acdbOpenObject(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                             bool openErased = false);

inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    return acdbOpenObject(pObj, id, mode, openErased, nullptr);
}

// pObj is a T_OBJECT*, not a pointer to const. Returns eNotThatKindOfClass when the object is of another class.
template <class T_OBJECT>
inline Acad::ErrorStatus acdbOpenObject(T_OBJECT*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    return acdbOpenObject(reinterpret_cast<AcDbObject*&>(pObj), id, &T_OBJECT::desc, mode, openErased);
}
