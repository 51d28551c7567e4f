// Required library; nothing in this module calls it.
// Conversion of number lists and matrices to and from text. Numbers are separated by single spaces and have a decimal
// point.
#pragma once

#include <string>
#include <vector>

#include <gemat3d.h>

namespace KLUtils {

// Returns the parts between delimiters in order, including empty ones. An empty text has no parts; an empty delimiter
// returns the whole text.
std::vector<std::string> Split(const std::string& text, const std::string& delimiter);

// Stores at most `count` numbers; a part that is not a number becomes 0. Returns how many it stored, or -1 for a null
// text, -2 for a null output, -3 for a count below 1.
int ParseNumbers(const char* text, double* numbers, int count);
// Writes `precision` decimals each. No numbers give an empty text.
std::string FormatNumbers(const double* numbers, int count, int precision);

// Reads 16 numbers in row order. Returns false without changing the matrix when the text has fewer.
bool MatrixFromText(const char* text, AcGeMatrix3d& matrix);
// Writes 16 numbers with 16 decimals.
std::string MatrixToText(const AcGeMatrix3d& matrix);

}  // namespace KLUtils
