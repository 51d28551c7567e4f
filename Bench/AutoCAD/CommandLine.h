// The command line: what it shows, the queued text that it works off, and its prompts.
#pragma once

#include <string>

#include "BenchAutoCAD.h"

namespace bench {

void Print(const std::string& text);
// One line (or, with blanks ending it too, one word) of the queued text; false when there is none.
bool TakeInput(bool blankEnds, std::wstring& line);
// Prints the prompt, takes the next answer and shows it. Accuses and escapes when nobody answers.
Answer Ask(const std::string& prompt, bool blankEnds = false);

}  // namespace bench
