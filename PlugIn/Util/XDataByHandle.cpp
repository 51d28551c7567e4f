#include <windows.h>

#include <dbid.h>
#include <dbmain.h>

#include <stdexcept>

#include "ArxHandles.h"
#include "Lib/ExceptionReport.h"
#include "XData.h"

namespace {

constexpr size_t kValueSize = 1024;

AcDbObjectId IdOf(const char* handle) {
    return ObjectIdOf(handle ? handle : "", "Can't get ACAD object id.");
}

}  // namespace

int SetEntityXData(const char* handle, const char* key, const char* value) {
    try {
        OpenObject<AcDbObject> object;
        if (object.Open(IdOf(handle), AcDb::kForWrite) != Acad::eOk) {
            throw std::runtime_error("Can't open object. Check that layer is not locked.");
        }
        return SetXDataString(object.get(), kXDataApplication, key, value);
    } catch (...) {
        ReportException("Failed to set entity data.", "PlugIn/Util/XDataByHandle", 43, "SetEntityXData");
        return -1;
    }
}

std::string GetEntityXData(const char* handle, const char* key) {
    try {
        OpenObject<AcDbObject> object;
        if (object.Open(IdOf(handle), AcDb::kForRead) != Acad::eOk) {
            throw std::runtime_error("Can't open object for reading.");
        }
        char value[kValueSize];
        const int length = GetXDataString(object.get(), kXDataApplication, key, value, sizeof value);
        return length > 0 ? std::string(value) : std::string();
    } catch (...) {
        ReportException("Failed to get entity data.", "PlugIn/Util/XDataByHandle", 58, "GetEntityXData");
        return std::string();
    }
}
