// The command line: what it shows, and the queued text that it works off.
#pragma once

#include <string>

namespace bench {

void Print(const std::string& text);
// One line (or, with blanks ending it too, one word) of the queued text; false when there is none.
bool TakeInput(bool blankEnds, std::wstring& line);

}  // namespace bench
