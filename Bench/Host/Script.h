// Scripts of the bench host: one step a line, "#" opens a comment line, indentation is free. A step "command NAME"
// opens a command; the steps after it are what the user does while that command runs:
//   pick HANDLE | miss | enter | escape | text WORDS       answers at the command line, in order
//   configurator WORDS                                     how the configurator window is answered
//   dialog shows ID TEXT | dialog type ID TEXT             in the next dialog
//   dialog press BUTTON | dialog close                     ends a dialog's steps
//   box says TEXT | box answer BUTTON                      the next message box; "\n" in TEXT is a line break
//   screenshot FILE                                        picture of the next dialog or box, into the output folder
// Dialogs and boxes are met in the order in which the script ends their steps.
#pragma once

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "Expectation.h"

namespace bench {

struct ScriptCommand {
    int line = 0;
    std::string name;
    std::string configurator;  // empty: its own default
    std::vector<Answer> answers;
    std::vector<Expectation> dialogs;
};

struct Script {
    std::vector<ScriptCommand> commands;
};

// `outputFolder` receives the screenshots. An empty text on success, otherwise a sentence that opens with the line.
std::string ReadScript(const std::string& text, const std::string& outputFolder, Script& script);

}  // namespace bench
