// The host's strings. What acutNewString makes, and every ACHAR* that a getter hands out for keeps, is freed with
// acutDelString, which wants an lvalue of type wchar_t* and leaves it null. A null pointer is freed without complaint.
#pragma once

#include "AdAChar.h"
#include "acadstrc.h"
#include "adesk.h"

// A copy of the text. pOutput is undefined after a failure.
Acad::ErrorStatus acutNewString(const ACHAR* pInput, ACHAR*& pOutput);
// An uninitialised buffer; the count includes the terminator.
Acad::ErrorStatus acutNewString(ACHAR*& pOutput, Adesk::Int32 nNumChars);
// A copy of the text in place of the one that pOutput holds.
Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput);

void acutDelBuffer(void*& pBuffer);

inline void acutDelBuffer(char*& pBuffer) {
    void* buffer = pBuffer;
    acutDelBuffer(buffer);
    pBuffer = nullptr;
}

inline void acutDelString(wchar_t*& pString) {
    void* buffer = pString;
    acutDelBuffer(buffer);
    pString = nullptr;
}

inline void acutDelString(char*& pString) {
    void* buffer = pString;
    acutDelBuffer(buffer);
    pString = nullptr;
}
