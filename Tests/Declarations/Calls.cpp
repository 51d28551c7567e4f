// One call of every function and one use of every datum that Platform/objectarx declares, in the order of its headers.
// Compiled for the Microsoft ABI the undefined symbols of this file are the decorated names that the module would
// import; compiled by the bench's own compiler they are held against what the module's objects do import.
#if __STDC_HOSTED__
#include <windows.h>
#else
#define _WINDEF_
struct HWND__;
typedef HWND__* HWND;
#endif

#include "accmd.h"
#include "acedads.h"
#include "actrans.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

void Registry(void* appId, AcRxFunctionPtr function) {
    AcEdCommandStack* stack = acedRegCmds;
    stack->addCommand(L"G", L"C", L"C", ACRX_CMD_MODAL, function);
    stack->addCommand(L"G", L"C", L"C", ACRX_CMD_MODAL, function, NULL, -1, AcRxResourceInstance(appId));
    stack->removeGroup(L"G");
    acrxServiceDictionary->remove(L"S");
    acrxDynamicLinker->registerAppMDIAware(appId);
    acrxUnlockApplication(appId);
    acrxRegisterService(L"S");
    AcRxService service;
    service.isKindOf(AcRxService::desc());
}

void Memory(ACHAR* text) {
    acutUpdString(L"T", text);
    acutDelString(text);
    acutRelRb(acutNewRb(RTSHORT));
    acutRelRb(acutBuildList(AcDb::kDxfXdInteger16, 1, RTNONE));
    acutPrintf(L"%s", text);
    AcHeapOperators::operator delete(AcHeapOperators::operator new(8));
}

void Editor(ads_name name, ads_point point, resbuf* buffer, ACHAR* text) {
    acedArxLoad(L"M");
    acedArxUnload(L"M");
    acdbRegApp(L"A");
    acedSSGet(nullptr, nullptr, nullptr, buffer, name);
    acedSSFree(name);
    acedSSName(name, 0, name);
    acedEntSel(L"P", name, point);
    acedGetString(1, L"P", text, 64);
    acedGetVar(L"V", buffer);
    acedSetVar(L"V", buffer);
    acedTrans(point, buffer, buffer, 0, point);
    adsw_acadMainWnd();
}

void Documents() {
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->sendStringToExecute(document, L"C\n");
    AcTransactionManager* manager = document->transactionManager();
    manager->startTransaction();
    manager->endTransaction();
    acdbTransactionManager->abortTransaction();
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    services->AcDbHostApplicationServices::product();
    services->AcDbHostApplicationServices::releaseMajorVersion();
    services->AcDbHostApplicationServices::releaseMinorVersion();
    services->workingDatabase();
}

void Database(AcDbDatabase* database, AcDbObjectId id, ads_name name) {
    acdbGetObjectId(id, name);
    ACHAR digits[AcDbHandle::kStrSiz];
    id.handle().getIntoAsciiBuffer(digits);
    database->getAcDbObjectId(id, false, AcDbHandle(L"2A7"));
    AcDbBlockTable* blocks = nullptr;
    database->getBlockTable(blocks);
    database->ucsxdir();
    database->tilemode();
}

void Objects(AcDbObject* object, AcDbEntity* entity, AcDbObjectIterator* iterator) {
    object->close();
    object->AcDbObject::setXData(object->AcDbObject::xData(L"A"));
    entity->layer();
    entity->AcDbEntity::transformBy(AcGeMatrix3d());
    entity->recordGraphicsModified();
    iterator->done();
    iterator->step();
    const AcDbObjectId id = iterator->objectId();
    acdbOpenObject(object, id);
    acdbOpenObject(entity, id);
}

void Tables(AcDbBlockTable* table, AcDbBlockTableRecord* block, AcDbEntity* entity, ACHAR* name) {
    AcDbObjectId id;
    block->getName(name);
    table->getAt(ACDB_MODEL_SPACE, block, AcDb::kForWrite);
    block->appendAcDbEntity(id, entity);
}

void References(AcDbAttribute* attribute, AcDbBlockReference* reference) {
    attribute->textStringConst();
    attribute->setTextString(L"T");
    attribute->tagConst();
    const AcDbObjectId id = reference->blockTableRecord();
    reference->AcDbBlockReference::position();
    reference->rotation();
    reference->normal();
    reference->blockTransform();
    reference->attributeIterator();
    acdbOpenObject(reference, id, AcDb::kForWrite);
    acdbOpenObject(attribute, id);
    delete new AcDbBlockReference(AcGePoint3d::kOrigin, id);
}

void Geometry(AcGeMatrix3d matrix, AcGePoint3d point, AcGeVector3d x, AcGeVector3d y, AcGeVector3d z) {
    x = matrix * AcGeVector3d::kXAxis + x.crossProduct(y).normal();
    x.rotateBy(x.length(), z);
    point = matrix * AcGePoint3d::kOrigin;
    *asDblArray(point) = *asDblArray(x);
    AcGeTol tolerance;
    AcGeMatrix3d copy(matrix);
    (matrix * copy.inverse()).setToIdentity().isEqualTo(AcGeMatrix3d::kIdentity);
    copy.setTranslation(copy.translation());
    copy.setCoordSystem(point, x, y, z);
    copy.getCoordSystem(point, x, y, z);
    AcGeMatrix3d::translation(x);
    AcGeMatrix3d::rotation(1, x);
}
