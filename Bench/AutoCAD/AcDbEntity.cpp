#include "AcDbObject.h"
#include "Memory.h"
#include "Texts.h"
#include "gemat3d.h"

using bench::ArxCall;
using bench::Record;

ACDB_DEFINE_MEMBERS(AcDbEntity, AcDbObject)
AcDbEntity::AcDbEntity() = default;
AcDbEntity::~AcDbEntity() = default;

ACHAR* AcDbEntity::layer() const {
    return ReadValue<ACHAR*>(this, "AcDbEntity::layer", nullptr, [this](const Record& record) {
        return bench::AllocateForCaller(record.layer, "layer of " + AcDbObjectOpening::Name(this));
    });
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& xform) {
    std::string numbers;
    for (int row = 0; row < 3; ++row)
        for (double number : xform.entry[row])
            numbers += " " + bench::NumberText(number);
    ArxCall call("AcDbEntity::transformBy", AcDbObjectOpening::Name(this) + numbers);
    if (call.fails()) return call.failed(Acad::eCannotScaleNonUniformly);
    Acad::ErrorStatus status;
    Record* record = AcDbObjectOpening::Write(this, "transformBy", status);
    if (record != nullptr) record->placement = xform * record->placement;
    return call.done(status);
}

// It returns nothing, so a call on an object open for reading would go unnoticed; it is reported as a violation.
void AcDbEntity::recordGraphicsModified(Adesk::Boolean setModified) {
    ArxCall call("AcDbEntity::recordGraphicsModified", AcDbObjectOpening::Name(this) + (setModified ? " 1" : " 0"));
    Acad::ErrorStatus status;
    if (AcDbObjectOpening::Write(this, "recordGraphicsModified", status) == nullptr && status == Acad::eNotOpenForWrite)
        bench::ReportViolation("recordGraphicsModified was called on the object " + AcDbObjectOpening::Name(this) +
                               ", which is not open for writing.");
}

Acad::ErrorStatus acdbOpenObject(AcDbEntity*& pEnt, AcDbObjectId id, AcDb::OpenMode mode, bool openErased) {
    AcDbObject* object = nullptr;
    const Acad::ErrorStatus status = acdbOpenObject(object, id, &AcDbEntity::desc, mode, openErased);
    pEnt = static_cast<AcDbEntity*>(object);
    return status == Acad::eNotThatKindOfClass ? Acad::eNotAnEntity : status;
}
