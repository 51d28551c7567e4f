// Ids, handles, entity names and the conversions between them.
#include "AcDbObjectId.h"

#include <map>
#include <set>
#include <utility>

#include "ArxCall.h"
#include "Texts.h"
#include "dbmain.h"

namespace bench {
namespace {

std::map<std::pair<DrawingDatabase*, Handle>, AcDbStub> stubs;
std::set<const AcDbStub*> known;

}  // namespace

AcDbObjectId IdOf(DrawingDatabase* database, Handle handle) {
    const AcDbStub* stub = &stubs.emplace(std::pair(database, handle), AcDbStub{handle, database}).first->second;
    known.insert(stub);
    return AcDbObjectId(stub);
}

const AcDbStub* StubOf(AcDbObjectId id) {
    const AcDbStub* stub = static_cast<AcDbStub*>(id);
    return known.count(stub) == 0 ? nullptr : stub;
}

void NameEntity(AcDbObjectId id, ads_name name) {
    name[0] = reinterpret_cast<int64_t>(static_cast<AcDbStub*>(id));
    name[1] = 0;
}

std::string IdText(AcDbObjectId id) {
    const AcDbStub* stub = StubOf(id);
    return stub == nullptr ? "(null)" : HandleText(stub->handle);
}

}  // namespace bench

using bench::ArxCall;

AcDbHandle AcDbObjectId::handle() const {
    const AcDbStub* stub = bench::StubOf(*this);
    return AcDbHandle(stub == nullptr ? Adesk::UInt64(0) : stub->handle);
}

AcDbHandle::AcDbHandle(const ACHAR* text) : AcDbHandle(Adesk::UInt64(bench::HandleFromText(text))) {}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* pBuf, size_t nBufLen) const {
    const std::wstring text = bench::FromAnsi(bench::HandleText(*this));
    if (pBuf == nullptr || text.size() >= nBufLen) return false;
    text.copy(pBuf, text.size());
    pBuf[text.size()] = L'\0';
    return true;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& objId, const ads_name objName) {
    const AcDbObjectId id(reinterpret_cast<const AcDbStub*>(objName[0]));
    const bool known = bench::StubOf(id) != nullptr && objName[1] == 0;
    ArxCall call("acdbGetObjectId", known ? bench::IdText(id) : "(no entity)");
    objId.setNull();
    if (call.fails()) return call.failed(Acad::eInvalidAdsName);
    if (!known) return call.done(Acad::eInvalidAdsName);
    objId = id;
    return call.done(Acad::eOk);
}
