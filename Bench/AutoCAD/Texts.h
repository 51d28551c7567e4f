// AutoCAD's names and handles as strings. The call log and the bench interface use the system's code page.
#pragma once

#include <cstdint>
#include <string>

#include "BenchTexts.h"

namespace bench {

// Returns "(null)" for a null pointer.
std::string LogText(const wchar_t* text);

std::string HandleText(std::uint64_t handle);
// Returns 0 for text that is not a handle.
std::uint64_t HandleFromText(const wchar_t* text);
std::string PointText(const double point[3]);
std::wstring UpperCase(std::wstring text);

}  // namespace bench
