// The host's strings. Free every ACHAR* that the host passes to the caller with acutDelString, which accepts null and
// sets its argument, an lvalue of type wchar_t*, to null.
#pragma once

#include "acadstrc.h"
#include "adesk.h"

// Frees the string of pOutput and replaces it by a copy of the text. Leaves pOutput unchanged on failure.
ACCORE_PORT Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput);

ACCORE_PORT void acutDelBuffer(void*& pBuffer);

inline void acutDelString(wchar_t*& pString) {
    void* buffer = pString;
    acutDelBuffer(buffer);
    pString = nullptr;
}
