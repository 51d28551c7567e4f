// Shared by the fuzz targets. A violated property ends the target, and libFuzzer saves the input.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <string>

inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::printf("Violated property: %s\n", property);
    std::fflush(stdout);
    std::abort();
}
// A text without a terminator inside.
inline std::string Text(FuzzedDataProvider& input, size_t maximum) {
    const std::string text = input.ConsumeRandomLengthString(maximum);
    return text.substr(0, text.find('\0'));
}
