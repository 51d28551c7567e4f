#include "Expectation.h"

#include <algorithm>
#include <utility>

#include "BenchTexts.h"
#include "DialogWindow.h"

namespace bench {
namespace {

const char* NameOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::kNone:
            return "no icon";
        case BoxIcon::kError:
            return "error icon";
        case BoxIcon::kWarning:
            return "warning icon";
        case BoxIcon::kQuestion:
            return "question icon";
        case BoxIcon::kInformation:
            return "information icon";
        case BoxIcon::kOther:
            break;
    }
    return "a custom icon";
}

}  // namespace

std::string SeenDialog::ButtonTexts() const {
    std::vector<std::string> texts;
    for (const SeenButton& button : buttons)
        texts.push_back(button.text);
    return Join(texts, " ");
}

std::string SeenDialog::Describe() const {
    return std::string(edits.empty() ? "the box " : "the dialog ") + Escaped(text) + ", caption " + Escaped(caption) +
           ", buttons " + ButtonTexts() + ", " + NameOf(icon);
}

Expectation Box(const std::string& text) {
    return {"the box " + Escaped(text),
            [text](const SeenDialog& seen) { return seen.edits.empty() && seen.text == text; }};
}

Expectation AnyBox() {
    return {"a box", [](const SeenDialog& seen) { return seen.edits.empty(); }};
}

Expectation Dialog(const std::string& caption) {
    return {"the dialog " + Escaped(caption), [caption](const SeenDialog& seen) { return seen.caption == caption; }};
}

Expectation AnyDialog() {
    return {"a dialog", [](const SeenDialog& seen) { return !seen.edits.empty(); }};
}

Expectation::Expectation(const std::string& name, std::function<bool(const SeenDialog&)> matches)
    : name_(name), matches_(std::move(matches)) {}

Expectation& Expectation::Captioned(const std::string& caption) {
    caption_ = caption;
    return *this;
}

Expectation& Expectation::Icon(BoxIcon icon) {
    icon_ = icon;
    return *this;
}

Expectation& Expectation::Buttons(const std::vector<std::string>& texts) {
    buttons_ = texts;
    return *this;
}

Expectation& Expectation::Shows(int control, const std::string& text) {
    fields_.emplace_back(control, text);
    return *this;
}

Expectation& Expectation::Do(Step step) {
    steps_.push_back(std::move(step));
    return *this;
}

Expectation& Expectation::Type(int control, const std::string& text) {
    return Do([=](const SeenDialog& seen) { return TypeInto(seen.window, control, text); });
}

Expectation& Expectation::Press(int button) {
    return Do([=](const SeenDialog& seen) { return PressButtonOf(seen.window, button); });
}

Expectation& Expectation::AnswerWith(const std::string& buttonText) {
    return Do([=](const SeenDialog& seen) {
        const int id = ButtonNamed(seen, buttonText);
        return id ? PressButtonOf(seen.window, id) : "there is no button " + Escaped(buttonText);
    });
}

Expectation& Expectation::Close() {
    return Do([](const SeenDialog& seen) { return CloseByFrame(seen.window); });
}

Expectation& Expectation::Screenshot(const std::string& file) {
    return Do([=](const SeenDialog& seen) { return SavePictureOf(seen.window, file); });
}

Expectation& Expectation::Look(const std::function<void(const SeenDialog&)>& observer) {
    return Do([=](const SeenDialog& seen) {
        observer(seen);
        return std::string();
    });
}

std::vector<std::string> Expectation::Differences(const SeenDialog& seen) const {
    std::vector<std::string> sentences;
    const auto differ = [&](const std::string& what, const std::string& expected, const std::string& found) {
        if (expected != found)
            sentences.push_back("The " + what + " of " + name_ + " was expected to be " + Escaped(expected) +
                                " and is " + Escaped(found) + ".");
    };
    if (caption_) differ("caption", *caption_, seen.caption);
    if (icon_) differ("icon", NameOf(*icon_), NameOf(seen.icon));
    if (buttons_) differ("row of buttons", Join(*buttons_, " "), seen.ButtonTexts());
    for (const auto& [control, text] : fields_) {
        const auto found = std::find_if(seen.edits.begin(), seen.edits.end(),
                                        [id = control](const SeenEdit& edit) { return edit.id == id; });
        const std::string name = "field " + std::to_string(control);
        if (found == seen.edits.end())
            sentences.push_back("There is no " + name + " in " + name_ + ".");
        else
            differ(name, text, found->text);
    }
    return sentences;
}

}  // namespace bench
