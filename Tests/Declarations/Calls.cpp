// One call of every function and one use of every datum that Platform/objectarx declares, in the order of its headers.
// Compiled for the Microsoft ABI the undefined symbols of this file are the decorated names that the module would
// import; linked by the bench's own compiler it proves that the stand-in offers all of it.
#if __STDC_HOSTED__
#include <windows.h>
#else
#define _WINDEF_
struct HWND__;
typedef HWND__* HWND;
#endif

#include "accmd.h"
#include "acdocman.h"
#include "aced.h"
#include "acedads.h"
#include "acestext.h"
#include "actrans.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbsymtb.h"
#include "dbxutil.h"
#include "geassign.h"
#include "rxdlinkr.h"
#include "rxregsvc.h"
#include "rxsrvice.h"

void Registry(void* appId, AcRxFunctionPtr function) {
    AcEdCommandStack* stack = acedRegCmds;
    stack->addCommand(L"G", L"C", L"C", ACRX_CMD_MODAL, function);
    stack->removeGroup(L"G");
    acrxServiceDictionary->remove(L"S");
    acrxDynamicLinker->registerAppMDIAware(appId);
    acrxUnlockApplication(appId);
    acrxLockApplication(appId);
    acrxRegisterAppMDIAware(appId);
    acrxLoadModule(L"M", false);
    acrxServiceIsRegistered(L"S");
    AcRxService service;
    service.addDependency();
    service.removeDependency();
    service.unloadable();
    AcRxService* made = static_cast<AcRxService*>(acrxRegisterService(L"S"));
    acrxRegisterService(L"S", made);
    const AcRxClass* described = AcRxService::desc();
    described->name();
    described->dxfName();
    described->isDerivedFrom(AcRxObject::desc());
    made->AcRxService::isA();
    AcRxResourceInstance named(L"N"), handle(appId), none, copy(named);
    none = copy;
    none.isNull();
}

void Memory() {
    ACHAR* text = nullptr;
    acutNewString(L"T", text);
    acutNewString(text, 8);
    acutUpdString(L"T", text);
    acutDelString(text);
    acutRelRb(acutNewRb(RTSHORT));
    acutRelRb(acutBuildList(RTSHORT, 1, RTNONE));
    acutPrintf(L"%s", acadErrorStatusText(Acad::eOk));
    AcHeapOperators::operator delete(AcHeapOperators::operator new(8));
}

void Editor(ads_name name, ads_point point, resbuf* buffer, Adesk::Int32* length, AcString& text) {
    acedArxLoad(L"M");
    acedArxUnload(L"M");
    acdbRegApp(L"A");
    acedSSGet(nullptr, nullptr, nullptr, buffer, name);
    acedSSGet(nullptr, nullptr, nullptr, buffer, name, nullptr);
    acedSSFree(name);
    acedSSLength(name, length);
    acedSSName(name, 0, name);
    acedEntSel(L"P", name, point);
    acedEntSel(L"P", name, point, nullptr);
    ACHAR word[64];
    acedInitGet(RSG_NONULL, L"K");
    acedGetKword(L"P", word);
    acedGetKword(L"P", text);
    acedGetString(1, L"P", word);
    acedGetString(1, L"P", text);
    acedPrompt(L"P");
    acedGetVar(L"V", buffer);
    acedSetVar(L"V", buffer);
    acedTrans(point, buffer, buffer, 0, point);
    acdbUcs2Wcs(point, point, false);
    acdbWcs2Ucs(point, point, false);
    adsw_acadMainWnd();
    adsw_acadDocWnd();
}

void Documents(AcDbObject* object) {
    AcApDocument* document = acDocManager->curDocument();
    acDocManager->sendStringToExecute(document, L"C\n");
    document->AcApDocument::isA();
    AcApDocument::desc();
    AcApDocManager::desc();
    AcTransactionManager* manager = actrTransactionManager;
    manager->startTransaction();
    manager->endTransaction();
    manager->abortTransaction();
    AcTransactionManager::desc();
    AcDbTransactionManager::desc();
    AcTransaction::desc();
    acdbTransactionManager->getObject(object, AcDbObjectId());
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    services->AcDbHostApplicationServices::program();
    services->AcDbHostApplicationServices::product();
    services->AcDbHostApplicationServices::releaseMajorMinorString();
    services->AcDbHostApplicationServices::releaseMajorVersion();
    services->AcDbHostApplicationServices::releaseMinorVersion();
    services->setWorkingDatabase(services->workingDatabase());
}

void Text(AcDbHandle handle) {
    AcString text, copy(text), moved(static_cast<AcString&&>(copy)), one(L'c'), word(L"w"), digits(handle);
    text = word;
    text = static_cast<AcString&&>(word);
    text = L"w";
    text.constPtr();
    text.kwszPtr();
    text.kACharPtr();
    const wchar_t* borrowed = text;
    text.isEmpty();
    text.length();
    text.setEmpty();
    text.format(L"%s", borrowed);
    (void)(text == L'c' || text == borrowed || text == one || text != borrowed || text != moved || text != digits);
}

void Ids(AcDbDatabase* database, AcDbObjectId id) {
    ads_name name;
    acdbGetAdsName(name, id);
    acdbGetObjectId(id, name);
    id.isValid();
    id.isErased();
    id.database();
    id.objectClass();
    ACHAR digits[AcDbHandle::kStrSiz];
    id.handle().getIntoAsciiBuffer(digits);
    database->getAcDbObjectId(id, false, AcDbHandle(L"2A7"));
}

void Database(AcDbDatabase* database, AcDbSymbolTable* table, AcDbBlockTable* blocks) {
    database->transactionManager();
    database->blockTableId();
    database->currentSpaceId();
    database->getBlockTable(table);
    database->getBlockTable(blocks);
    database->getSymbolTable(blocks);
    database->ucsorg();
    database->ucsxdir();
    database->ucsydir();
    database->tilemode();
    AcDbDatabase::desc();
}

void Objects(AcDbObject* object, AcDbEntity* entity, AcDbObjectIterator* iterator, AcString& text, AcDbHandle& handle) {
    AcDbObjectId id = object->objectId();
    object->ownerId();
    object->getAcDbHandle(handle);
    object->database();
    object->upgradeOpen();
    object->downgradeOpen();
    object->close();
    object->erase();
    object->AcDbObject::setXData(object->AcDbObject::xData(L"A"));
    entity->layer();
    entity->layer(text);
    entity->layerId();
    entity->AcDbEntity::setLayer(L"0");
    entity->AcDbEntity::setLayer(id);
    entity->AcDbEntity::transformBy(AcGeMatrix3d::kIdentity);
    entity->recordGraphicsModified();
    entity->setDatabaseDefaults();
    entity->setDatabaseDefaults(nullptr);
    iterator->start();
    iterator->done();
    iterator->step();
    iterator->objectId();
    acdbOpenObject(object, id);
    acdbOpenObject(entity, id);
    acdbOpenAcDbObject(object, id, AcDb::kForRead);
    acdbOpenAcDbEntity(entity, id, AcDb::kForRead);
    AcDbObject::desc();
    AcDbObjectIterator::desc();
    AcGiDrawable::desc();
}

void Tables(AcDbSymbolTable* table, AcDbSymbolTableRecord* record, AcString& text, AcDbEntity* entity) {
    AcDbObjectId id;
    table->has(L"N");
    table->has(id);
    ACHAR* kept;
    const ACHAR* lent;
    record->getName(text);
    record->getName(kept);
    record->getName(lent);
    AcDbBlockTableRecord* block = nullptr;
    AcDbBlockTable::cast(table)->getAt(ACDB_MODEL_SPACE, block, AcDb::kForWrite);
    block->appendAcDbEntity(entity);
    AcDbSymbolTable::desc();
    AcDbSymbolTableRecord::desc();
}

void References(AcDbText* line, AcDbAttribute* attribute, AcDbBlockReference* reference, AcString& text) {
    line->textString();
    line->textString(text);
    line->textStringConst();
    line->setTextString(L"T");
    attribute->tag();
    attribute->tag(text);
    attribute->tagConst();
    attribute->setTag(L"T");
    const AcDbObjectId id = reference->blockTableRecord();
    reference->AcDbBlockReference::setBlockTableRecord(id);
    reference->AcDbBlockReference::setPosition(reference->AcDbBlockReference::position());
    reference->AcDbBlockReference::setScaleFactors(reference->scaleFactors());
    reference->AcDbBlockReference::setRotation(reference->rotation());
    reference->AcDbBlockReference::setNormal(reference->normal());
    reference->blockTransform();
    reference->appendAttribute(attribute);
    AcDbObjectId added;
    reference->appendAttribute(added, attribute);
    reference->openAttribute(attribute, id, AcDb::kForRead);
    reference->attributeIterator();
    acdbOpenObject(reference, id, AcDb::kForWrite);
    AcDbEntity* entities[] = {new AcDbText, new AcDbAttribute, new AcDbBlockReference,
                              new AcDbBlockReference(AcGePoint3d::kOrigin, id)};
    for (AcDbEntity* entity : entities)
        delete entity;
    AcDbText::desc();
    AcDbAttribute::desc();
}

void Vectors(AcGeVector3d vector, AcGePoint3d point, const AcGeMatrix3d& matrix) {
    vector = AcGeVector3d::kIdentity + AcGeVector3d::kXAxis + AcGeVector3d::kYAxis + AcGeVector3d::kZAxis;
    vector = matrix * vector + 2.0 * vector.crossProduct(vector);
    vector.transformBy(matrix).rotateBy(1, vector).normalize();
    vector.angleTo(vector);
    vector.angleTo(vector, vector);
    vector.normal();
    vector.length();
    vector.isZeroLength();
    vector.isParallelTo(vector);
    vector.isCodirectionalTo(vector);
    vector.isPerpendicularTo(vector);
    vector.isEqualTo(vector);
    point = matrix * AcGePoint3d::kOrigin;
    point.transformBy(matrix).isEqualTo(asPnt3d(asDblArray(point)));
    point.distanceTo(point);
    AcGeScale3d one, factor(2.0), factors(1, 2, 3), copy(factors);
    AcGeTol tolerance;
}

void Matrices(AcGeMatrix3d matrix, AcGePoint3d point, AcGeVector3d x, AcGeVector3d y, AcGeVector3d z) {
    AcGeMatrix3d copy(matrix), fresh;
    copy.setToIdentity();
    copy *= matrix * fresh;
    copy.preMultBy(matrix).postMultBy(matrix).invert();
    copy.inverse();
    copy.isEqualTo(matrix);
    copy.det();
    copy.setTranslation(copy.translation());
    copy.setCoordSystem(point, x, y, z);
    copy.getCoordSystem(point, x, y, z);
    copy.setToTranslation(x).setToRotation(1, x).setToScaling(2);
    AcGeMatrix3d::translation(x);
    AcGeMatrix3d::rotation(1, x);
    AcGeMatrix3d::scaling(2);
    acedGetCurrentUCS(copy);
}
