#include "Util/XData.h"

#include <windows.h>

#include <dbid.h>
#include <dbmain.h>

#include "Lib/ExceptionReport.h"
#include "Lib/Text.h"
#include "Util/ArxHandles.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/XDataByHandle";
constexpr size_t kValueSize = 1024;

AcDbObjectId IdOf(const char* handle) {
    return ObjectIdOf(OrEmpty(handle), "Can't get ACAD object id.");
}

}  // namespace

int SetEntityXData(const char* handle, const char* key, const char* value) {
    return ReportOnThrow({"Failed to set entity data.", kSource, 43, "SetEntityXData"}, -1, [&] {
        OpenObject<AcDbObject> object;
        if (object.Open(IdOf(handle), AcDb::kForWrite) != Acad::eOk) {
            throw "Can't open object. Check that layer is not locked.";
        }
        return SetXDataString(object.get(), kXDataApplication, key, value);
    });
}

std::string GetEntityXData(const char* handle, const char* key) {
    return ReportOnThrow({"Failed to get entity data.", kSource, 58, "GetEntityXData"}, std::string(), [&] {
        OpenObject<AcDbObject> object;
        if (object.Open(IdOf(handle), AcDb::kForRead) != Acad::eOk) {
            throw "Can't open object for reading.";
        }
        char value[kValueSize];
        const int length = GetXDataString(object.get(), kXDataApplication, key, value, sizeof value);
        return length > 0 ? std::string(value) : std::string();
    });
}
