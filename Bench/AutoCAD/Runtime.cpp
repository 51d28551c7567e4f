// Run-time classes: what isKindOf, cast and acdbOpenObject compare. Asking for a class is no call that could fail, so
// none is journaled.
#include <map>
#include <memory>

#include "HostObjects.h"
#include "accmd.h"
#include "actrans.h"
#include "rxdlinkr.h"
#include "rxsrvice.h"

AcRxClass* AcRxImpClass::Get(const wchar_t* name, AcRxClass* parent, const wchar_t* dxfName) {
    static std::map<std::wstring, AcRxClass*> known;
    AcRxClass*& entry = known[name];
    if (entry == nullptr) {
        entry = new AcRxClass;
        entry->m_pImp->name = name;
        entry->m_pImp->dxfName = dxfName;
        entry->m_pImp->parent = parent;
    }
    return entry;
}

AcRxObject::AcRxObject() = default;
AcRxObject::~AcRxObject() = default;
AcRxClass::AcRxClass() : m_pImp(new AcRxImpClass) {}
AcRxClass::~AcRxClass() {
    delete m_pImp;
}
const ACHAR* AcRxClass::name() const {
    return m_pImp->name.c_str();
}
const ACHAR* AcRxClass::dxfName() const {
    return m_pImp->dxfName.empty() ? nullptr : m_pImp->dxfName.c_str();
}
bool AcRxClass::isDerivedFrom(const AcRxClass* pOtherClass) const {
    return isDerivedFrom(this, pOtherClass);
}

bool AcRxClass::isDerivedFrom(const AcRxClass* pDerived, const AcRxClass* pBase) {
    for (const AcRxClass* c = pDerived; c != nullptr; c = c->m_pImp->parent)
        if (c == pBase) return true;
    return false;
}

AcRxClass* AcRxObject::desc() {
    return AcRxImpClass::Get(L"AcRxObject", nullptr);
}
AcRxClass* AcRxObject::isA() const {
    return desc();
}
AcRxClass* AcRxClass::desc() {
    return AcRxImpClass::Get(L"AcRxClass", AcRxObject::desc());
}
AcRxClass* AcRxClass::isA() const {
    return desc();
}
AcRxClass* AcRxDictionary::desc() {
    return AcRxImpClass::Get(L"AcRxDictionary", AcRxObject::desc());
}
AcRxClass* AcRxDictionary::isA() const {
    return desc();
}
AcRxClass* AcRxDynamicLinker::desc() {
    return AcRxImpClass::Get(L"AcRxDynamicLinker", AcRxObject::desc());
}
AcRxClass* AcRxDynamicLinker::isA() const {
    return desc();
}
AcRxClass* AcRxService::desc() {
    return AcRxImpClass::Get(L"AcRxService", AcRxObject::desc());
}
AcRxClass* AcRxService::isA() const {
    return desc();
}
AcRxClass* AcEdCommandStack::desc() {
    return AcRxImpClass::Get(L"AcEdCommandStack", AcRxObject::desc());
}
AcRxClass* AcEdCommandStack::isA() const {
    return desc();
}
AcRxClass* AcApDocument::desc() {
    return AcRxImpClass::Get(L"AcApDocument", AcRxObject::desc());
}
AcRxClass* AcApDocument::isA() const {
    return desc();
}
AcRxClass* AcApDocManager::desc() {
    return AcRxImpClass::Get(L"AcApDocManager", AcRxObject::desc());
}
AcRxClass* AcApDocManager::isA() const {
    return desc();
}
AcRxClass* AcTransaction::desc() {
    return AcRxImpClass::Get(L"AcTransaction", AcRxObject::desc());
}
AcRxClass* AcTransaction::isA() const {
    return desc();
}
AcRxClass* AcDbTransactionManager::desc() {
    return AcRxImpClass::Get(L"AcDbTransactionManager", AcRxObject::desc());
}
AcRxClass* AcDbTransactionManager::isA() const {
    return desc();
}
AcRxClass* AcTransactionManager::desc() {
    return AcRxImpClass::Get(L"AcTransactionManager", AcDbTransactionManager::desc());
}
AcRxClass* AcTransactionManager::isA() const {
    return desc();
}
AcRxClass* AcDbHostApplicationServices::desc() {
    return AcRxImpClass::Get(L"AcDbHostApplicationServices", AcRxObject::desc());
}
AcRxClass* AcDbHostApplicationServices::isA() const {
    return desc();
}
AcRxClass* AcDbDatabase::desc() {
    return AcRxImpClass::Get(L"AcDbDatabase", AcRxObject::desc());
}
AcRxClass* AcDbDatabase::isA() const {
    return desc();
}
AcRxClass* AcDbObjectIterator::desc() {
    return AcRxImpClass::Get(L"AcDbObjectIterator", AcRxObject::desc());
}
AcRxClass* AcDbObjectIterator::isA() const {
    return desc();
}
AcRxClass* AcGiDrawable::desc() {
    return AcRxImpClass::Get(L"AcGiDrawable", AcRxObject::desc());
}
AcRxClass* AcGiDrawable::isA() const {
    return desc();
}
AcGiDrawable::AcGiDrawable() = default;
AcGiDrawable::~AcGiDrawable() = default;

// ---- Classes of the drawing; the class of an object that was closed is asked for by mistake ----

namespace {

AcRxClass* Checked(const AcDbObject* object, AcRxClass* c) {
    AcDbImpObject::Read(object, "isA");
    return c;
}

}  // namespace

AcRxClass* AcDbObject::desc() {
    return AcRxImpClass::Get(L"AcDbObject", AcGiDrawable::desc());
}
AcRxClass* AcDbObject::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbEntity::desc() {
    return AcRxImpClass::Get(L"AcDbEntity", AcDbObject::desc());
}
AcRxClass* AcDbEntity::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbText::desc() {
    return AcRxImpClass::Get(L"AcDbText", AcDbEntity::desc(), L"TEXT");
}
AcRxClass* AcDbText::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbAttribute::desc() {
    return AcRxImpClass::Get(L"AcDbAttribute", AcDbText::desc(), L"ATTRIB");
}
AcRxClass* AcDbAttribute::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbBlockReference::desc() {
    return AcRxImpClass::Get(L"AcDbBlockReference", AcDbEntity::desc(), L"INSERT");
}
AcRxClass* AcDbBlockReference::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbSymbolTable::desc() {
    return AcRxImpClass::Get(L"AcDbSymbolTable", AcDbObject::desc());
}
AcRxClass* AcDbSymbolTable::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbSymbolTableRecord::desc() {
    return AcRxImpClass::Get(L"AcDbSymbolTableRecord", AcDbObject::desc());
}
AcRxClass* AcDbSymbolTableRecord::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbBlockTable::desc() {
    return AcRxImpClass::Get(L"AcDbBlockTable", AcDbSymbolTable::desc(), L"TABLE");
}
AcRxClass* AcDbBlockTable::isA() const {
    return Checked(this, desc());
}
AcRxClass* AcDbBlockTableRecord::desc() {
    return AcRxImpClass::Get(L"AcDbBlockTableRecord", AcDbSymbolTableRecord::desc(), L"BLOCK_RECORD");
}
AcRxClass* AcDbBlockTableRecord::isA() const {
    return Checked(this, desc());
}
