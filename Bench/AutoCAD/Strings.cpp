// acutUpdString and acutDelString.
#include "ArxCall.h"
#include "Memory.h"
#include "Texts.h"
#include "acutmem.h"

using bench::ArxCall;

Acad::ErrorStatus acutUpdString(const ACHAR* pInput, ACHAR*& pOutput) {
    ArxCall call("acutUpdString", bench::LogText(pInput));
    if (call.fails()) return call.failed(Acad::eOutOfMemory);
    ACHAR* const old = pOutput;
    pOutput = pInput == nullptr ? nullptr : bench::AllocateForCaller(pInput, "acutUpdString " + bench::LogText(pInput));
    if (old != nullptr) bench::ReleaseString(old, "acutUpdString");
    return call.done(Acad::eOk);
}

void acutDelBuffer(void*& pBuffer) {
    ArxCall call("acutDelBuffer", "");
    if (pBuffer != nullptr) bench::ReleaseString(pBuffer, "acutDelString");
    pBuffer = nullptr;
}
