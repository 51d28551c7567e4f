// AcDbText and AcDbAttribute.
#include "AcDbObject.h"
#include "Texts.h"
#include "dbents.h"

using bench::ArxCall;
using bench::Record;

ACDB_DEFINE_MEMBERS(AcDbText, AcDbEntity)
AcDbText::AcDbText() = default;
AcDbText::~AcDbText() = default;

const ACHAR* AcDbText::textStringConst() const {
    return ReadValue<const ACHAR*>(this, "AcDbText::textStringConst", nullptr,
                                   [](const Record& record) { return record.text.c_str(); });
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* newVal) {
    ArxCall call("AcDbText::setTextString", AcDbObjectOpening::Name(this) + " " + bench::LogText(newVal));
    if (call.fails()) return call.failed(Acad::eNotOpenForWrite);
    Acad::ErrorStatus status;
    Record* record = AcDbObjectOpening::Write(this, "setTextString", status);
    if (record == nullptr) return call.done(status);
    if (newVal == nullptr) return call.done(Acad::eInvalidInput);
    record->text = newVal;
    return call.done(Acad::eOk);
}

ACDB_DEFINE_MEMBERS(AcDbAttribute, AcDbText)
AcDbAttribute::AcDbAttribute() = default;
AcDbAttribute::~AcDbAttribute() = default;

const ACHAR* AcDbAttribute::tagConst() const {
    return ReadValue<const ACHAR*>(this, "AcDbAttribute::tagConst", nullptr,
                                   [](const Record& record) { return record.tag.c_str(); });
}
