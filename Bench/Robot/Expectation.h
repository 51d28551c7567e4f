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
#include <variant>
#include <vector>

#include "SeenDialog.h"

namespace bench {

struct TypeText {
    int control;
    std::string text;  // replaces what the field holds, key by key, so that the field's own limit holds
};
struct PressButton {
    int id;
};
struct PressNamed {
    std::string text;
};
struct PressKey {
    int key;  // virtual key, as VK_RETURN or VK_ESCAPE
};
struct CloseWindowByFrame {};
struct TakePicture {
    std::string file;  // .png
};
struct Observe {
    std::function<void(const SeenDialog&)> observer;  // runs on the robot's thread while the dialog is up
};
using DialogStep = std::variant<TypeText, PressButton, PressNamed, PressKey, CloseWindowByFrame, TakePicture, Observe>;

class Expectation {
 public:
    Expectation& Captioned(const std::string& caption);
    Expectation& Saying(const std::string& text);
    Expectation& Icon(BoxIcon icon);
    // Texts of the push buttons, in their order: {"Yes", "No"}.
    Expectation& Buttons(const std::vector<std::string>& texts);
    // The field's text and its limit before anything is typed.
    Expectation& Shows(int control, const std::string& text);
    Expectation& Limit(int control, size_t characters);

    Expectation& Type(int control, const std::string& text);
    Expectation& Press(int button);
    Expectation& AnswerWith(const std::string& buttonText);
    Expectation& Key(int virtualKey);
    Expectation& Close();
    Expectation& Screenshot(const std::string& file);
    Expectation& Look(std::function<void(const SeenDialog&)> observer);

    // Whether this is the dialog that was meant.
    bool Meant(const SeenDialog& seen) const;
    // Everything that differs, one sentence each.
    std::vector<std::string> Differences(const SeenDialog& seen) const;
    std::string Describe() const;
    const std::vector<DialogStep>& steps() const { return steps_; }

 private:
    friend Expectation Box(const std::string& text);
    friend Expectation AnyBox();
    friend Expectation AnyDialog();
    friend Expectation Dialog(const std::string& caption);

    enum class KnownBy { kText, kCaption, kBeingABox, kBeingADialog } knownBy_ = KnownBy::kText;
    struct Field {
        int control;
        std::optional<std::string> text;
        std::optional<size_t> limit;
    };

    std::optional<std::string> caption_;
    std::optional<std::string> text_;
    std::optional<BoxIcon> icon_;
    std::optional<std::vector<std::string>> buttons_;
    std::vector<Field> fields_;
    std::vector<DialogStep> steps_;
};

// A message box with exactly this text.
Expectation Box(const std::string& text);
// A message box (a dialog without edit fields), whatever it says.
Expectation AnyBox();
// A dialog with edit fields, whatever its caption.
Expectation AnyDialog();
// A dialog with exactly this caption.
Expectation Dialog(const std::string& caption);

}  // namespace bench
