// Converts strings at the server's interface, and numbers to and from the strings in which the server stores all
// values. Strings inside the server are UTF-8. Parsers return false on failure and leave their output unchanged.
// Contract: rows K7 and A14.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <vector>

#include "BenchTexts.h"

namespace bench::klimora {

// Reads up to the first zero character, because clients send an extra one. Null is the empty string.
std::string FromBstr(BSTR text);
// The caller frees the result with SysFreeString.
BSTR ToBstr(const std::string& text);

bool IsHandle(const std::string& text);  // hexadecimal and above zero
// Parses exactly `count` reals separated by single blanks.
bool ReadReals(const std::string& text, size_t count, std::vector<double>& values);
std::string PointText(double x, double y, double z);

}  // namespace bench::klimora
