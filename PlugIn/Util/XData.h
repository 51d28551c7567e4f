// Required library; nothing in this module calls it.
// Named values in the extended entity data of drawing objects: items "key=value" in the chain of a registered
// application. Keys have 1 to 39 characters without "="; case and outer blanks do not matter. Other keys and other
// applications' data are not changed. Objects must be open for the access and stay open.
#pragma once

#include <cstddef>
#include <string>

class AcDbObject;

// The module's own application name.
inline constexpr char kXDataApplication[] = "SORV";

// Set a value, and register the application when the object has no data of it. Return 0; -1 for a bad argument or key,
// when memory runs out or the drawing refuses; -2 for an empty value. Numbers have `precision` decimals, a point is
// "x,y,z".
int SetXDataString(AcDbObject* object, const char* application, const char* key, const char* value);
int SetXDataFloat(AcDbObject* object, const char* application, const char* key, float value, int precision);
int SetXDataDouble(AcDbObject* object, const char* application, const char* key, double value, int precision);
int SetXDataPoint(AcDbObject* object, const char* application, const char* key, double x, double y, double z,
                  int precision);

// Returns the length of the value, which is truncated to size - 1 characters; -1 for a bad argument, -2 for no such
// value.
int GetXDataString(const AcDbObject* object, const char* application, const char* key, char* buffer, size_t size);
// Return 1, 0 when the value is not a number (or three), or GetXDataString's negative result. They write the outputs
// only with result 1.
int GetXDataFloat(const AcDbObject* object, const char* application, const char* key, float& value);
int GetXDataDouble(const AcDbObject* object, const char* application, const char* key, double& value);
int GetXDataPoint(const AcDbObject* object, const char* application, const char* key, double& x, double& y, double& z);

// Returns 0, also when there is nothing to remove; -1 for a bad argument or when the drawing refuses.
int RemoveXDataKey(AcDbObject* object, const char* application, const char* key);

// Size of ParseKeyValue's key buffer: 39 characters and the terminator.
inline constexpr size_t kXDataKeySize = 40;
// Splits "key=value". Stores the key, trimmed and in upper case, in `key` (kXDataKeySize characters), and the rest,
// truncated to valueSize - 1 characters, in `value`. Returns the length of the value, or -1 when the entry is no pair.
int ParseKeyValue(const char* entry, char* key, char* value, size_t valueSize);

// Set and get a value by an entity's handle (hexadecimal text) under the module's own application name. SetEntityXData
// returns SetXDataString's result, or -1 after reporting why the entity cannot be opened. GetEntityXData returns at
// most 1023 characters, or an empty text; it reports only an entity that cannot be opened.
int SetEntityXData(const char* handle, const char* key, const char* value);
std::string GetEntityXData(const char* handle, const char* key);
