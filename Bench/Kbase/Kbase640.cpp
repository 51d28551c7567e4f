// The functions of Kbase640.dll, in the order of kbase.h. They implement the rows of docs/contracts/kbase.md. With an
// injected fault a function returns the injected code or its own failure value; a release cannot fail.
#include <utility>

#include "BenchControl.h"
#include "BenchKbase.h"
#include "BenchTexts.h"
#include "KbaseHandles.h"
#include "kbase.h"

using namespace bench;

namespace {

constexpr KB_HANDLE kNoDictionary = -1;
constexpr KB_HANDLE kNoDatabase = -2;

// Returns false and reports a violation for a null or empty string.
bool RequireText(const char* call, const char* what, const char* text) {
    if (text && *text) return true;
    ReportViolation(std::string(call) + " was called without " + what + ".");
    return false;
}

// Returns a class id's symbol. Returns an empty string and reports a violation when the pointer is null or the
// dictionary does not contain the id.
std::string SymbolOf(const char* call, const KbaseDictionary& dictionary, const KB_CLASSID* classId) {
    if (!classId) {
        ReportViolation(std::string(call) + " was called without a class id.");
        return {};
    }
    const std::string symbol = dictionary.ClassSymbol({classId->value[0], classId->value[1]});
    if (symbol.empty())
        ReportViolation(std::string(call) + " was called with the class id " + std::to_string(classId->value[0]) + ' ' +
                        std::to_string(classId->value[1]) + ", which its dictionary does not know.");
    return symbol;
}

void CheckModes(const char* function, int mode, int usualMode, int flags) {
    if (mode == usualMode && flags == 0) return;
    ReportViolation(std::string(function) + " was called with mode " + std::to_string(mode) + " and flags " +
                    std::to_string(flags) + ", not with " + std::to_string(usualMode) + " and 0.");
}

KB_HANDLE OpenDictionary(const char* path, int mode, int flags) {
    if (!RequireText("ddk_opendatabase", "a dictionary path", path)) return kNoDictionary;
    CheckModes("ddk_opendatabase", mode, 1, flags);
    KbaseDictionary dictionary;
    return dictionary.Read(path) ? AddDictionary(dictionary) : kNoDictionary;
}

int FindClassId(KB_HANDLE dictionary, const char* symbol, KB_CLASSID* classId) {
    const KbaseDictionary* opened = FindDictionary("ddk_classsymboltoID", dictionary);
    if (!symbol || !classId)
        ReportViolation("ddk_classsymboltoID was called without a class symbol or a place for the class id.");
    const KbaseClassId* id = opened && symbol && classId ? opened->FindClass(symbol) : nullptr;
    if (!id) return 0;
    classId->value[0] = (*id)[0];
    classId->value[1] = (*id)[1];
    return 1;
}

KB_HANDLE OpenBoth(const char* dictionaryPath, const char* databasePath, int flags) {
    if (!RequireText("kbopendatabase", "a dictionary path", dictionaryPath) ||
        !RequireText("kbopendatabase", "a database path", databasePath))
        return kNoDictionary;
    CheckModes("kbopendatabase", 0, 0, flags);
    OpenDatabase database;
    if (!database.dictionary.Read(dictionaryPath)) return kNoDictionary;
    if (!database.file.Read(databasePath)) return kNoDatabase;
    for (const auto& [name, record] : database.file.records())
        if (!database.dictionary.FindClass(record.className)) return kNoDatabase;
    return AddDatabase(std::move(database));
}

KB_RECORD Create(KB_HANDLE handle, const KB_CLASSID* classId, const char* key) {
    OpenDatabase* database = FindDatabase("kbcreaterec", handle);
    if (!database || !RequireText("kbcreaterec", "a key", key)) return nullptr;
    const std::string symbol = SymbolOf("kbcreaterec", database->dictionary, classId);
    // A key identifies one record of its class; a caller that replaces a record must delete it first.
    if (symbol.empty() || database->file.Find(symbol, key)) return nullptr;
    return AddRecord(handle, KbaseRecord{symbol, key, {}});
}

short Delete(KB_HANDLE handle, const KB_CLASSID* classId, const char* key) {
    OpenDatabase* database = FindDatabase("kbdeleterec", handle);
    if (!database || !RequireText("kbdeleterec", "a key", key)) return -1;
    const std::string symbol = SymbolOf("kbdeleterec", database->dictionary, classId);
    if (!database->file.Find(symbol, key)) return -1;
    return database->file.Delete(symbol, key) ? 0 : -2;
}

KB_RECORD Find(KB_HANDLE handle, const char* className, const char* key, int flags) {
    OpenDatabase* database = FindDatabase("kbfindrec", handle);
    if (!database || !RequireText("kbfindrec", "a class name", className) || !RequireText("kbfindrec", "a key", key))
        return nullptr;
    CheckModes("kbfindrec", 0, 0, flags);
    if (!database->dictionary.FindClass(className))
        ReportViolation("kbfindrec was called with the class " + LogText(className) +
                        ", which its dictionary does not know.");
    const KbaseRecord* record = database->file.Find(className, key);
    return record ? AddRecord(handle, *record) : nullptr;
}

// Returns the form of the value passed to kbinsertatt. Returns null and reports a violation when the attribute is
// unknown or the value does not match its form.
const KbaseAttributeForm* FormOfValue(KB_HANDLE handle, short attribute, const void* value, short count) {
    const OpenDatabase* database = FindDatabase("kbinsertatt", handle);
    if (!database) return nullptr;
    const KbaseAttributeForm* form = database->dictionary.FindAttribute(attribute);
    if (!form) {
        ReportViolation("kbinsertatt was called with the attribute " + std::to_string(attribute) +
                        ", which the dictionary does not know.");
        return nullptr;
    }
    const std::string about =
        "kbinsertatt was called for the attribute " + std::to_string(attribute) + ' ' + form->name;
    if (value && count >= form->minCount && count <= form->maxCount) return form;
    ReportViolation(value ? about + " with " + std::to_string(count) + (form->isText() ? " bytes" : " elements") +
                                ", not with " + std::to_string(form->minCount) + " to " +
                                std::to_string(form->maxCount) + "."
                          : about + " without a value.");
    return nullptr;
}

bool BelongsTo(const char* function, const OpenRecord& record, KB_HANDLE database) {
    if (record.database == database) return true;
    ReportViolation(std::string(function) + " was called with a record of the database " +
                    std::to_string(record.database) + " and the handle " + std::to_string(database) + ".");
    return false;
}

short Insert(KB_HANDLE database, KB_RECORD* record, short attribute, const KbaseAttributeForm& form,
             const std::string& bytes) {
    if (form.isText() && bytes.find('\0') != std::string::npos) {
        ReportViolation("kbinsertatt was called for the attribute " + std::to_string(attribute) + ' ' + form.name +
                        " with a length that counts a terminator.");
        return -1;
    }
    if (!record) ReportViolation("kbinsertatt was called without the address of a record.");
    OpenRecord* opened = record ? FindRecord("kbinsertatt", *record) : nullptr;
    if (!opened || !BelongsTo("kbinsertatt", *opened, database)) return -1;
    opened->record.attributes[attribute] = {form.name, bytes, form.Decode(bytes)};
    return 0;
}

KbaseRecord lastSaved;

short Save(KB_HANDLE handle, KB_RECORD pointer) {
    OpenDatabase* database = FindDatabase("kbsaverec", handle);
    const OpenRecord* opened = database ? FindRecord("kbsaverec", pointer) : nullptr;
    if (!opened || !BelongsTo("kbsaverec", *opened, handle)) return -1;
    if (!database->file.Save(opened->record)) return -2;
    lastSaved = opened->record;
    return 0;
}

std::string Arguments(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    return std::to_string(database) + ' ' + ClassLogText(database, classId) + ' ' + LogText(key);
}

// Logs and returns the injected code, or else the result of the work.
template <class Value, class Work>
Value Answer(Call& call, Value failure, Work work) {
    const Value value = call.fails() ? static_cast<Value>(call.failureCode(failure)) : work();
    call.result(value);
    return value;
}

template <class Work>
KB_RECORD AnswerRecord(Call& call, Work work) {
    const KB_RECORD record = call.fails() ? nullptr : work();
    call.result(record ? "record" : "null");
    return record;
}

}  // namespace

KB_HANDLE ddk_opendatabase(const char* dictionaryPath, int mode, int flags) {
    Call call("ddk_opendatabase", LogText(dictionaryPath) + ' ' + std::to_string(mode) + ' ' + std::to_string(flags));
    return Answer(call, kNoDictionary, [&] { return OpenDictionary(dictionaryPath, mode, flags); });
}

int ddk_classsymboltoID(KB_HANDLE dictionary, const char* classSymbol, KB_CLASSID* classId) {
    Call call("ddk_classsymboltoID", std::to_string(dictionary) + ' ' + LogText(classSymbol));
    if (call.corruptsOutputs() && classId) *classId = {{0x0BADF00D, 0x0BADF00D}};
    return Answer(call, 0, [&] { return FindClassId(dictionary, classSymbol, classId); });
}

void ddk_releasedatabase(KB_HANDLE dictionary) {
    Call call("ddk_releasedatabase", std::to_string(dictionary));
    RemoveDictionary(dictionary);
}

KB_HANDLE kbopendatabase(const char* dictionaryPath, const char* databasePath, int flags) {
    Call call("kbopendatabase", LogText(dictionaryPath) + ' ' + LogText(databasePath) + ' ' + std::to_string(flags));
    return Answer(call, kNoDictionary, [&] { return OpenBoth(dictionaryPath, databasePath, flags); });
}

void kbclosedatabase(KB_HANDLE database) {
    Call call("kbclosedatabase", std::to_string(database));
    RemoveDatabase(database);
}

KB_RECORD kbcreaterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    Call call("kbcreaterec", Arguments(database, classId, key));
    return AnswerRecord(call, [&] { return Create(database, classId, key); });
}

short kbdeleterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    Call call("kbdeleterec", Arguments(database, classId, key));
    return Answer(call, short{-1}, [&] { return Delete(database, classId, key); });
}

KB_RECORD kbfindrec(KB_HANDLE database, const char* className, const char* key, int flags) {
    Call call("kbfindrec",
              std::to_string(database) + ' ' + LogText(className) + ' ' + LogText(key) + ' ' + std::to_string(flags));
    return AnswerRecord(call, [&] { return Find(database, className, key, flags); });
}

short kbinsertatt(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count) {
    const KbaseAttributeForm* form = FormOfValue(database, attribute, value, count);
    std::string bytes, shown = "unreadable";
    if (form) {
        bytes.assign(static_cast<const char*>(value), form->elementSize() * static_cast<size_t>(count));
        shown = form->isText() ? Quoted(bytes) : std::to_string(bytes.size()) + " bytes " + Hex(bytes);
    }
    Call call("kbinsertatt", std::to_string(attribute) + " count=" + std::to_string(count) + ' ' + shown);
    return Answer(call, short{-1},
                  [&] { return form ? Insert(database, record, attribute, *form, bytes) : short{-1}; });
}

short kbsaverec(KB_HANDLE database, KB_RECORD record) {
    Call call("kbsaverec", std::to_string(database) + ' ' + LogText(record));
    return Answer(call, short{-1}, [&] { return Save(database, record); });
}

void kbreleaserec(KB_RECORD record) {
    Call call("kbreleaserec", LogText(record));
    RemoveRecord(record);
}

void kbsetwarningmode(int mode) {
    Call call("kbsetwarningmode", std::to_string(mode));
    if (mode != 0 && mode != 1)
        ReportViolation("kbsetwarningmode was called with " + std::to_string(mode) + ", which is neither on nor off.");
}

KbaseRecord bench::LastSavedRecord() {
    return lastSaved;
}
