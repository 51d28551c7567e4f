// Texts at the server's border and numbers in the text form in which the server stores every value. Inside the server
// all texts are UTF-8. Nothing here fails loudly: readers answer false and leave their output alone.
// Contract: rows K7 and A14.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <vector>

#include "BenchTexts.h"

namespace bench::klimora {

// Reads up to the first zero character: clients send one zero more than the text has. Null is the empty text.
std::string FromBstr(BSTR text);
// The caller frees the result with SysFreeString.
BSTR ToBstr(const std::string& text);

bool IsHandle(const std::string& text);  // hexadecimal and above zero
// Exactly `count` reals with one blank between them.
bool ReadReals(const std::string& text, size_t count, std::vector<double>& values);
std::string PointText(double x, double y, double z);
std::vector<std::string> Split(const std::string& text, const char* separators);

}  // namespace bench::klimora
