// Texts at the server's border and numbers in the text form in which the server stores every value. Inside the server
// all texts are UTF-8. Nothing here fails loudly: readers answer false and leave their output alone.
// Contract: rows K7 and A14.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>
#include <vector>

namespace bench::klimora {

// Reads up to the first zero character: clients send one zero more than the text has. Null is the empty text.
std::string FromBstr(BSTR text);
// The caller frees the result with SysFreeString.
BSTR ToBstr(const std::string& text);
std::wstring Wide(const std::string& utf8);
std::string Narrow(const std::wstring& text);
// For libraries that take texts in the ANSI code page.
std::string Ansi(const std::string& utf8);

bool SameName(const std::string& a, const std::string& b);  // letter case ignored
bool IsHandle(const std::string& text);                     // hexadecimal and above zero
bool ReadInteger(const std::string& text, long& value);
bool ReadReal(const std::string& text, double& value);
// Exactly `count` reals with one blank between them.
bool ReadReals(const std::string& text, size_t count, std::vector<double>& values);
std::string RealText(double value);  // shortest form that keeps six decimals
std::string PointText(double x, double y, double z);
std::vector<std::string> Split(const std::string& text, const char* separators);

}  // namespace bench::klimora
