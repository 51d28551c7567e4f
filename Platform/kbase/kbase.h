// Calls of the record database library Kbase640.dll, in the form in which they are used. Handles of dictionaries and
// databases are 16-bit numbers, negative when the call failed; a record handle is an opaque pointer, null when there is
// no record. Texts are narrow and need no terminator where a length is given.
#pragma once

#ifndef KBASE_API
#define KBASE_API __declspec(dllimport)
#endif

typedef short KB_HANDLE;
typedef void* KB_RECORD;

// Class id as the dictionary gives it: filled by ddk_classsymboltoID, passed on by address.
struct KB_CLASSID {
    long value[2];
};

extern "C" {

// Opens a dictionary; `mode` 1 reads. Negative: no such dictionary, or not one.
KBASE_API KB_HANDLE ddk_opendatabase(const char* dictionaryPath, int mode, int flags);
// Zero when the dictionary knows no class of that symbol (exact letters).
KBASE_API int ddk_classsymboltoID(KB_HANDLE dictionary, const char* classSymbol, KB_CLASSID* classId);
KBASE_API void ddk_releasedatabase(KB_HANDLE dictionary);

// Opens a database with its dictionary for reading and writing. Negative: one of the two cannot be used.
KBASE_API KB_HANDLE kbopendatabase(const char* dictionaryPath, const char* databasePath, int flags);
KBASE_API void kbclosedatabase(KB_HANDLE database);

// Makes a record of a class under a key; it reaches the file with kbsaverec. The caller releases it.
KBASE_API KB_RECORD kbcreaterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key);
// Deletes the record of a class under a key; negative when there is none.
KBASE_API short kbdeleterec(KB_HANDLE database, const KB_CLASSID* classId, const char* key);
// Finds a record by class name and key; null when there is none. The caller releases it.
KBASE_API KB_RECORD kbfindrec(KB_HANDLE database, const char* className, const char* key, int flags);
// Sets an attribute: a text with its length in bytes, or binary elements with their number.
KBASE_API short kbinsertatt(KB_HANDLE database, KB_RECORD* record, short attribute, const void* value, short count);
// Writes the record into the database; negative on failure.
KBASE_API short kbsaverec(KB_HANDLE database, KB_RECORD record);
// A null record is no error.
KBASE_API void kbreleaserec(KB_RECORD record);

// 0 switches the library's own message boxes off.
KBASE_API void kbsetwarningmode(int mode);

}  // extern "C"
