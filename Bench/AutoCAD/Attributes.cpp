// Texts and attributes.
#include "HostObjects.h"
#include "HostStrings.h"

using bench::HostCall;
using bench::Record;
using bench::RecordKind;

namespace {

const ACHAR* Lend(const AcDbObject* object, const char* name, std::wstring Record::*field) {
    HostCall call(name, AcDbImpObject::Name(object));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(object, name);
    return record == nullptr ? nullptr : (record->*field).c_str();
}

ACHAR* Give(const AcDbObject* object, const char* name, std::wstring Record::*field) {
    HostCall call(name, AcDbImpObject::Name(object));
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(object, name);
    if (record == nullptr) return nullptr;
    return bench::HandOut(record->*field, std::string(name) + " of " + AcDbImpObject::Name(object));
}

Acad::ErrorStatus Copy(const AcDbObject* object, const char* name, std::wstring Record::*field, AcString& text) {
    HostCall call(name, AcDbImpObject::Name(object));
    if (call.fails()) return call.failed(Acad::eNotOpenForRead);
    const Record* record = AcDbImpObject::Read(object, name);
    if (record == nullptr) return call.done(Acad::eNotOpenForRead);
    text = (record->*field).c_str();
    return call.done(Acad::eOk);
}

Acad::ErrorStatus Change(AcDbObject* object, const char* name, std::wstring Record::*field, const ACHAR* value) {
    HostCall call(name, AcDbImpObject::Name(object) + " " + bench::Narrow(value));
    if (call.fails()) return call.failed(Acad::eNotOpenForWrite);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(object, name, status);
    if (record == nullptr) return call.done(status);
    if (value == nullptr) return call.done(Acad::eInvalidInput);
    record->*field = value;
    return call.done(Acad::eOk);
}

}  // namespace

AcDbText::AcDbText() {
    AcDbImpObject::Begin(this, RecordKind::kText, L"AcDbText");
}
AcDbText::~AcDbText() = default;

Acad::ErrorStatus AcDbText::textString(AcString& sText) const {
    return Copy(this, "AcDbText::textString", &Record::text, sText);
}
ACHAR* AcDbText::textString() const {
    return Give(this, "AcDbText::textString", &Record::text);
}
const ACHAR* AcDbText::textStringConst() const {
    return Lend(this, "AcDbText::textStringConst", &Record::text);
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* newVal) {
    return Change(this, "AcDbText::setTextString", &Record::text, newVal);
}

AcDbAttribute::AcDbAttribute() {
    AcDbImpObject::Begin(this, RecordKind::kAttribute, L"AcDbAttribute");
}
AcDbAttribute::~AcDbAttribute() = default;

Acad::ErrorStatus AcDbAttribute::tag(AcString& sTag) const {
    return Copy(this, "AcDbAttribute::tag", &Record::tag, sTag);
}
ACHAR* AcDbAttribute::tag() const {
    return Give(this, "AcDbAttribute::tag", &Record::tag);
}
const ACHAR* AcDbAttribute::tagConst() const {
    return Lend(this, "AcDbAttribute::tagConst", &Record::tag);
}
Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* newVal) {
    return Change(this, "AcDbAttribute::setTag", &Record::tag, newVal);
}
