// The functions of Kbase640.dll that work on one open record. They imitate the rows "record" of the ledger
// docs/contracts/kbase.md. A planned failure gives the function's own failure value; a release cannot fail.
#include "BenchControl.h"
#include "BenchTexts.h"
#include "KbaseHandles.h"

using bench::Shown;

namespace {

// The form of the value that a caller of kbinsertatt hands over; null, after an accusation, when it cannot be told.
const bench::KbaseAttributeForm* FormOf(KB_HANDLE handle, short attribute) {
    const bench::OpenDatabase* database = bench::FindDatabase("kbinsertatt", handle);
    if (!database) return nullptr;
    const bench::KbaseAttributeForm* form = database->dictionary.FindAttribute(attribute);
    if (!form)
        bench::Accuse("kbinsertatt was called with the attribute " + std::to_string(attribute) +
                      ", which the dictionary does not know.");
    return form;
}

bool CountFits(const bench::KbaseAttributeForm& form, short attribute, const void* value, short count) {
    const std::string about = "kbinsertatt was called for the attribute " + std::to_string(attribute) + ' ' + form.name;
    if (!value) {
        bench::Accuse(about + " without a value.");
        return false;
    }
    if (count >= form.fewest && count <= form.most) return true;
    bench::Accuse(about + " with " + std::to_string(count) + (form.isText() ? " bytes" : " elements") + ", not with " +
                  std::to_string(form.fewest) + " to " + std::to_string(form.most) + ".");
    return false;
}

// The value as bytes, and how the journal shows it.
std::string ValueBytes(const bench::KbaseAttributeForm& form, const void* value, short count) {
    return std::string(static_cast<const char*>(value), form.elementSize() * static_cast<size_t>(count));
}

std::string ShownValue(const bench::KbaseAttributeForm& form, const std::string& bytes) {
    if (form.isText()) return ' ' + bench::Quoted(bytes);
    return ' ' + std::to_string(bytes.size()) + " bytes " + bench::Hex(bytes);
}

bool TextIsClean(const bench::KbaseAttributeForm& form, short attribute, const std::string& bytes) {
    if (!form.isText() || bytes.find('\0') == std::string::npos) return true;
    bench::Accuse("kbinsertatt was called for the attribute " + std::to_string(attribute) + ' ' + form.name +
                  " with a length that counts a terminator.");
    return false;
}

bool BelongsTo(const char* call, const bench::OpenRecord& record, KB_HANDLE database) {
    if (record.database == database) return true;
    bench::Accuse(std::string(call) + " was called with a record of the database " + std::to_string(record.database) +
                  " and the handle " + std::to_string(database) + ".");
    return false;
}

short Save(KB_HANDLE handle, KB_RECORD pointer) {
    bench::OpenDatabase* database = bench::FindDatabase("kbsaverec", handle);
    const bench::OpenRecord* opened = database ? bench::FindRecord("kbsaverec", pointer) : nullptr;
    if (!opened || !BelongsTo("kbsaverec", *opened, handle)) return -1;
    const bench::KbaseRecord& record = opened->record;
    if (bench::KbaseRecord* saved = bench::FindKbaseRecord(database->records, record.className, record.key))
        *saved = record;
    else
        database->records.push_back(record);
    std::string error;
    return bench::WriteKbaseDatabase(database->path, database->records, error) ? 0 : -2;
}

}  // namespace

short kbinsertatt(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count) {
    const bench::KbaseAttributeForm* form = FormOf(database, attribute);
    const bool readable = form && CountFits(*form, attribute, value, count);
    const std::string bytes = readable ? ValueBytes(*form, value, count) : std::string();
    bench::Call call("kbinsertatt", std::to_string(attribute) + " count=" + std::to_string(count) +
                                        (readable ? ShownValue(*form, bytes) : " unreadable"));
    short status = static_cast<short>(call.failureCode(-1));
    if (!call.fails() && readable && TextIsClean(*form, attribute, bytes)) {
        if (!record) bench::Accuse("kbinsertatt was called without the address of a record.");
        bench::OpenRecord* opened = record ? bench::FindRecord("kbinsertatt", *record) : nullptr;
        if (opened && BelongsTo("kbinsertatt", *opened, database)) {
            opened->record.attributes[attribute] = bench::KbaseAttribute{form->name, bytes, form->Decode(bytes)};
            status = 0;
        }
    }
    call.result(status);
    return status;
}

short kbsaverec(KB_HANDLE database, KB_RECORD record) {
    bench::Call call("kbsaverec", std::to_string(database) + ' ' + Shown(record));
    const short status = call.fails() ? static_cast<short>(call.failureCode(-1)) : Save(database, record);
    call.result(status);
    return status;
}

void kbreleaserec(KB_RECORD record) {
    bench::Call call("kbreleaserec", Shown(record));
    bench::RemoveRecord(record);
}
