// Texts of AutoCAD: names and handles. In the journal and in the bench's own interface they are narrow, in the system's
// code page.
#pragma once

#include <cstdint>
#include <string>

#include "BenchTexts.h"

namespace bench {

// "(null)" for none.
std::string Shown(const wchar_t* text);

std::string HandleText(std::uint64_t handle);
// 0 for a text that is no handle.
std::uint64_t HandleFromText(const wchar_t* text);
std::string PointText(const double point[3]);
std::wstring UpperCase(std::wstring text);

}  // namespace bench
