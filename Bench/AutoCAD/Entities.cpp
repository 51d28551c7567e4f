// Members of AcDbEntity: layer, transformation, graphics.
#include "HostObjects.h"
#include "HostSession.h"
#include "HostStrings.h"

using bench::HostCall;
using bench::Record;
using bench::RecordKind;

AcDbEntity::AcDbEntity() {
    AcDbImpObject::Begin(this, RecordKind::kEntity, L"AcDbEntity");
}
AcDbEntity::~AcDbEntity() = default;

ACHAR* AcDbEntity::layer() const {
    HostCall call("AcDbEntity::layer", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "layer");
    if (record == nullptr) return nullptr;
    return bench::HandOut(record->layer, "layer of " + AcDbImpObject::Name(this));
}

Acad::ErrorStatus AcDbEntity::layer(AcString& sName) const {
    HostCall call("AcDbEntity::layer", AcDbImpObject::Name(this));
    if (call.fails()) return call.failed(Acad::eNotOpenForRead);
    const Record* record = AcDbImpObject::Read(this, "layer");
    if (record == nullptr) return call.done(Acad::eNotOpenForRead);
    sName = record->layer.c_str();
    return call.done(Acad::eOk);
}

AcDbObjectId AcDbEntity::layerId() const {
    HostCall call("AcDbEntity::layerId", AcDbImpObject::Name(this));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "layerId");
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    if (record == nullptr || database == nullptr) return AcDbObjectId();
    return database->id(database->drawing.layer(record->layer).handle);
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* newVal, Adesk::Boolean, bool) {
    HostCall call("AcDbEntity::setLayer", AcDbImpObject::Name(this) + " " + bench::Narrow(newVal));
    if (call.fails()) return call.failed(Acad::eInvalidLayer);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(this, "setLayer", status);
    if (record == nullptr) return call.done(status);
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    bench::Drawing* drawing = database != nullptr ? &database->drawing : bench::CurrentDrawing();
    if (newVal == nullptr || drawing == nullptr) return call.done(Acad::eInvalidInput);
    if (drawing->findNamed(bench::Drawing::kLayerTable, newVal) == nullptr) return call.done(Acad::eKeyNotFound);
    record->layer = newVal;
    return call.done(Acad::eOk);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId newVal, Adesk::Boolean doSubents, bool allowHiddenLayer) {
    const AcDbStub* stub = AcDbImpDatabase::stub(newVal);
    const Record* layer = stub == nullptr ? nullptr : stub->database->drawing.find(stub->handle);
    return layer == nullptr || layer->kind != RecordKind::kLayerRecord
               ? Acad::eInvalidLayer
               : setLayer(layer->name.c_str(), doSubents, allowHiddenLayer);
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d& xform) {
    std::string numbers;
    for (int row = 0; row < 3; ++row)
        for (double number : xform.entry[row])
            numbers += " " + bench::NumberText(number);
    HostCall call("AcDbEntity::transformBy", AcDbImpObject::Name(this) + numbers);
    if (call.fails()) return call.failed(Acad::eCannotScaleNonUniformly);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(this, "transformBy", status);
    if (record == nullptr) return call.done(status);
    if (record->kind != RecordKind::kReference) {
        record->placement.preMultBy(xform);
        return call.done(Acad::eOk);
    }
    if (!bench::SetReferenceTransform(*record, xform * bench::ReferenceTransform(*record)))
        return call.done(Acad::eCannotScaleNonUniformly);
    AcDbImpDatabase* database = AcDbImpObject::of(this).database;
    for (bench::Handle handle : record->children)
        if (Record* attribute = database->drawing.find(handle)) attribute->placement.preMultBy(xform);
    return call.done(Acad::eOk);
}

// It has no result, so a call on an object that is open for reading only can do no other than go unnoticed: accused.
void AcDbEntity::recordGraphicsModified(Adesk::Boolean setModified) {
    HostCall call("AcDbEntity::recordGraphicsModified", AcDbImpObject::Name(this) + (setModified ? " 1" : " 0"));
    Acad::ErrorStatus status;
    if (AcDbImpObject::Write(this, "recordGraphicsModified", status) == nullptr && status == Acad::eNotOpenForWrite)
        bench::Accuse("recordGraphicsModified was called on the object " + AcDbImpObject::Name(this) +
                      ", which is not open for writing.");
}

void AcDbEntity::setDatabaseDefaults() {
    HostCall call("AcDbEntity::setDatabaseDefaults", AcDbImpObject::Name(this));
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(this, "setDatabaseDefaults", status);
    if (record != nullptr) record->layer = bench::Wide(bench::SystemVariable("CLAYER"));
}

void AcDbEntity::setDatabaseDefaults(AcDbDatabase*) {
    setDatabaseDefaults();
}
