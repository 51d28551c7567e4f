#include "KbaseHandles.h"

#include <map>
#include <memory>
#include <utility>

#include "BenchControl.h"
#include "BenchTexts.h"

namespace bench {
namespace {

constexpr KB_HANDLE kFirstDatabase = 1;
constexpr KB_HANDLE kFirstDictionary = 101;

struct Open {
    std::map<KB_HANDLE, KbaseDictionary> dictionaries;
    std::map<KB_HANDLE, OpenDatabase> databases;
    std::map<KB_RECORD, std::unique_ptr<OpenRecord>> records;
};

Open& open() {
    static Open instance;
    return instance;
}

template <class Kind>
KB_HANDLE Add(std::map<KB_HANDLE, Kind>& kept, KB_HANDLE handle, Kind opened) {
    while (kept.count(handle))
        ++handle;
    kept.emplace(handle, std::move(opened));
    return handle;
}

std::string Name(const KbaseRecord& record) {
    return record.className + ' ' + record.key;
}

template <class Kind>
Kind* Find(std::map<KB_HANDLE, Kind>& kept, const char* call, const char* kind, KB_HANDLE handle) {
    const auto found = kept.find(handle);
    if (found != kept.end()) return &found->second;
    ReportViolation(std::string(call) + " was called with " + std::to_string(handle) + ", which is not an open " +
                    kind + ".");
    return nullptr;
}

}  // namespace

KB_HANDLE AddDictionary(KbaseDictionary dictionary) {
    const KB_HANDLE handle = Add(open().dictionaries, kFirstDictionary, std::move(dictionary));
    TrackAcquire("dictionary", std::to_string(handle));
    return handle;
}

KB_HANDLE AddDatabase(OpenDatabase database) {
    const KB_HANDLE handle = Add(open().databases, kFirstDatabase, std::move(database));
    TrackAcquire("database", std::to_string(handle));
    return handle;
}

KB_RECORD AddRecord(KB_HANDLE database, KbaseRecord record) {
    TrackAcquire("record", Name(record));
    auto opened = std::make_unique<OpenRecord>(OpenRecord{database, std::move(record)});
    const KB_RECORD handle = opened.get();
    open().records.emplace(handle, std::move(opened));
    return handle;
}

KbaseDictionary* FindDictionary(const char* call, KB_HANDLE handle) {
    return Find(open().dictionaries, call, "dictionary", handle);
}

OpenDatabase* FindDatabase(const char* call, KB_HANDLE handle) {
    return Find(open().databases, call, "database", handle);
}

OpenRecord* FindRecord(const char* call, KB_RECORD record) {
    const auto found = open().records.find(record);
    if (found == open().records.end()) {
        ReportViolation(std::string(call) + " was called with a pointer that is not an open record.");
        return nullptr;
    }
    if (found->second->database != 0) return found->second.get();
    ReportViolation(std::string(call) + " was called with the record " + Name(found->second->record) +
                    " after its database was closed.");
    return nullptr;
}

void RemoveDictionary(KB_HANDLE handle) {
    if (handle == 0 || !FindDictionary("ddk_releasedatabase", handle)) return;
    open().dictionaries.erase(handle);
    TrackRelease("dictionary", std::to_string(handle));
}

void RemoveDatabase(KB_HANDLE handle) {
    if (handle == 0 || !FindDatabase("kbclosedatabase", handle)) return;
    open().databases.erase(handle);
    TrackRelease("database", std::to_string(handle));
    for (auto& [pointer, record] : open().records)
        if (record->database == handle) record->database = 0;
}

void RemoveRecord(KB_RECORD record) {
    if (!record) return;
    FindRecord("kbreleaserec", record);  // a late release is a violation, but still counts as a release
    const auto found = open().records.find(record);
    if (found == open().records.end()) return;
    TrackRelease("record", Name(found->second->record));
    open().records.erase(found);
}

std::string LogText(const char* text) {
    return text ? Quoted(text) : "null";
}

std::string LogText(KB_RECORD record) {
    if (!record) return "null";
    const auto found = open().records.find(record);
    if (found == open().records.end()) return "unknown";
    return found->second->record.className + ' ' + LogText(found->second->record.key.c_str());
}

std::string ClassLogText(KB_HANDLE database, const KB_CLASSID* classId) {
    if (!classId) return "null";
    const auto found = open().databases.find(database);
    const std::string symbol = found == open().databases.end()
                                   ? std::string()
                                   : found->second.dictionary.ClassSymbol({classId->value[0], classId->value[1]});
    if (!symbol.empty()) return symbol;
    return std::to_string(classId->value[0]) + ':' + std::to_string(classId->value[1]);
}

}  // namespace bench
