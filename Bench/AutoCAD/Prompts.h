// Prompts and who answers them.
#pragma once

#include <string>

#include "BenchAutoCAD.h"

namespace bench {

// Prints the prompt, takes the next answer and shows it. Accuses and escapes when nobody answers.
Answer Ask(const std::string& prompt, bool blankEnds = false);

}  // namespace bench
