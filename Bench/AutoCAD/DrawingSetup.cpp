// Bench functions that change and read the drawing without a module.
#include "ProcessState.h"
#include "Texts.h"

namespace bench {
namespace {

AcGePoint3d Point(const double numbers[3]) {
    return AcGePoint3d(numbers[0], numbers[1], numbers[2]);
}
AcGeVector3d Vector(const double numbers[3]) {
    return AcGeVector3d(numbers[0], numbers[1], numbers[2]);
}

}  // namespace

std::string AddEntity(const EntityInfo& entity) {
    Record record;
    record.handle = HandleFromText(FromAnsi(entity.handle).c_str());
    record.kind = RecordKind::kEntity;
    record.className = FromAnsi(entity.className);
    record.owner = Drawing::kModelSpace;
    if (!entity.layer.empty()) record.layer = FromAnsi(entity.layer);
    const Record* added = CurrentDrawing()->add(record);
    return added == nullptr ? "" : HandleText(added->handle);
}

std::string AddBlockReference(const BlockReferenceInfo& reference) {
    Drawing& drawing = *CurrentDrawing();
    Record record;
    record.handle = HandleFromText(FromAnsi(reference.handle).c_str());
    record.kind = RecordKind::kReference;
    record.className = L"AcDbBlockReference";
    record.owner = Drawing::kModelSpace;
    if (!reference.layer.empty()) record.layer = FromAnsi(reference.layer);
    record.block = drawing.block(FromAnsi(reference.block)).handle;
    record.placement = BlockPlacement(Point(reference.position), reference.rotation, Vector(reference.normal));
    const Record* added = drawing.add(record);
    if (added == nullptr) return "";
    const Handle handle = added->handle;
    for (const auto& [tag, text] : reference.attributes) {
        Record attribute;
        attribute.kind = RecordKind::kAttribute;
        attribute.className = L"AcDbAttribute";
        attribute.owner = handle;
        attribute.layer = record.layer;
        attribute.tag = FromAnsi(tag);
        attribute.text = FromAnsi(text);
        drawing.add(attribute);
    }
    return HandleText(handle);
}

bool EraseEntity(const std::string& handle) {
    Record* record = CurrentDrawing()->find(HandleFromText(FromAnsi(handle).c_str()));
    if (record == nullptr || !record->isEntity() || record->erased) return false;
    record->erased = true;
    return true;
}

std::vector<EntityInfo> Entities() {
    std::vector<EntityInfo> entities;
    if (CurrentDrawing() == nullptr) return entities;
    for (Handle handle : CurrentDrawing()->find(Drawing::kModelSpace)->children) {
        const Record& record = *CurrentDrawing()->find(handle);
        if (!record.erased) entities.push_back({HandleText(handle), Ansi(record.className), Ansi(record.layer)});
    }
    return entities;
}

void LockLayer(const std::string& layer, bool locked) {
    CurrentDrawing()->layer(FromAnsi(layer)).locked = locked;
}

std::string DrawingState() {
    return CurrentDrawing() == nullptr ? "" : CurrentDrawing()->description();
}

void SetUcs(const double origin[3], const double xAxis[3], const double yAxis[3]) {
    CurrentDrawing()->ucs = Ucs{Point(origin), Vector(xAxis), Vector(yAxis)};
}

}  // namespace bench
