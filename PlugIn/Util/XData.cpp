#include "Util/XData.h"

#include <windows.h>

#include <acdb.h>
#include <acedads.h>
#include <acutads.h>
#include <acutmem.h>
#include <adscodes.h>
#include <adsdef.h>
#include <dbmain.h>

#include <algorithm>
#include <cstring>
#include <optional>
#include <utility>

#include "Lib/Numbers.h"
#include "Lib/Text.h"
#include "Util/ArxHandles.h"

namespace {

// Removes characters below 33 from the start and at most one from the end, on purpose: a key written with two blanks
// before "=" keeps one.
std::string Trim(std::string text) {
    const auto isBlank = [](char character) { return static_cast<unsigned char>(character) < 33; };
    text.erase(text.begin(), std::find_if_not(text.begin(), text.end(), isBlank));
    if (!text.empty() && isBlank(text.back())) text.pop_back();
    return text;
}

struct KeyValue {
    std::string key;  // trimmed, in upper case
    std::string value;
};

std::optional<KeyValue> Parse(const std::string& entry) {
    const size_t equals = entry.find('=');
    if (equals >= kXDataKeySize) return {};
    std::string key = ToUpper(Trim(entry.substr(0, equals)));
    if (key.empty()) return {};
    return KeyValue{std::move(key), entry.substr(equals + 1)};
}

std::optional<KeyValue> Parse(const resbuf* item) {
    if (item->restype != AcDb::kDxfXdAsciiString || !item->resval.rstring) return {};
    return Parse(Narrow(item->resval.rstring));
}

// Returns the form in which keys are compared, or an empty string for an invalid key.
std::string NormalisedKey(const char* key) {
    const std::optional<KeyValue> entry = Parse(std::string(key) + "=");
    return entry && !std::strchr(key, '=') ? entry->key : std::string();
}

// Returns the item before the key's item, or the last item. The first item of a chain is the application's name.
resbuf* FindItemBefore(resbuf* chain, const char* key) {
    const std::string wanted = NormalisedKey(key);
    resbuf* before = chain;
    for (; before->rbnext; before = before->rbnext) {
        const std::optional<KeyValue> entry = Parse(before->rbnext);
        if (entry && entry->key == wanted) break;
    }
    return before;
}

bool SetText(resbuf* item, const std::string& text) {
    return acutUpdString(Widen(text).c_str(), item->resval.rstring) == Acad::eOk;
}

// AutoCAD sets only the type of a new buffer, and acutUpdString frees the string that it finds.
resbuf* NewResbuf(int type) {
    resbuf* const item = acutNewRb(type);
    if (item) {
        item->rbnext = nullptr;
        item->resval.rstring = nullptr;
    }
    return item;
}

ResbufChain NewChain(const std::string& application) {
    // The result is ignored: it also fails for a registered name, and setXData refuses an unregistered one.
    acdbRegApp(Widen(application).c_str());
    ResbufChain chain(NewResbuf(AcDb::kDxfRegAppName));
    if (chain && !SetText(chain.get(), application)) chain.reset();
    return chain;
}

// Reads the whole value. Returns 0, or GetXDataString's negative result.
int ReadValue(const AcDbObject* object, const char* application, const char* key, std::string& value) {
    if (!object || !application || !key) return -1;
    const ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) return -2;
    const resbuf* item = FindItemBefore(chain.get(), key)->rbnext;
    if (!item) return -2;
    value = Parse(item)->value;
    return 0;
}

// `parse` reads the value's text. Returns true on success.
template <class Parser>
int ReadNumber(const AcDbObject* object, const char* application, const char* key, Parser parse) {
    std::string text;
    const int result = ReadValue(object, application, key, text);
    if (result < 0) return result;
    return parse(text.c_str()) ? 1 : 0;
}

}  // namespace

int SetXDataString(AcDbObject* object, const char* application, const char* key, const char* value) {
    if (!object || !application || !key || !value) return -1;
    if (!*value) return -2;
    if (NormalisedKey(key).empty()) return -1;
    ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) chain = NewChain(application);
    if (!chain) return -1;

    resbuf*& item = FindItemBefore(chain.get(), key)->rbnext;
    if (!item) item = NewResbuf(AcDb::kDxfXdAsciiString);
    if (!item || !SetText(item, std::string(key) + "=" + value)) return -1;
    return object->setXData(chain.get()) == Acad::eOk ? 0 : -1;
}

int SetXDataFloat(AcDbObject* object, const char* application, const char* key, float value, int precision) {
    return SetXDataString(object, application, key, RealText(value, precision).c_str());
}

int SetXDataDouble(AcDbObject* object, const char* application, const char* key, double value, int precision) {
    return SetXDataString(object, application, key, RealText(value, precision).c_str());
}

int SetXDataPoint(AcDbObject* object, const char* application, const char* key, double x, double y, double z,
                  int precision) {
    const std::string point = RealText(x, precision) + ',' + RealText(y, precision) + ',' + RealText(z, precision);
    return SetXDataString(object, application, key, point.c_str());
}

int GetXDataString(const AcDbObject* object, const char* application, const char* key, char* buffer, size_t size) {
    if (!buffer || size == 0) return -1;
    std::string value;
    const int result = ReadValue(object, application, key, value);
    return result < 0 ? result : static_cast<int>(CopyTruncated(buffer, size, value));
}

int GetXDataFloat(const AcDbObject* object, const char* application, const char* key, float& value) {
    return ReadNumber(object, application, key, [&](const char* text) { return ReadReal(text, value) != text; });
}

int GetXDataDouble(const AcDbObject* object, const char* application, const char* key, double& value) {
    return ReadNumber(object, application, key, [&](const char* text) { return ReadReal(text, value) != text; });
}

int GetXDataPoint(const AcDbObject* object, const char* application, const char* key, double& x, double& y, double& z) {
    return ReadNumber(object, application, key, [&](const char* text) {
        double point[3];
        for (double& coordinate : point) {
            if (&coordinate != point && *text++ != ',') return false;
            const char* const end = ReadReal(text, coordinate);
            if (end == text) return false;
            text = end;
        }
        x = point[0];
        y = point[1];
        z = point[2];
        return true;
    });
}

int RemoveXDataKey(AcDbObject* object, const char* application, const char* key) {
    if (!object || !application || !key) return -1;
    const ResbufChain chain(object->xData(Widen(application).c_str()));
    if (!chain) return 0;
    resbuf* const before = FindItemBefore(chain.get(), key);
    const ResbufChain removed(before->rbnext);
    if (!removed) return 0;
    before->rbnext = removed.get()->rbnext;
    removed.get()->rbnext = nullptr;
    return object->setXData(chain.get()) == Acad::eOk ? 0 : -1;
}

int ParseKeyValue(const char* entry, char* key, char* value, size_t valueSize) {
    if (!entry || !key || !value || valueSize == 0) return -1;
    const std::optional<KeyValue> pair = Parse(std::string(entry));
    if (!pair) return -1;
    CopyTruncated(key, kXDataKeySize, pair->key);
    return static_cast<int>(CopyTruncated(value, valueSize, pair->value));
}
