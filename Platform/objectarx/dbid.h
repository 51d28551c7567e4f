// Identifies a database object within this session. It has the size of a pointer and owns nothing.
#pragma once

#include "dbhandle.h"

class AcDbStub;

class ACCORE_PORT AcDbObjectId {
 public:
    AcDbObjectId();
    AcDbObjectId(const AcDbStub* id);

    bool isNull() const;
    void setNull();
    // Returns the null handle for a null id.
    AcDbHandle handle() const;

    operator AcDbStub*() const;
    bool operator==(const AcDbObjectId& other) const;

 private:
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
inline AcDbObjectId::operator AcDbStub*() const {
    return mId;
}
inline bool AcDbObjectId::operator==(const AcDbObjectId& other) const {
    return mId == other.mId;
}
