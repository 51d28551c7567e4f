// Texts, attributes and block references. Points are in world coordinates, angles in radians about the normal. A string
// from a function whose name ends in Const is valid while the object is open. The caller deletes the iterator from
// attributeIterator.
#pragma once

#include "dbmain.h"
#include "gemat3d.h"

class ACCORE_PORT AcDbText : public AcDbEntity {
 public:
    ACDB_DECLARE_MEMBERS(AcDbText)
    virtual ~AcDbText();

    const ACHAR* textStringConst() const;
    Acad::ErrorStatus setTextString(const ACHAR* newVal);

 protected:
    AcDbText();
};

class ACCORE_PORT AcDbAttribute : public AcDbText {
 public:
    ACDB_DECLARE_MEMBERS(AcDbAttribute)
    virtual ~AcDbAttribute();

    const ACHAR* tagConst() const;

 protected:
    AcDbAttribute();
};

class ACCORE_PORT AcDbBlockReference : public AcDbEntity {
 public:
    ACDB_DECLARE_MEMBERS(AcDbBlockReference)
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec);
    virtual ~AcDbBlockReference();

    AcDbObjectId blockTableRecord() const;
    virtual AcGePoint3d position() const;
    double rotation() const;
    AcGeVector3d normal() const;
    // From block to world coordinates.
    AcGeMatrix3d blockTransform() const;

    AcDbObjectIterator* attributeIterator() const;

 protected:
    AcDbBlockReference();
};
