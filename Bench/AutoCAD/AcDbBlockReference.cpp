#include "AcDbObject.h"
#include "AcDbObjectId.h"
#include "dbents.h"

using bench::Record;

ACDB_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity)
AcDbBlockReference::AcDbBlockReference() = default;
AcDbBlockReference::~AcDbBlockReference() = default;

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRec) {
    Record record;
    record.kind = bench::RecordKind::kReference;
    record.className = L"AcDbBlockReference";
    record.placement.setTranslation(position.asVector());
    record.block = blockTableRec.handle();
    AcDbObjectOpening::Begin(this, record);
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    return ReadValue(this, "AcDbBlockReference::blockTableRecord", AcDbObjectId(), [this](const Record& record) {
        return bench::IdOf(AcDbObjectOpening::of(this).database, record.block);
    });
}

AcGePoint3d AcDbBlockReference::position() const {
    return ReadValue(this, "AcDbBlockReference::position", AcGePoint3d(),
                     [](const Record& record) { return record.placement * AcGePoint3d(); });
}

double AcDbBlockReference::rotation() const {
    return ReadValue(this, "AcDbBlockReference::rotation", 0.0,
                     [](const Record& record) { return bench::RotationOf(record.placement); });
}

AcGeVector3d AcDbBlockReference::normal() const {
    return ReadValue(this, "AcDbBlockReference::normal", AcGeVector3d(),
                     [](const Record& record) { return bench::NormalOf(record.placement); });
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    return ReadValue(this, "AcDbBlockReference::blockTransform", AcGeMatrix3d(),
                     [](const Record& record) { return record.placement; });
}

AcDbObjectIterator* AcDbBlockReference::attributeIterator() const {
    return ReadValue<AcDbObjectIterator*>(
        this, "AcDbBlockReference::attributeIterator", nullptr,
        [this](const Record& record) { return IterateAttributes(AcDbObjectOpening::of(this).database, record); });
}
