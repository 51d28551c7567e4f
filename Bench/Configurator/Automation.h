// Lets the bench control the program and read what it did.
//
// The environment variable SORVIK_BENCH_CONFIGURATOR holds the instruction: "choose first", "choose PRODUCT" (several
// separated by commas), "cancel", or "ask", which shows the window. Any other value, or none, cancels.
#pragma once

#include <string>

struct Instruction {
    std::string verb;    // "choose"
    std::string object;  // "SRC-250-600,SRC-250-900"
};

Instruction ReadInstruction();

// Returns the value of an environment variable; empty when it is not set.
std::string Environment(const char* name);

// Appends one line about what the program received or did to the file that SORVIK_BENCH_CONFIGURATOR_RECORD names. Does
// nothing without the variable. `what` is "line", "word", "fits", "chose", "refused", "failed" or "exit"; strings are
// UTF-8.
void Record(const std::string& what, const std::string& text);
