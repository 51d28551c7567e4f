// Database, objects and entities. An object that acdbOpenObject delivered is closed with close() on every way out,
// after which its pointer is dead; one that came through a transaction is closed by it. The pointer is null after a
// failure. Getters: T* f() const gives a text that the caller frees, f(AcString&) const a copy that frees itself.
#pragma once

#include "AcHeapOpers.h"
#include "AcString.h"
#include "acadstrc.h"
#include "acdb.h"
#include "adsdef.h"
#include "dbboiler.h"
#include "dbid.h"
#include "drawable.h"
#include "gepnt3d.h"
#include "gevec3d.h"

class AcDbBlockTable;
class AcDbEntity;
class AcDbImpDatabase;
class AcDbImpIterator;
class AcDbImpObject;
class AcDbObject;
class AcDbSymbolTable;
class AcDbTransactionManager;
class AcGeMatrix3d;

// ---- Ids and names ----

// The first parameter is the array itself, by reference.
Acad::ErrorStatus acdbGetAdsName(ads_name& objName, AcDbObjectId objId);
Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName);

// ---- Database ----

class AcDbDatabase : public AcRxObject, public AcHeapOperators {
 public:
    ACDB_DECLARE_MEMBERS(AcDbDatabase)
    virtual ~AcDbDatabase();

    AcDbTransactionManager* transactionManager() const;
    AcDbObjectId blockTableId() const;
    AcDbObjectId currentSpaceId() const;

    // The table is open then and must be closed.
    Acad::ErrorStatus getBlockTable(AcDbSymbolTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& pTable, AcDb::OpenMode mode = AcDb::kForRead);

    // eUnknownHandle when no object has the handle, eNullHandle for a null one.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& retId, bool createIfNotFound, const AcDbHandle& objHandle,
                                      Adesk::UInt32 xRefId = 0);

    AcGePoint3d ucsorg() const;
    AcGeVector3d ucsxdir() const;
    AcGeVector3d ucsydir() const;
    // True: the model tab is active.
    bool tilemode() const;

 private:
    friend class AcDbImpDatabase;
    AcDbDatabase();
    AcDbImpDatabase* mpImpDatabase;
};

// ---- Objects ----

class AcDbObject : public AcGiDrawable, public AcHeapOperators {
 public:
    ACDB_DECLARE_MEMBERS(AcDbObject)
    virtual ~AcDbObject();

    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const;
    void getAcDbHandle(AcDbHandle& handle) const;
    AcDbDatabase* database() const;

    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    Acad::ErrorStatus close();
    Acad::ErrorStatus erase(Adesk::Boolean erasing = true);

    // The chain starts with its 1001 node and is the caller's (acutRelRb); null when there is none. A null name asks
    // for the data of all applications.
    virtual resbuf* xData(const ACHAR* regappName = nullptr) const;
    // Copies the chain, which starts with a 1001 node that names a registered application. Other applications' data
    // stay.
    virtual Acad::ErrorStatus setXData(const resbuf* xdata);

 protected:
    AcDbObject();

 private:
    friend class AcDbImpObject;
    AcDbImpObject* mpImpObject;
};

// ---- Entities ----

class AcDbEntity : public AcDbObject {
 public:
    ACDB_DECLARE_MEMBERS(AcDbEntity)
    virtual ~AcDbEntity();

    // The first form's text is the caller's (acutDelString); null after a failure.
    ACHAR* layer() const;
    Acad::ErrorStatus layer(AcString& sName) const;
    AcDbObjectId layerId() const;
    virtual Acad::ErrorStatus setLayer(const ACHAR* newVal, Adesk::Boolean doSubents = true,
                                       bool allowHiddenLayer = false);
    virtual Acad::ErrorStatus setLayer(AcDbObjectId newVal, Adesk::Boolean doSubents = true,
                                       bool allowHiddenLayer = false);

    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) final;
    void recordGraphicsModified(Adesk::Boolean setModified = true);
    void setDatabaseDefaults();
    void setDatabaseDefaults(AcDbDatabase* pDb);

 protected:
    AcDbEntity();
    friend class AcDbImpObject;
};

// ---- Iteration ----

// The caller deletes the iterator.
class AcDbObjectIterator : public AcRxObject, public AcHeapOperators {
 public:
    ACRX_DECLARE_MEMBERS(AcDbObjectIterator)
    virtual ~AcDbObjectIterator();

    void start(bool atEnd = false);
    bool done() const;
    void step(bool backwards = false, bool skipDeleted = true);
    AcDbObjectId objectId();

 private:
    friend class AcDbImpIterator;
    AcDbObjectIterator();
    AcDbImpIterator* mpImpIterator;
};

// ---- Opening ----

Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode, bool openErased,
                                 const AcRxClass* pClass);
Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcRxClass* (*pfDesc)(), AcDb::OpenMode mode,
                                 bool openErased);
Acad::ErrorStatus acdbOpenObject(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false);

inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    return acdbOpenObject(pObj, id, mode, openErased, nullptr);
}

// pObj is a plain T_OBJECT*, not a pointer to const. eNotThatKindOfClass when the object is of another class.
template <class T_OBJECT>
inline Acad::ErrorStatus acdbOpenObject(T_OBJECT*& pObj, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                        bool openErased = false) {
    return acdbOpenObject(reinterpret_cast<AcDbObject*&>(pObj), id, &T_OBJECT::desc, mode, openErased);
}

inline Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErasedEntity = false) {
    return acdbOpenObject(pEnt, id, mode, openErasedEntity);
}

inline Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& pObj, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErasedObject = false) {
    return acdbOpenObject(pObj, id, mode, openErasedObject);
}
