// Identity of a database object within this session: one pointer in size, cheap to copy, no ownership. It never fits
// into a long, so that form is closed.
#pragma once

#include "dbhandle.h"

class AcDbDatabase;
class AcDbStub;
class AcRxClass;

class AcDbObjectId {
 public:
    AcDbObjectId();
    AcDbObjectId(const AcDbStub* id);

    static const AcDbObjectId kNull;

    bool isNull() const;
    void setNull();
    bool isValid() const;
    bool isErased() const;
    AcDbDatabase* database() const;
    AcRxClass* objectClass() const;
    // The null handle for a null id.
    AcDbHandle handle() const;

    Adesk::IntDbId asOldId() const;
    AcDbObjectId& setFromOldId(Adesk::IntDbId oldId);
    operator AcDbStub*() const;
    bool operator==(const AcDbObjectId& other) const;
    bool operator!=(const AcDbObjectId& other) const;
    bool operator<(const AcDbObjectId& other) const;

 private:
    AcDbObjectId& setFromOldId(long oldId);
    AcDbStub* mId;
};

inline AcDbObjectId::AcDbObjectId() : mId(nullptr) {}
inline AcDbObjectId::AcDbObjectId(const AcDbStub* id) : mId(const_cast<AcDbStub*>(id)) {}
inline bool AcDbObjectId::isNull() const {
    return mId == nullptr;
}
inline void AcDbObjectId::setNull() {
    mId = nullptr;
}
inline Adesk::IntDbId AcDbObjectId::asOldId() const {
    return reinterpret_cast<Adesk::IntDbId>(mId);
}
inline AcDbObjectId& AcDbObjectId::setFromOldId(Adesk::IntDbId oldId) {
    mId = reinterpret_cast<AcDbStub*>(oldId);
    return *this;
}
inline AcDbObjectId::operator AcDbStub*() const {
    return mId;
}
inline bool AcDbObjectId::operator==(const AcDbObjectId& other) const {
    return mId == other.mId;
}
inline bool AcDbObjectId::operator!=(const AcDbObjectId& other) const {
    return mId != other.mId;
}
inline bool AcDbObjectId::operator<(const AcDbObjectId& other) const {
    return mId < other.mId;
}

__declspec(selectany) const AcDbObjectId AcDbObjectId::kNull;
