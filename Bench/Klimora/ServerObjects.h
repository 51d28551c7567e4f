// The COM objects of the server, one for each ProgID. Each hands out one pointer per interface, so that references are
// counted by interface; which interfaces it answers is a matter of KlimoraServer. The objects live as long as the
// process, so that a client that releases too late or too often is told so instead of crashing.
// Contract: rows C3 to C7.
#pragma once

#include <windows.h>
#include <objbase.h>

namespace bench::klimora {

inline constexpr wchar_t kDrawingProgId[] = L"KlimComSrv.Drawing";
inline constexpr wchar_t kKlimoraProgId[] = L"KlimComSrv.Klimora";
inline constexpr CLSID kDrawingClass = {0x6d1f0a11, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};
inline constexpr CLSID kKlimoraClass = {0x6d1f0a12, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};

// Identities for the running object table; no reference is given along.
IUnknown* DrawingObject();
IUnknown* KlimoraObject();

}  // namespace bench::klimora
