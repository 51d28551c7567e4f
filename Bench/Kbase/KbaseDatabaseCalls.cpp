// The functions of Kbase640.dll that work on a whole database: opening, closing, and finding, making and deleting
// records. They imitate the rows "database" of the ledger docs/contracts/kbase.md. A planned failure gives the
// function's own failure value.
#include <utility>

#include "BenchControl.h"
#include "KbaseHandles.h"

using bench::Shown;

namespace {

constexpr KB_HANDLE kNoDictionary = -1;
constexpr KB_HANDLE kNoDatabase = -2;

KB_HANDLE Open(const char* dictionaryPath, const char* databasePath) {
    bench::OpenDatabase database;
    database.path = databasePath;
    std::string error;
    if (!database.dictionary.Read(dictionaryPath, error)) return kNoDictionary;
    if (!bench::ReadKbaseDatabase(databasePath, database.records, error)) return kNoDatabase;
    for (const bench::KbaseRecord& record : database.records)
        if (!database.dictionary.FindClass(record.className)) return kNoDatabase;
    return bench::AddDatabase(std::move(database));
}

std::string Arguments(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    return std::to_string(database) + ' ' + bench::ShownClass(database, classId) + ' ' + Shown(key);
}

short Delete(KB_HANDLE handle, const KB_CLASSID* classId, const char* key) {
    bench::OpenDatabase* database = bench::FindDatabase("kbdeleterec", handle);
    if (!database || !bench::TextGiven("kbdeleterec", "a key", key)) return -1;
    const std::string symbol = bench::SymbolOf("kbdeleterec", database->dictionary, classId);
    const bench::KbaseRecord* record = bench::FindKbaseRecord(database->records, symbol, key);
    if (!record) return -1;
    database->records.erase(database->records.begin() + (record - database->records.data()));
    std::string error;
    return bench::WriteKbaseDatabase(database->path, database->records, error) ? 0 : -2;
}

KB_RECORD Create(KB_HANDLE handle, const KB_CLASSID* classId, const char* key) {
    bench::OpenDatabase* database = bench::FindDatabase("kbcreaterec", handle);
    if (!database || !bench::TextGiven("kbcreaterec", "a key", key)) return nullptr;
    const std::string symbol = bench::SymbolOf("kbcreaterec", database->dictionary, classId);
    // A key names one record of its class: who wants to replace a record deletes it first.
    if (symbol.empty() || bench::FindKbaseRecord(database->records, symbol, key)) return nullptr;
    return bench::AddRecord(handle, bench::KbaseRecord{symbol, key, {}});
}

KB_RECORD Find(KB_HANDLE handle, const char* className, const char* key, int flags) {
    bench::OpenDatabase* database = bench::FindDatabase("kbfindrec", handle);
    if (!database || !bench::TextGiven("kbfindrec", "a class name", className) ||
        !bench::TextGiven("kbfindrec", "a key", key))
        return nullptr;
    if (flags != 0) bench::Accuse("kbfindrec was called with flags " + std::to_string(flags) + ", not with 0.");
    if (!database->dictionary.FindClass(className))
        bench::Accuse("kbfindrec was called with the class " + Shown(className) +
                      ", which its dictionary does not know.");
    const bench::KbaseRecord* record = bench::FindKbaseRecord(database->records, className, key);
    return record ? bench::AddRecord(handle, *record) : nullptr;
}

}  // namespace

KB_HANDLE kbopendatabase(const char* dictionaryPath, const char* databasePath, int flags) {
    bench::Call call("kbopendatabase", Shown(dictionaryPath) + ' ' + Shown(databasePath) + ' ' + std::to_string(flags));
    KB_HANDLE handle = static_cast<KB_HANDLE>(call.failureCode(kNoDictionary));
    if (!call.fails() && bench::TextGiven("kbopendatabase", "a dictionary path", dictionaryPath) &&
        bench::TextGiven("kbopendatabase", "a database path", databasePath)) {
        if (flags != 0)
            bench::Accuse("kbopendatabase was called with flags " + std::to_string(flags) + ", not with 0.");
        handle = Open(dictionaryPath, databasePath);
    }
    call.result(handle);
    return handle;
}

void kbclosedatabase(KB_HANDLE database) {
    bench::Call call("kbclosedatabase", std::to_string(database));
    bench::RemoveDatabase(database);
}

KB_RECORD kbcreaterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    bench::Call call("kbcreaterec", Arguments(database, classId, key));
    const KB_RECORD record = call.fails() ? nullptr : Create(database, classId, key);
    call.result(record ? "record" : "null");
    return record;
}

short kbdeleterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key) {
    bench::Call call("kbdeleterec", Arguments(database, classId, key));
    const short status = call.fails() ? static_cast<short>(call.failureCode(-1)) : Delete(database, classId, key);
    call.result(status);
    return status;
}

KB_RECORD kbfindrec(KB_HANDLE database, const char* className, const char* key, int flags) {
    bench::Call call("kbfindrec", std::to_string(database) + ' ' + Shown(className) + ' ' + Shown(key) + ' ' +
                                      std::to_string(flags));
    const KB_RECORD record = call.fails() ? nullptr : Find(database, className, key, flags);
    call.result(record ? "record" : "null");
    return record;
}
