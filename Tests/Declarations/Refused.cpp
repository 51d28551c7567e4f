// Uses that AutoCAD's own headers refuse or bind in one particular way. Every case is compiled twice: as it stands it
// must compile, with WRONG defined it must not. The case's name is the macro that selects it.
#define _WINDEF_
struct HWND__;
typedef HWND__* HWND;

#include "accmd.h"
#include "acedads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "rxregsvc.h"

#if defined(CASE_StatusesAreNoNamespace)
#ifdef WRONG
using namespace Acad;
#endif
Acad::ErrorStatus status = Acad::eOk;

#elif defined(CASE_DeletedTextsAreNotConst)
#ifdef WRONG
void f(const wchar_t* text) {
    acutDelString(text);
}
#else
void f(wchar_t* text) {
    acutDelString(text);
}
#endif

#elif defined(CASE_DeletedTextsAreVariables)
void f(AcDbEntity* entity) {
#ifdef WRONG
    acutDelString(entity->layer());
#else
    wchar_t* layer = entity->layer();
    acutDelString(layer);
#endif
}

#elif defined(CASE_HandleTextsHaveALength)
#ifdef WRONG
void f(AcDbHandle handle, wchar_t* text) {
    handle.getIntoAsciiBuffer(text);
}
#else
void f(AcDbHandle handle, wchar_t* text) {
    handle.getIntoAsciiBuffer(text, AcDbHandle::kStrSiz);
}
#endif

#elif defined(CASE_OpenedObjectsAreNotConst)
#ifdef WRONG
void f(const AcDbBlockReference* reference, AcDbObjectId id) {
    acdbOpenObject(reference, id);
}
#else
void f(AcDbBlockReference* reference, AcDbObjectId id) {
    acdbOpenObject(reference, id);
}
#endif

#elif defined(CASE_ServicesOfOneNameAreVoid)
#ifdef WRONG
AcRxService* service = acrxRegisterService(L"S");
#else
void* service = acrxRegisterService(L"S");
#endif

#elif defined(CASE_TransformByIsFinal)
class Mine : public AcDbEntity {
#ifdef WRONG
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;
#else
    Acad::ErrorStatus setXData(const resbuf* xdata) override;
#endif
};

#elif defined(CASE_DxfCodesAreNoType)
#ifdef WRONG
AcDb::DxfCode* code = &AcDb::kDxfRegAppName;
#else
AcDb::DxfCode code = AcDb::kDxfRegAppName;
#endif

#elif defined(CASE_CommandStackIsAMacro)
#ifdef WRONG
AcEdCommandStack* stack = ::acedRegCmds();
#else
AcEdCommandStack* stack = acedRegCmds;
#endif

#elif defined(CASE_IteratorsAreNotConst)
#ifdef WRONG
AcDbObjectId f(const AcDbObjectIterator* iterator) {
    return iterator->objectId();
}
#else
AcDbObjectId f(AcDbObjectIterator* iterator) {
    return iterator->objectId();
}
#endif

#else
#error Name a case.
#endif
