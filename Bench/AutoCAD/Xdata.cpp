// Extended data of objects: the rules for a chain that is to be stored, and the chains that are handed out.
#include <cwchar>

#include "HostObjects.h"
#include "HostSession.h"
#include "HostStrings.h"
#include "acedads.h"
#include "adscodes.h"

using bench::HostCall;
using bench::Record;
using bench::XdataItem;
using bench::XdataOfApplication;

namespace {

// What all applications together may store on one object.
constexpr size_t kMostBytes = 16383;

bool IsText(short code) {
    return (code >= 1000 && code <= 1003) || code == 1005;
}
bool IsPoint(short code) {
    return code >= 1010 && code <= 1013;
}
bool IsReal(short code) {
    return code >= 1040 && code <= 1042;
}

// Two bytes of code, and two of length where a text or bytes follow.
size_t StoredSize(const XdataItem& item) {
    if (IsText(item.code)) return 4 + item.text.size();
    if (item.code == 1004) return 4 + item.bytes.size();
    if (IsPoint(item.code)) return 2 + 24;
    if (IsReal(item.code)) return 2 + 8;
    return 2 + (item.code == 1070 ? 2 : 4);
}

size_t StoredSize(const std::vector<XdataOfApplication>& all) {
    size_t size = 0;
    for (const XdataOfApplication& data : all) {
        size += 4 + data.application.size();
        for (const XdataItem& item : data.items)
            size += StoredSize(item);
    }
    return size;
}

Acad::ErrorStatus ReadItem(const resbuf& node, XdataItem& item) {
    item.code = node.restype;
    if (IsText(item.code)) {
        if (node.resval.rstring == nullptr) return Acad::eInvalidResBuf;
        item.text = node.resval.rstring;
    } else if (item.code == 1004) {
        if (node.resval.rbinary.buf == nullptr || node.resval.rbinary.clen < 0) return Acad::eInvalidResBuf;
        item.bytes.assign(node.resval.rbinary.buf, static_cast<size_t>(node.resval.rbinary.clen));
    } else if (IsPoint(item.code)) {
        for (int i = 0; i < 3; ++i)
            item.numbers[i] = node.resval.rpoint[i];
    } else if (IsReal(item.code)) {
        item.numbers[0] = node.resval.rreal;
    } else if (item.code == 1070) {
        item.integer = node.resval.rint;
    } else if (item.code == 1071) {
        item.integer = node.resval.rlong;
    } else {
        return Acad::eInvalidDxfCode;
    }
    return Acad::eOk;
}

Acad::ErrorStatus ReadChain(const resbuf* xdata, const bench::Drawing& drawing, std::vector<XdataOfApplication>& all) {
    if (xdata == nullptr) return Acad::eInvalidResBuf;
    if (xdata->restype != AcDb::kDxfRegAppName) return Acad::eBadDxfSequence;
    for (const resbuf* node = xdata; node != nullptr; node = node->rbnext) {
        if (!bench::LivingNode(node, "setXData")) return Acad::eInvalidResBuf;
        XdataItem item;
        const Acad::ErrorStatus status = ReadItem(*node, item);
        if (status != Acad::eOk) return status;
        if (item.code != AcDb::kDxfRegAppName) {
            all.back().items.push_back(item);
            continue;
        }
        if (!drawing.isRegistered(item.text)) return Acad::eRegappIdNotFound;
        all.push_back(XdataOfApplication{item.text, {}});
    }
    return Acad::eOk;
}

// Replaces the named applications' data; an application with no item is removed.
std::vector<XdataOfApplication> Merged(std::vector<XdataOfApplication> old,
                                       const std::vector<XdataOfApplication>& news) {
    for (const XdataOfApplication& data : news) {
        size_t at = 0;
        while (at < old.size() && !bench::SameName(old[at].application, data.application))
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

resbuf* AppendItem(int chain, resbuf* last, const XdataItem& item) {
    resbuf* node = bench::AddNode(chain, last, item.code);
    if (IsText(item.code)) {
        node->resval.rstring = bench::HandOutInChain(item.text, chain);
    } else if (item.code == 1004) {
        node->resval.rbinary.clen = static_cast<short>(item.bytes.size());
        node->resval.rbinary.buf = const_cast<char*>(item.bytes.data());
    } else if (IsPoint(item.code)) {
        for (int i = 0; i < 3; ++i)
            node->resval.rpoint[i] = item.numbers[i];
    } else if (IsReal(item.code)) {
        node->resval.rreal = item.numbers[0];
    } else if (item.code == 1070) {
        node->resval.rint = static_cast<short>(item.integer);
    } else {
        node->resval.rlong = item.integer;
    }
    return node;
}

std::string ChainText(const resbuf* chain) {
    std::string text;
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        text += " " + std::to_string(node->restype);
        if (IsText(node->restype)) text += ":" + bench::Narrow(node->resval.rstring);
    }
    return text.empty() ? " (null)" : text;
}

}  // namespace

resbuf* AcDbObject::xData(const ACHAR* regappName) const {
    const std::string asked = regappName == nullptr ? "" : " " + bench::Narrow(regappName);
    HostCall call("AcDbObject::xData", AcDbImpObject::Name(this) + asked);
    const Record* record = call.fails() ? nullptr : AcDbImpObject::Read(this, "xData");
    if (record == nullptr) return nullptr;
    int chain = 0;
    resbuf* head = nullptr;
    resbuf* last = nullptr;
    for (const XdataOfApplication& data : record->xdata) {
        if (regappName != nullptr && !bench::SameName(data.application, regappName)) continue;
        if (chain == 0) chain = bench::BeginChain("xData" + asked + " of " + AcDbImpObject::Name(this));
        XdataItem start;
        start.code = AcDb::kDxfRegAppName;
        start.text = data.application;
        last = AppendItem(chain, last, start);
        if (head == nullptr) head = last;
        for (const XdataItem& item : data.items)
            last = AppendItem(chain, last, item);
    }
    return head;
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* xdata) {
    HostCall call("AcDbObject::setXData", AcDbImpObject::Name(this) + ChainText(xdata));
    if (call.fails()) return call.failed(Acad::eXdataSizeExceeded);
    Acad::ErrorStatus status;
    Record* record = AcDbImpObject::Write(this, "setXData", status);
    if (record == nullptr) return call.done(status);
    const bench::Drawing* drawing =
        mpImpObject->database != nullptr ? &mpImpObject->database->drawing : bench::CurrentDrawing();
    if (drawing == nullptr) return call.done(Acad::eNoDatabase);
    std::vector<XdataOfApplication> news;
    status = ReadChain(xdata, *drawing, news);
    if (status != Acad::eOk) return call.done(status);
    std::vector<XdataOfApplication> merged = Merged(record->xdata, news);
    if (StoredSize(merged) > kMostBytes) return call.done(Acad::eXdataSizeExceeded);
    record->xdata = std::move(merged);
    return call.done(Acad::eOk);
}

// A name that is registered already is answered with RSERR, which leaves it registered.
int acdbRegApp(const ACHAR* appname) {
    HostCall call("acdbRegApp", bench::Narrow(appname));
    if (call.fails()) return call.failed(RTERROR);
    bench::Drawing* drawing = bench::CurrentDrawing();
    if (drawing == nullptr || appname == nullptr || *appname == L'\0' || std::wcslen(appname) > 255 ||
        std::wcspbrk(appname, L"<>/\\\":;?*|,=`") != nullptr)
        return call.done(RTERROR);
    if (drawing->isRegistered(appname)) return call.done(RSERR);
    drawing->applications.push_back(appname);
    return call.done(RTNORM);
}
