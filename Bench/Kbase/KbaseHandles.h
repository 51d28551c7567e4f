// What the caller of Kbase640.dll has open: dictionaries (handles from 101), databases (from 1) and records. Handles
// are the lowest free numbers, so equal runs give equal journals, and the two kinds never share one, so a mix-up is
// seen. Every finder accuses in a full sentence, naming the call, when its handle is none. What is open is in the
// balance.
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
    KB_HANDLE database;  // 0 once the database was closed
    KbaseRecord record;
};

KB_HANDLE AddDictionary(KbaseDictionary dictionary);
KB_HANDLE AddDatabase(OpenDatabase database);
// The new record is owed back to kbreleaserec.
KB_RECORD AddRecord(KB_HANDLE database, KbaseRecord record);

// Null, after an accusation, when the handle is not open.
KbaseDictionary* FindDictionary(const char* call, KB_HANDLE handle);
OpenDatabase* FindDatabase(const char* call, KB_HANDLE handle);
// Null as well when the record's database is closed.
OpenRecord* FindRecord(const char* call, KB_RECORD record);

// A handle 0 that was never opened may be given back, and nothing happens: callers begin with 0 and treat only negative
// handles as not open.
void RemoveDictionary(KB_HANDLE handle);
// Records of the database stay owed.
void RemoveDatabase(KB_HANDLE handle);
void RemoveRecord(KB_RECORD record);

// Texts for the journal: 'text' or null; the class symbol and key of a record, also of one that is not open.
std::string Shown(const char* text);
std::string Shown(KB_RECORD record);
// A class by its symbol, or by its numbers where the database does not know it.
std::string ShownClass(KB_HANDLE database, const KB_CLASSID* classId);

// A class id's symbol; empty, after an accusation, when the pointer is null or the dictionary knows no such id.
std::string SymbolOf(const char* call, const KbaseDictionary& dictionary, const KB_CLASSID* classId);
// False, after an accusation, for a null or empty text.
bool TextGiven(const char* call, const char* what, const char* text);

}  // namespace bench
