// Uses that AutoCAD's own headers reject or bind in one particular way. Each correct use compiles. Each wrong one is an
// error in its line, which clang compares with the comment.
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
#include "rxsrvice.h"

Acad::ErrorStatus status = Acad::eOk;
using namespace Acad;  // expected-error {{expected namespace name}}

AcDb::DxfCode code = AcDb::kDxfRegAppName;
AcDb::DxfCode* place = &AcDb::kDxfRegAppName;  // expected-error {{cannot take the address}}

AcEdCommandStack* stack = acedRegCmds;
AcEdCommandStack* called = ::acedRegCmds();  // expected-error {{is not a function}}

void* service = acrxRegisterService(L"S");
AcRxService* typed = acrxRegisterService(L"S");  // expected-error {{cannot initialize}}

class Mine : public AcDbEntity {
    Acad::ErrorStatus setXData(const resbuf* xdata) override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& xform) override;  // expected-error {{overrides a 'final'}}
};

void Texts(wchar_t* text, const wchar_t* fixed, AcDbEntity* entity, AcDbHandle handle) {
    acutDelString(text);
    acutDelString(fixed);            // expected-error {{no matching function}}
    acutDelString(entity->layer());  // expected-error {{no matching function}}
    handle.getIntoAsciiBuffer(text, AcDbHandle::kStrSiz);
    handle.getIntoAsciiBuffer(text);  // expected-error {{no matching member}}
}

void Objects(AcDbBlockReference* reference, const AcDbBlockReference* fixed, AcDbObjectIterator* iterator,
             const AcDbObjectIterator* fixedIterator) {
    acdbOpenObject(reference, iterator->objectId());
    acdbOpenObject(fixed, iterator->objectId());  // expected-error@*:* {{casts away qualifiers}}
    fixedIterator->objectId();                    // expected-error {{not marked const}}
}
