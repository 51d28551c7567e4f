// Writes down what the program received and did, one line each, at the end of the file that the environment variable
// SORVIK_BENCH_CONFIGURATOR_RECORD names; without it nothing is written. Lines begin with "line", "word", "fits",
// "chose", "refused", "failed" or "exit"; texts are UTF-8.
#pragma once

#include <string>

void Record(const std::string& what, const std::string& text);
