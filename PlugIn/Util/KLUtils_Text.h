// Number lists and matrices to and from text. Numbers are separated by single spaces and written with a decimal point.
#pragma once

#include <string>
#include <vector>

#include <gemat3d.h>

namespace KLUtils {

// The parts between delimiters, in order, empty ones too. No parts for an empty text; the whole text for an empty
// delimiter.
std::vector<std::string> Split(const std::string& text, const std::string& delimiter);

// Stores at most `count` numbers; a part that is no number gives 0. The number stored, or -1 null text, -2 null output,
// -3 count below 1.
int ParseNumbers(const char* text, double* numbers, int count);
// `precision` decimals each; an empty text for no numbers.
std::string FormatNumbers(const double* numbers, int count, int precision);

// 16 numbers in row order. False, and the matrix untouched, when the text has fewer.
bool MatrixFromText(const char* text, AcGeMatrix3d& matrix);
// With 16 decimals.
std::string MatrixToText(const AcGeMatrix3d& matrix);

}  // namespace KLUtils
