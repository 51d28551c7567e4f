// Scripts of the bench host: one step a line, "#" opens a comment line, indentation is free. A step "command NAME"
// opens a command; the steps after it are what the user does while that command runs:
//   pick HANDLE | miss | enter | escape | text WORDS       answers at the command line, in order
//   configurator WORDS                                     how the configurator window is answered
//   dialog shows ID TEXT | dialog type ID TEXT             in the next dialog
//   dialog press BUTTON | dialog close                     ends a dialog's steps
//   box BUTTON                                             in the next message box: "box Yes"
//   screenshot FILE                                        picture of the next dialog or box, into the output folder
// Dialogs and boxes are expected in the order in which the script answers them. A dialog that stays open needs steps of
// its own for the next answer.
#pragma once

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "Expectation.h"

namespace bench {

struct ScriptCommand {
    std::string name;
    std::string configurator = "choose first";
    std::vector<Answer> answers;
    std::vector<Expectation> dialogs;  // and message boxes
};

using Script = std::vector<ScriptCommand>;

// `outputFolder` receives the screenshots. An empty text on success, otherwise a sentence that opens with the line.
std::string ReadScript(const std::string& text, const std::string& outputFolder, Script& script);

}  // namespace bench
