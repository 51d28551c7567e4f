// Functions of the record database library Kbase640.dll, as this module uses them. Handles of dictionaries and
// databases are 16-bit numbers, negative after a failed call. A record handle is an opaque pointer, null when there is
// no record. Strings are narrow; with a length they need no terminator.
#pragma once

#ifndef KBASE_API
#define KBASE_API __declspec(dllimport)
#endif

typedef short KB_HANDLE;
typedef void* KB_RECORD;

// A class id. ddk_classsymboltoID fills it; other functions take its address.
struct KB_CLASSID {
    long value[2];
};

extern "C" {

// Opens a dictionary; `mode` 1 means reading. Returns a negative value when the file is missing or not a dictionary.
KBASE_API KB_HANDLE ddk_opendatabase(const char* dictionaryPath, int mode, int flags);
// Returns 0 when the dictionary has no class of that symbol. Case-sensitive.
KBASE_API int ddk_classsymboltoID(KB_HANDLE dictionary, const char* classSymbol, KB_CLASSID* classId);
KBASE_API void ddk_releasedatabase(KB_HANDLE dictionary);

// Opens a database and its dictionary for reading and writing. Returns a negative value when either is unusable.
KBASE_API KB_HANDLE kbopendatabase(const char* dictionaryPath, const char* databasePath, int flags);
KBASE_API void kbclosedatabase(KB_HANDLE database);

// Creates a record of a class under a key; kbsaverec writes it to the file. The caller releases it.
KBASE_API KB_RECORD kbcreaterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key);
// Deletes the record of a class under a key. Returns a negative value when there is none.
KBASE_API short kbdeleterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key);
// Finds a record by class name and key. Returns null when there is none. The caller releases it.
KBASE_API KB_RECORD kbfindrec(KB_HANDLE database, const char* className, const char* key, int flags);
// Sets an attribute to a string with its length in bytes, or to binary elements with their number.
KBASE_API short kbinsertatt(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count);
// Writes the record to the database. Returns a negative value on failure.
KBASE_API short kbsaverec(KB_HANDLE database, KB_RECORD record);
// Accepts null.
KBASE_API void kbreleaserec(KB_RECORD record);

// Mode 0 switches off the library's message boxes.
KBASE_API void kbsetwarningmode(int mode);

}  // extern "C"
