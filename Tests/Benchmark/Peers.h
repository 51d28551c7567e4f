// The same work without the module, written as one writes it for itself.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <array>
#include <cstdint>
#include <string>

// RFC 1321 step by step.
std::array<uint8_t, 16> TextbookMd5(const std::string& message);
// Whole groups by a table of 256 entries, up to the first other character.
std::string TableBase64Decode(const std::string& text);
std::string CryptoBase64Encode(const std::string& bytes);
// A table into a buffer of the right size, which is 2 * `size` and a terminator.
void TableHex(const void* bytes, size_t size, char* text);
// Measured, then converted.
BSTR MeasuredBstr(const char* text);
// Measured, then formatted once.
std::string MeasuredFormat(const char* format, const char* text, int number);
// A bare WinINet loop into a file.
void BareDownload(const char* url, const char* path);
