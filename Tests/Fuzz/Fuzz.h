// What the fuzz targets share. A property that does not hold ends the target, and libFuzzer saves the input.
#pragma once

#include <fuzzer/FuzzedDataProvider.h>

#include <cstdio>
#include <cstdlib>
#include <string>

inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::printf("This does not hold: %s\n", property);
    std::fflush(stdout);
    std::abort();
}
// Without a terminator inside.
inline std::string Text(FuzzedDataProvider& input, size_t most) {
    const std::string text = input.ConsumeRandomLengthString(most);
    return text.substr(0, text.find('\0'));
}
