#include <windows.h>

#include "XData.h"

#include <acdb.h>
#include <acedads.h>
#include <acutads.h>
#include <acutmem.h>
#include <adscodes.h>
#include <adsdef.h>
#include <dbmain.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "ArxHandles.h"
#include "Lib/FormatText.h"
#include "Lib/Text.h"

namespace {

// Values that the typed readers look at; no number that a writer makes is longer.
constexpr size_t kNumberSize = 1024;

// Characters below 33 go from the start, and at most one from the end: a key written with two blanks before "=" keeps
// one of them, and stored data relies on that.
std::string Trim(std::string text) {
    const auto isBlank = [](char character) { return static_cast<unsigned char>(character) < 33; };
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isBlank));
    if (!text.empty() && isBlank(text.back())) text.pop_back();
    return text;
}

bool IsText(const resbuf* item) {
    return item->restype == AcDb::kDxfXdAsciiString && item->resval.rstring;
}

bool HasKey(const resbuf* item, const std::string& upperKey) {
    if (!IsText(item)) return false;
    char key[kXDataKeySize];
    char value[1];
    return ParseKeyValue(Narrow(item->resval.rstring).c_str(), key, value, sizeof value) >= 0 && upperKey == key;
}

// The item of that key, otherwise the last item of the chain. `found` tells which.
resbuf* FindItem(resbuf* chain, const char* key, bool& found) {
    const std::string upperKey = ToUpper(key);
    resbuf* item = chain;
    while (!(found = HasKey(item, upperKey)) && item->rbnext)
        item = item->rbnext;
    return item;
}

bool SetText(resbuf* item, const std::string& text) {
    return acutUpdString(Widen(text).c_str(), item->resval.rstring) == Acad::eOk;
}

ResbufChain NewChain(const std::string& application) {
    // Refusal means, among other things, that the name is registered already; setXData knows better.
    acdbRegApp(Widen(application).c_str());
    ResbufChain chain(acutNewRb(AcDb::kDxfRegAppName));
    if (chain && !SetText(chain.get(), application)) chain.reset();
    return chain;
}

resbuf* AppendItem(resbuf* last) {
    last->rbnext = acutNewRb(AcDb::kDxfXdAsciiString);
    return last->rbnext;
}

}  // namespace

int SetXDataString(AcDbObject* object, const char* application, const char* key, const char* value) {
    if (!object || !application || !key || !value) return -1;
    if (!*value) return -2;
    ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) chain = NewChain(application);
    if (!chain) return -1;

    bool found = false;
    resbuf* item = FindItem(chain.get(), key, found);
    if (!found) item = AppendItem(item);
    if (!item || !SetText(item, std::string(key) + "=" + value)) return -1;
    return object->setXData(chain.get()) == Acad::eOk ? 0 : -1;
}

int SetXDataFloat(AcDbObject* object, const char* application, const char* key, float value, int precision) {
    return SetXDataString(object, application, key, FormatString("%.*f", precision, value).c_str());
}

int SetXDataDouble(AcDbObject* object, const char* application, const char* key, double value, int precision) {
    return SetXDataString(object, application, key, FormatString("%.*lf", precision, value).c_str());
}

int SetXDataPoint(AcDbObject* object, const char* application, const char* key, double x, double y, double z,
                  int precision) {
    const std::string point = FormatString("%.*lf,%.*lf,%.*lf", precision, x, precision, y, precision, z);
    return SetXDataString(object, application, key, point.c_str());
}

int GetXDataString(const AcDbObject* object, const char* application, const char* key, char* buffer, size_t size) {
    if (!object || !application || !key || !buffer || size == 0) return -1;
    const ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) return -2;
    bool found = false;
    const resbuf* item = FindItem(chain.get(), key, found);
    if (!found) return -2;
    char ownKey[kXDataKeySize];
    return ParseKeyValue(Narrow(item->resval.rstring).c_str(), ownKey, buffer, size);
}

int GetXDataFloat(const AcDbObject* object, const char* application, const char* key, float& value) {
    char text[kNumberSize];
    const int length = GetXDataString(object, application, key, text, sizeof text);
    if (length < 0) return length;
    return std::sscanf(text, "%f", &value) == 1 ? 1 : 0;
}

int GetXDataDouble(const AcDbObject* object, const char* application, const char* key, double& value) {
    char text[kNumberSize];
    const int length = GetXDataString(object, application, key, text, sizeof text);
    if (length < 0) return length;
    return std::sscanf(text, "%lf", &value) == 1 ? 1 : 0;
}

int GetXDataPoint(const AcDbObject* object, const char* application, const char* key, double& x, double& y, double& z) {
    char text[kNumberSize];
    const int length = GetXDataString(object, application, key, text, sizeof text);
    if (length < 0) return length;
    double point[3];
    if (std::sscanf(text, "%lf,%lf,%lf", &point[0], &point[1], &point[2]) != 3) return 0;
    x = point[0];
    y = point[1];
    z = point[2];
    return 1;
}

int RemoveXDataKey(AcDbObject* object, const char* application, const char* key) {
    if (!object || !application || !key) return -1;
    const ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) return 0;
    bool found = false;
    resbuf* item = FindItem(chain.get(), key, found);
    if (!found) return 0;
    // The chain is headed by the application's name, so the item always has a predecessor.
    resbuf* before = chain.get();
    while (before->rbnext != item)
        before = before->rbnext;
    before->rbnext = item->rbnext;
    item->rbnext = nullptr;
    const ResbufChain removed(item);
    return object->setXData(chain.get()) == Acad::eOk ? 0 : -1;
}

int ParseKeyValue(const char* entry, char* key, char* value, size_t valueSize) {
    if (!entry || !key || !value || valueSize == 0) return -1;
    const char* equals = std::strchr(entry, '=');
    if (!equals || equals - entry >= static_cast<std::ptrdiff_t>(kXDataKeySize)) return -1;
    const std::string trimmed = ToUpper(Trim(std::string(entry, equals)));
    if (trimmed.empty()) return -1;
    std::memcpy(key, trimmed.c_str(), trimmed.size() + 1);

    const size_t length = std::min(std::strlen(equals + 1), valueSize - 1);
    std::memcpy(value, equals + 1, length);
    value[length] = '\0';
    return static_cast<int>(length);
}
