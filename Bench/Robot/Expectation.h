// What a script expects of the next dialog, and what is done with it. Built in one expression and given to the robot:
//   Box("User code is already in use.").Icon(BoxIcon::kWarning).AnswerWith("No")
//   Dialog("Configurator").Type(1102, "SORV7").Press(IDOK)
// The text of a box or the caption of a dialog says which one is meant; everything else that is expected is checked,
// and a difference becomes a complaint while the answer is given all the same, so that one fault does not hide the
// next.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "SeenDialog.h"

namespace bench {

class Expectation {
 public:
    // What is done with the dialog, on the robot's thread: an empty text, or what hindered it.
    using Step = std::function<std::string(const SeenDialog& seen)>;

    // `name` is how a complaint calls it, `meant` tells whether a dialog is the one.
    Expectation(const std::string& name, std::function<bool(const SeenDialog& seen)> meant);

    Expectation& Captioned(const std::string& caption);
    Expectation& Icon(BoxIcon icon);
    // Texts of the push buttons, in their order: {"Yes", "No"}.
    Expectation& Buttons(const std::vector<std::string>& texts);
    // The field's text before anything is typed.
    Expectation& Shows(int control, const std::string& text);

    // Replaces what the field holds, key by key, so that the field's own limit holds.
    Expectation& Type(int control, const std::string& text);
    Expectation& Press(int button);
    Expectation& AnswerWith(const std::string& buttonText);
    Expectation& Close();
    Expectation& Screenshot(const std::string& file);  // .png
    Expectation& Look(const std::function<void(const SeenDialog& seen)>& observer);

    const std::string& name() const { return name_; }
    bool Meant(const SeenDialog& seen) const { return meant_(seen); }
    // Everything that differs, one sentence each.
    std::vector<std::string> Differences(const SeenDialog& seen) const;
    const std::vector<Step>& steps() const { return steps_; }

 private:
    Expectation& Do(Step step);

    std::string name_;
    std::function<bool(const SeenDialog&)> meant_;
    std::optional<std::string> caption_;
    std::optional<BoxIcon> icon_;
    std::optional<std::vector<std::string>> buttons_;
    std::vector<std::pair<int, std::string>> fields_;
    std::vector<Step> steps_;
};

// A message box (no edit fields) with exactly this text.
Expectation Box(const std::string& text);
// A message box, whatever its text.
Expectation AnyBox();
// A dialog with exactly this caption.
Expectation Dialog(const std::string& caption);
// A dialog with edit fields, whatever its caption.
Expectation AnyDialog();

}  // namespace bench
