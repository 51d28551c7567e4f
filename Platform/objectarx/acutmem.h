// The host's strings. Every ACHAR* that the host hands out for keeps is freed with acutDelString, which wants an lvalue
// of type wchar_t* and leaves it null. A null pointer is freed without complaint.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

// A copy of the text in place of the one that pOutput holds, which is freed. pOutput stays as it was after a failure.
ACCORE_PORT Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput);

ACCORE_PORT void acutDelBuffer(void*& pBuffer);

inline void acutDelString(wchar_t*& pString) {
    void* buffer = pString;
    acutDelBuffer(buffer);
    pString = nullptr;
}
