// The dictionaries (handles from 101), databases (from 1) and records that a caller of Kbase640.dll has open. A new
// handle is the lowest free number, so equal runs produce equal call logs. The two ranges are disjoint, which detects
// mixed-up handles. Every Find function reports a violation that names the call when its handle is invalid. Open
// handles are tracked.
#pragma once

#include <string>

#include "KbaseDictionary.h"
#include "KbaseFile.h"
#include "kbase.h"

namespace bench {

struct OpenDatabase {
    KbaseDictionary dictionary;
    KbaseFile file;
};

struct OpenRecord {
    KB_HANDLE database;  // 0 after the database was closed
    KbaseRecord record;
};

KB_HANDLE AddDictionary(KbaseDictionary dictionary);
KB_HANDLE AddDatabase(OpenDatabase database);
// Tracks the new record until kbreleaserec.
KB_RECORD AddRecord(KB_HANDLE database, KbaseRecord record);

// Return null and report a violation when the handle is not open.
KbaseDictionary* FindDictionary(const char* call, KB_HANDLE handle);
OpenDatabase* FindDatabase(const char* call, KB_HANDLE handle);
// Also returns null when the record's database is closed.
OpenRecord* FindRecord(const char* call, KB_RECORD record);

// Closing a handle 0 that was never opened is allowed and does nothing, because callers start with 0 and treat only
// negative handles as not open.
void RemoveDictionary(KB_HANDLE handle);
// The database's records stay outstanding.
void RemoveDatabase(KB_HANDLE handle);
void RemoveRecord(KB_RECORD record);

// Strings for the call log: 'text' or null; class symbol and key of a record, even one that is not open.
std::string LogText(const char* text);
std::string LogText(KB_RECORD record);
// Returns the class's symbol, or its numbers when the database does not know it.
std::string ClassLogText(KB_HANDLE database, const KB_CLASSID* classId);

}  // namespace bench
