// Handle of a database object: a 64-bit number that stays the same in every session, written as hexadecimal digits.
#pragma once

#include "adesk.h"

class AcDbHandle {
 public:
    enum { kStrSiz = 17 };  // digits and terminator

    AcDbHandle();
    AcDbHandle(int lo, int hi);
    AcDbHandle(const ACHAR* text);
    AcDbHandle(Adesk::UInt64 value);

    Adesk::UInt32 low() const;
    Adesk::UInt32 high() const;
    bool isNull() const;
    void setNull();

    // The length counts characters with the terminator; false when the text does not fit.
    bool getIntoAsciiBuffer(ACHAR* pBuf, size_t nBufLen) const;
    template <size_t nBufLen>
    bool getIntoAsciiBuffer(wchar_t (&buf)[nBufLen]) const {
        return getIntoAsciiBuffer(buf, nBufLen);
    }

    operator Adesk::UInt64() const;
    bool operator==(const AcDbHandle& other) const;
    bool operator!=(const AcDbHandle& other) const;

 private:
    Adesk::UInt32 mLow;
    Adesk::UInt32 mHigh;
};

inline AcDbHandle::AcDbHandle() : mLow(0), mHigh(0) {}
inline AcDbHandle::AcDbHandle(int lo, int hi)
    : mLow(static_cast<Adesk::UInt32>(lo)), mHigh(static_cast<Adesk::UInt32>(hi)) {}
inline AcDbHandle::AcDbHandle(Adesk::UInt64 value)
    : mLow(static_cast<Adesk::UInt32>(value)), mHigh(static_cast<Adesk::UInt32>(value >> 32)) {}
inline Adesk::UInt32 AcDbHandle::low() const {
    return mLow;
}
inline Adesk::UInt32 AcDbHandle::high() const {
    return mHigh;
}
inline bool AcDbHandle::isNull() const {
    return mLow == 0 && mHigh == 0;
}
inline void AcDbHandle::setNull() {
    mLow = mHigh = 0;
}
inline AcDbHandle::operator Adesk::UInt64() const {
    return static_cast<Adesk::UInt64>(mHigh) << 32 | mLow;
}
inline bool AcDbHandle::operator==(const AcDbHandle& other) const {
    return mLow == other.mLow && mHigh == other.mHigh;
}
inline bool AcDbHandle::operator!=(const AcDbHandle& other) const {
    return !(*this == other);
}
