// Texts, attributes and block references. Points are in world coordinates, angles in radians about the normal. Getters
// of texts: f(AcString&) copies, f() gives a text that the caller frees, fConst() lends one that is good while the
// object is open. attributeIterator gives an iterator that the caller deletes.
#pragma once

#include "dbmain.h"
#include "gemat3d.h"
#include "gescl3d.h"

class AcDbText : public AcDbEntity {
 public:
    ACDB_DECLARE_MEMBERS(AcDbText)
    AcDbText();
    virtual ~AcDbText();

    Acad::ErrorStatus textString(AcString& sText) const;
    ACHAR* textString() const;
    const ACHAR* textStringConst() const;
    Acad::ErrorStatus setTextString(const ACHAR* newVal);
    friend class AcDbImpObject;
};

class AcDbAttribute : public AcDbText {
 public:
    ACDB_DECLARE_MEMBERS(AcDbAttribute)
    AcDbAttribute();
    virtual ~AcDbAttribute();

    Acad::ErrorStatus tag(AcString& sTag) const;
    ACHAR* tag() const;
    const ACHAR* tagConst() const;
    Acad::ErrorStatus setTag(const ACHAR* newVal);
    friend class AcDbImpObject;
};

class AcDbBlockReference : public AcDbEntity {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockReference)
    AcDbBlockReference();
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec);
    virtual ~AcDbBlockReference();

    AcDbObjectId blockTableRecord() const;
    virtual Acad::ErrorStatus setBlockTableRecord(AcDbObjectId newVal);

    virtual AcGePoint3d position() const;
    virtual Acad::ErrorStatus setPosition(const AcGePoint3d& newVal);
    AcGeScale3d scaleFactors() const;
    virtual Acad::ErrorStatus setScaleFactors(const AcGeScale3d& newVal);
    double rotation() const;
    virtual Acad::ErrorStatus setRotation(double newVal);
    AcGeVector3d normal() const;
    virtual Acad::ErrorStatus setNormal(const AcGeVector3d& newVal);
    // Block to world.
    AcGeMatrix3d blockTransform() const;

    Acad::ErrorStatus appendAttribute(AcDbAttribute* pNewAttr);
    Acad::ErrorStatus appendAttribute(AcDbObjectId& objId, AcDbAttribute* pNewAttr);
    // The attribute is to be closed.
    Acad::ErrorStatus openAttribute(AcDbAttribute*& pAttr, AcDbObjectId objId, AcDb::OpenMode mode,
                                    bool openErasedOne = false);
    AcDbObjectIterator* attributeIterator() const;
    friend class AcDbImpObject;
};
