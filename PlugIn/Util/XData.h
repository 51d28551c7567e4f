// Named values in the extended entity data of drawing objects: text items "key=value" in the chain of a registered
// application. Keys have 1 to 39 characters and no "=", and are compared without regard to
// case and outer blanks; other keys and other applications' data stay untouched. Failure is told by negative results;
// objects must be open for the access in question and stay open.
#pragma once

#include <cstddef>
#include <string>

class AcDbObject;

// The module's own application name.
inline constexpr char kXDataApplication[] = "SORV";

// Writers: 0; -1 bad argument or key, allocation failure or refusal by the drawing; -2 empty value. The application is
// registered when the object has no data of it yet. Numbers are written in decimals with `precision` places, a point as
// "x,y,z".
int SetXDataString(AcDbObject* object, const char* application, const char* key, const char* value);
int SetXDataFloat(AcDbObject* object, const char* application, const char* key, float value, int precision);
int SetXDataDouble(AcDbObject* object, const char* application, const char* key, double value, int precision);
int SetXDataPoint(AcDbObject* object, const char* application, const char* key, double x, double y, double z,
                  int precision);

// Length of the value, which is cut to size - 1 characters; -1 bad argument, -2 no such value.
int GetXDataString(const AcDbObject* object, const char* application, const char* key, char* buffer, size_t size);
// 1 when the value was read as a number (or three), 0 when it is none, otherwise GetXDataString's negative result. The
// outputs are written only with result 1.
int GetXDataFloat(const AcDbObject* object, const char* application, const char* key, float& value);
int GetXDataDouble(const AcDbObject* object, const char* application, const char* key, double& value);
int GetXDataPoint(const AcDbObject* object, const char* application, const char* key, double& x, double& y, double& z);

// 0, also when there is nothing to remove; -1 bad argument or refusal by the drawing.
int RemoveXDataKey(AcDbObject* object, const char* application, const char* key);

// Key buffer of ParseKeyValue: 39 characters and the terminator.
inline constexpr size_t kXDataKeySize = 40;
// Takes "key=value" apart. `key` has kXDataKeySize characters and receives the key trimmed and in upper case; `value`
// receives the rest, cut to valueSize - 1 characters. Length of the value, or -1 when the entry is no such pair.
int ParseKeyValue(const char* entry, char* key, char* value, size_t valueSize);

// The same by an entity's handle (hexadecimal text), with the module's own application name. Failures are told on the
// command line; SetEntityXData gives 0 or a negative result, GetEntityXData at most 1023 characters or an empty text.
int SetEntityXData(const char* handle, const char* key, const char* value);
std::string GetEntityXData(const char* handle, const char* key);
