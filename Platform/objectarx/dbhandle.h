// The handle of a database object: a 64-bit number that stays the same in every session, written in hexadecimal.
#pragma once

#include "adesk.h"

class ACCORE_PORT AcDbHandle {
 public:
    enum { kStrSiz = 17 };  // digits and terminator

    AcDbHandle();
    AcDbHandle(const ACHAR* text);
    AcDbHandle(Adesk::UInt64 value);

    bool isNull() const;

    // The length counts characters including the terminator. Returns false when the text does not fit.
    bool getIntoAsciiBuffer(ACHAR* pBuf, size_t nBufLen) const;
    template <size_t nBufLen>
    bool getIntoAsciiBuffer(wchar_t (&buf)[nBufLen]) const {
        return getIntoAsciiBuffer(buf, nBufLen);
    }

    operator Adesk::UInt64() const;

 private:
    Adesk::UInt32 mLow;
    Adesk::UInt32 mHigh;
};

inline AcDbHandle::AcDbHandle() : mLow(0), mHigh(0) {}
inline AcDbHandle::AcDbHandle(Adesk::UInt64 value)
    : mLow(static_cast<Adesk::UInt32>(value)), mHigh(static_cast<Adesk::UInt32>(value >> 32)) {}
inline bool AcDbHandle::isNull() const {
    return mLow == 0 && mHigh == 0;
}
inline AcDbHandle::operator Adesk::UInt64() const {
    return static_cast<Adesk::UInt64>(mHigh) << 32 | mLow;
}
