// Start and end of the stand-in, and what the bench does to the drawing.
#include <ole2.h>

#include "HostCall.h"
#include "HostObjects.h"
#include "HostSession.h"
#include "HostStrings.h"
#include "rxdefs.h"

namespace bench {

Session& TheSession() {
    static Session session;
    return session;
}

Drawing* CurrentDrawing() {
    AcDbImpDatabase* current = TheSession().current;
    return current == nullptr ? nullptr : &current->drawing;
}

// ---- Application ----

void StartAutoCAD() {
    TheSession().mainThread = GetCurrentThreadId();
    OleInitialize(nullptr);
    ResetSystemVariables();
    WatchForCrashes();
    OpenMainWindow();
}

void StopAutoCAD() {
    UnloadAllModules();
    CloseDrawing();
    CloseMainWindow();
    ClearServices();
    AcDbImpObject::FreeProxies();
    FreeQuarantine();
    OleUninitialize();
    TheSession() = Session();
}

void SetProduct(const std::string& product, int releaseMajor, int releaseMinor) {
    TheSession().product = Wide(product);
    TheSession().releaseMajor = releaseMajor;
    TheSession().releaseMinor = releaseMinor;
    ShowFileName();
}

// ---- Drawing ----

void NewDrawing(const std::string& fileName) {
    CloseDrawing();
    TheSession().fileName = Wide(fileName);
    ResetSystemVariables();
    OpenDatabase();
    ShowFileName();
    SendToModules(AcRx::kLoadDwgMsg);
}

void CloseDrawing() {
    if (TheSession().current == nullptr) return;
    SendToModules(AcRx::kUnloadDwgMsg);
    CloseDatabase();
    ForgetTransactions();
    TheSession().lastPick = 0;
    TheSession().previousSelection.clear();
    TheSession().queue.clear();
    TheSession().input.clear();
    ShowFileName();
}

std::string AddEntity(const EntityInfo& entity) {
    Record record;
    record.handle = HandleFromText(Wide(entity.handle).c_str());
    record.kind = RecordKind::kEntity;
    record.className = Wide(entity.className);
    record.owner = Drawing::kModelSpace;
    if (!entity.layer.empty()) record.layer = Wide(entity.layer);
    const Record* added = CurrentDrawing()->add(record);
    return added == nullptr ? "" : HandleText(added->handle);
}

std::string AddBlockReference(const BlockReferenceInfo& reference) {
    Drawing& drawing = *CurrentDrawing();
    Record record;
    record.handle = HandleFromText(Wide(reference.handle).c_str());
    record.kind = RecordKind::kReference;
    record.className = L"AcDbBlockReference";
    record.owner = Drawing::kModelSpace;
    if (!reference.layer.empty()) record.layer = Wide(reference.layer);
    record.block = drawing.block(Wide(reference.block)).handle;
    record.position.set(reference.position[0], reference.position[1], reference.position[2]);
    record.rotation = reference.rotation;
    const AcGeVector3d normal(reference.normal[0], reference.normal[1], reference.normal[2]);
    record.normal = normal.isZeroLength() ? AcGeVector3d(0, 0, 1) : normal.normal();
    const Record* added = drawing.add(record);
    if (added == nullptr) return "";
    const Handle handle = added->handle;
    for (const auto& [tag, text] : reference.attributes) {
        Record attribute;
        attribute.kind = RecordKind::kAttribute;
        attribute.className = L"AcDbAttribute";
        attribute.owner = handle;
        attribute.layer = record.layer;
        attribute.tag = Wide(tag);
        attribute.text = Wide(text);
        drawing.add(attribute);
    }
    return HandleText(handle);
}

bool EraseEntity(const std::string& handle) {
    Record* record = CurrentDrawing()->find(HandleFromText(Wide(handle).c_str()));
    if (record == nullptr || !record->isEntity() || record->erased) return false;
    record->erased = true;
    return true;
}

std::vector<EntityInfo> Entities() {
    std::vector<EntityInfo> entities;
    if (CurrentDrawing() == nullptr) return entities;
    for (Handle handle : CurrentDrawing()->find(Drawing::kModelSpace)->children) {
        const Record& record = *CurrentDrawing()->find(handle);
        if (!record.erased) entities.push_back({HandleText(handle), Narrow(record.className), Narrow(record.layer)});
    }
    return entities;
}

void LockLayer(const std::string& layer, bool locked) {
    CurrentDrawing()->layer(Wide(layer)).locked = locked;
}

std::string DrawingState() {
    return CurrentDrawing() == nullptr ? "" : DescribeDrawing(*CurrentDrawing());
}

void SetUcs(const double origin[3], const double xAxis[3], const double yAxis[3]) {
    Ucs& ucs = CurrentDrawing()->ucs;
    ucs.origin.set(origin[0], origin[1], origin[2]);
    ucs.xAxis.set(xAxis[0], xAxis[1], xAxis[2]);
    ucs.yAxis.set(yAxis[0], yAxis[1], yAxis[2]);
}

}  // namespace bench
