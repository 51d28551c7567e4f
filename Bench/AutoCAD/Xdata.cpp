// Extended data: AcDbObject::xData and setXData, and acdbRegApp.
#include <cwchar>

#include "AcDbObject.h"
#include "Memory.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acdb.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

// The maximum size of the data of all applications on one object.
constexpr size_t kMaxBytes = 16383;

// Two bytes of code, then a string with two bytes of length, or a two-byte number.
size_t StoredSize(const std::vector<XdataOfApplication>& all) {
    size_t size = 0;
    for (const XdataOfApplication& data : all) {
        size += 4 + data.application.size();
        for (const XdataItem& item : data.items)
            size += 4 + item.text.size();
    }
    return size;
}

Acad::ErrorStatus ReadChain(const resbuf* xdata, const Drawing& drawing, std::vector<XdataOfApplication>& all) {
    if (xdata == nullptr) return Acad::eInvalidResBuf;
    if (xdata->restype != AcDb::kDxfRegAppName) return Acad::eBadDxfSequence;
    for (const resbuf* node = xdata; node != nullptr; node = node->rbnext) {
        if (!CheckNode(node, "setXData")) return Acad::eInvalidResBuf;
        const bool isText = node->restype >= 1000 && IsStringType(node->restype);
        if (!isText && node->restype != AcDb::kDxfXdInteger16) return Acad::eInvalidDxfCode;
        if (isText && node->resval.rstring == nullptr) return Acad::eInvalidResBuf;
        const std::wstring text = isText ? node->resval.rstring : L"";
        if (node->restype != AcDb::kDxfRegAppName)
            all.back().items.push_back({node->restype, text, isText ? short(0) : node->resval.rint});
        else if (drawing.isRegistered(text))
            all.push_back({text, {}});
        else
            return Acad::eRegappIdNotFound;
    }
    return Acad::eOk;
}

std::vector<XdataOfApplication> Merged(std::vector<XdataOfApplication> old,
                                       const std::vector<XdataOfApplication>& news) {
    for (const XdataOfApplication& data : news) {
        size_t at = 0;
        while (at < old.size() && !SameName(old[at].application, data.application))
            ++at;
        if (data.items.empty()) {
            if (at < old.size()) old.erase(old.begin() + static_cast<std::ptrdiff_t>(at));
        } else if (at < old.size()) {
            old[at].items = data.items;
        } else {
            old.push_back(data);
        }
    }
    return old;
}

resbuf* AppendText(int chain, resbuf* last, short code, const std::wstring& text) {
    resbuf* node = AddNode(chain, last, code);
    node->resval.rstring = AllocateInChain(text, chain);
    return node;
}

// Builds a chain of the application's data, or of all data when `application` is null. Returns null when there is none.
resbuf* MakeXdata(const std::vector<XdataOfApplication>& all, const wchar_t* application, const std::string& name) {
    int chain = 0;
    resbuf* head = nullptr;
    resbuf* last = nullptr;
    for (const XdataOfApplication& data : all) {
        if (application != nullptr && !SameName(data.application, application)) continue;
        if (chain == 0) chain = BeginChain(name);
        last = AppendText(chain, last, AcDb::kDxfRegAppName, data.application);
        if (head == nullptr) head = last;
        for (const XdataItem& item : data.items) {
            if (IsStringType(item.code)) {
                last = AppendText(chain, last, item.code, item.text);
            } else {
                last = AddNode(chain, last, item.code);
                last->resval.rint = item.integer;
            }
        }
    }
    return head;
}

// Replaces the data of the applications that the chain names and removes that of an application without items. On an
// error nothing changes.
Acad::ErrorStatus StoreXdata(const resbuf* chain, const Drawing& drawing, std::vector<XdataOfApplication>& all) {
    std::vector<XdataOfApplication> news;
    const Acad::ErrorStatus status = ReadChain(chain, drawing, news);
    if (status != Acad::eOk) return status;
    std::vector<XdataOfApplication> merged = Merged(all, news);
    if (StoredSize(merged) > kMaxBytes) return Acad::eXdataSizeExceeded;
    all = std::move(merged);
    return Acad::eOk;
}

// Returns the group codes and strings for the call log.
std::string XdataText(const resbuf* chain) {
    std::string text;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        text += " " + std::to_string(node->restype);
        if (IsStringType(node->restype)) text += ":" + LogText(node->resval.rstring);
    }
    return text.empty() ? " (null)" : text;
}

}  // namespace
}  // namespace bench

using bench::ArxCall;
using bench::Record;

resbuf* AcDbObject::xData(const ACHAR* regappName) const {
    const std::string asked = regappName == nullptr ? "" : " " + bench::LogText(regappName);
    ArxCall call("AcDbObject::xData", AcDbObjectOpening::Name(this) + asked);
    const Record* record = call.fails() ? nullptr : AcDbObjectOpening::Read(this, "xData");
    if (record == nullptr) return nullptr;
    return bench::MakeXdata(record->xdata, regappName, "xData" + asked + " of " + AcDbObjectOpening::Name(this));
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* xdata) {
    ArxCall call("AcDbObject::setXData", AcDbObjectOpening::Name(this) + bench::XdataText(xdata));
    if (call.fails()) return call.failed(Acad::eXdataSizeExceeded);
    Acad::ErrorStatus status;
    Record* record = AcDbObjectOpening::Write(this, "setXData", status);
    if (record == nullptr) return call.done(status);
    const bench::Drawing* drawing =
        mpOpening->database != nullptr ? &mpOpening->database->drawing : bench::CurrentDrawing();
    if (drawing == nullptr) return call.done(Acad::eNoDatabase);
    return call.done(bench::StoreXdata(xdata, *drawing, record->xdata));
}

// Returns RSERR for a name that is already registered; it stays registered.
int acdbRegApp(const ACHAR* appname) {
    ArxCall call("acdbRegApp", bench::LogText(appname));
    if (call.fails()) return call.failed(RTERROR);
    bench::Drawing* drawing = bench::CurrentDrawing();
    if (drawing == nullptr || appname == nullptr || *appname == L'\0' || std::wcslen(appname) > 255 ||
        std::wcspbrk(appname, L"<>/\\\":;?*|,=`") != nullptr)
        return call.done(RTERROR);
    if (drawing->isRegistered(appname)) return call.done(RSERR);
    drawing->applications.push_back(appname);
    return call.done(RTNORM);
}
