// What a test or script expects of the next dialog, and how it is answered. Built in one expression and passed to the
// robot:
//   Box("User code is already in use.").Icon(BoxIcon::kWarning).AnswerWith("No")
//   Dialog("Configurator").Type(1102, "SORV7").Press(IDOK)
// A box is identified by its text, a dialog by its caption. Everything else expected is checked; a difference becomes a
// complaint, but the answer is still given, so that one fault does not hide the next.
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
    // An action on the dialog, run on the robot's thread. Returns an empty string, or what prevented it.
    using Step = std::function<std::string(const SeenDialog& seen)>;

    // `name` identifies it in complaints; `matches` decides whether a dialog is the expected one.
    Expectation(const std::string& name, std::function<bool(const SeenDialog& seen)> matches);

    Expectation& Captioned(const std::string& caption);
    Expectation& Icon(BoxIcon icon);
    // The texts of the push buttons in their order: {"Yes", "No"}.
    Expectation& Buttons(const std::vector<std::string>& texts);
    // The field's text before typing.
    Expectation& Shows(int control, const std::string& text);

    // Replaces the field's text key by key, so that the field's length limit applies.
    Expectation& Type(int control, const std::string& text);
    Expectation& Press(int button);
    Expectation& AnswerWith(const std::string& buttonText);
    Expectation& Close();
    Expectation& Screenshot(const std::string& file);  // .png
    Expectation& Look(const std::function<void(const SeenDialog& seen)>& observer);

    const std::string& name() const { return name_; }
    bool Matches(const SeenDialog& seen) const { return matches_(seen); }
    // Returns all differences, one sentence each.
    std::vector<std::string> Differences(const SeenDialog& seen) const;
    const std::vector<Step>& steps() const { return steps_; }

 private:
    Expectation& Do(Step step);

    std::string name_;
    std::function<bool(const SeenDialog&)> matches_;
    std::optional<std::string> caption_;
    std::optional<BoxIcon> icon_;
    std::optional<std::vector<std::string>> buttons_;
    std::vector<std::pair<int, std::string>> fields_;
    std::vector<Step> steps_;
};

// A message box (no edit fields) with exactly this text.
Expectation Box(const std::string& text);
// A message box with any text.
Expectation AnyBox();
// A dialog with exactly this caption.
Expectation Dialog(const std::string& caption);
// A dialog with edit fields and any caption.
Expectation AnyDialog();

}  // namespace bench
