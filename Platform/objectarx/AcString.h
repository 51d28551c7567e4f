// A wide text that frees itself: the safe way to take a name from the host.
#pragma once

#include "adesk.h"

class AcDbHandle;

class AcString {
 public:
    AcString();
    AcString(const AcString& other);
    AcString(AcString&& other);
    AcString(wchar_t character);
    AcString(const wchar_t* text);
    AcString(const AcDbHandle& handle);
    ~AcString();

    AcString& operator=(const AcString& other);
    AcString& operator=(AcString&& other);
    AcString& operator=(const wchar_t* text);

    const wchar_t* constPtr() const;
    const wchar_t* kwszPtr() const;
    const wchar_t* kACharPtr() const;
    operator const wchar_t*() const;

    bool isEmpty() const;
    unsigned length() const;
    AcString& setEmpty();
    AcString& format(const ACHAR* format, ...);

    bool operator==(wchar_t character) const;
    bool operator==(const wchar_t* text) const;
    bool operator==(const AcString& other) const;
    bool operator!=(const wchar_t* text) const;
    bool operator!=(const AcString& other) const;

 private:
    wchar_t* m_text;
};
