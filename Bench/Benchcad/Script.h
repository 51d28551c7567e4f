// Scripts of benchcad: one step per line; a line that begins with "#" is a comment; indentation is ignored. The
// step "command NAME" runs a command; the steps after it are the user's actions while that command runs:
//   pick HANDLE | miss | enter | escape | text WORDS       answers at the command line, in order
//   configurator WORDS                                     instruction for the configurator simulator
//   dialog shows ID TEXT | dialog type ID TEXT             in the next dialog
//   dialog press BUTTON | dialog close                     ends a dialog's steps
//   box BUTTON                                             in the next message box: "box Yes"
//   screenshot FILE                                        picture of the next dialog or box, into the output folder
// Dialogs and boxes are expected in the order of the script. A dialog that stays open needs new steps for its next
// answer.
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

// `outputFolder` receives the screenshots. Returns an empty string on success, otherwise a sentence that begins with
// the line number.
std::string ReadScript(const std::string& text, const std::string& outputFolder, Script& script);

}  // namespace bench
