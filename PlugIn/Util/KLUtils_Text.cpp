#include "Util/KLUtils_Text.h"

#include <windows.h>

#include "Lib/Numbers.h"

namespace KLUtils {

namespace {
constexpr int kMatrixSize = 16;
constexpr int kMatrixPrecision = 16;
}  // namespace

std::vector<std::string> Split(const std::string& text, const std::string& delimiter) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    size_t start = 0;
    if (!delimiter.empty()) {
        for (size_t end; (end = text.find(delimiter, start)) != std::string::npos; start = end + delimiter.size()) {
            parts.push_back(text.substr(start, end - start));
        }
    }
    parts.push_back(text.substr(start));
    return parts;
}

int ParseNumbers(const char* text, double* numbers, int count) {
    if (!text) return -1;
    if (!numbers) return -2;
    if (count < 1) return -3;
    int stored = 0;
    for (const std::string& part : Split(text, " ")) {
        if (stored == count) break;
        numbers[stored++] = ToReal(part.c_str());
    }
    return stored;
}

std::string FormatNumbers(const double* numbers, int count, int precision) {
    std::string text;
    if (!numbers) return text;
    for (int i = 0; i < count; ++i) {
        if (i) text += ' ';
        text += RealText(numbers[i], precision);
    }
    return text;
}

bool MatrixFromText(const char* text, AcGeMatrix3d& matrix) {
    double numbers[kMatrixSize];
    if (ParseNumbers(text, numbers, kMatrixSize) != kMatrixSize) return false;
    for (int i = 0; i < kMatrixSize; ++i)
        matrix.entry[i / 4][i % 4] = numbers[i];
    return true;
}

std::string MatrixToText(const AcGeMatrix3d& matrix) {
    return FormatNumbers(&matrix.entry[0][0], kMatrixSize, kMatrixPrecision);
}

}  // namespace KLUtils
