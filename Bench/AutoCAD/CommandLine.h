// The command line: its output, its queued input and its prompts.
#pragma once

#include <string>

#include "BenchAutoCAD.h"

namespace bench {

// Takes one line of queued input, or one word if blanks also end it. Returns false when there is none.
bool TakeInput(bool blankEnds, std::wstring& line);
// Prints the prompt, takes the next answer and prints it. Without an answer, reports a violation and returns Escape.
Answer Ask(const std::string& prompt, bool blankEnds = false);

}  // namespace bench
