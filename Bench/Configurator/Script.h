// How the bench drives the program and learns what it did.
//
// What the program is to do without asking anybody, taken from the environment variable SORVIK_BENCH_CONFIGURATOR:
// "choose first", "choose PRODUCT" (several with commas between), "cancel", or "ask", which shows the window. Nothing,
// or anything else, cancels.
#pragma once

#include <string>

struct Script {
    std::string verb;    // "choose"
    std::string object;  // "SRC-250-600,SRC-250-900"
};

Script ReadScript();

// An environment variable's text, empty when it is not set.
std::string Environment(const char* name);

// Writes one line, what the program received or did, at the end of the file that SORVIK_BENCH_CONFIGURATOR_RECORD
// names; without the variable nothing is written. `what` is "line", "word", "fits", "chose", "refused", "failed" or
// "exit"; texts are UTF-8.
void Record(const std::string& what, const std::string& text);
