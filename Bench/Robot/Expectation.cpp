#include "Expectation.h"

#include <algorithm>
#include <utility>

namespace bench {
namespace {

std::string Join(const std::vector<std::string>& words) {
    std::string line;
    for (const std::string& word : words)
        line += (line.empty() ? "" : " ") + word;
    return line;
}

std::string Quoted(const std::string& text) {
    std::string line;
    for (char c : text)
        line += c == '\n' ? std::string("\\n") : std::string(1, c);
    return "\"" + line + "\"";
}

}  // namespace

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
    return "an icon of its own";
}

std::string SeenDialog::ButtonTexts() const {
    std::vector<std::string> texts;
    for (const SeenButton& button : buttons)
        texts.push_back(button.text);
    return Join(texts);
}

std::string SeenDialog::Describe() const {
    return std::string(edits.empty() ? "the box " : "the dialog ") + Quoted(text) + ", caption " + Quoted(caption) +
           ", buttons " + ButtonTexts() + ", " + NameOf(icon);
}

Expectation Box(const std::string& text) {
    Expectation expectation;
    expectation.knownBy_ = Expectation::KnownBy::kText;
    expectation.text_ = text;
    return expectation;
}

Expectation AnyBox() {
    Expectation expectation;
    expectation.knownBy_ = Expectation::KnownBy::kBeingABox;
    return expectation;
}

Expectation AnyDialog() {
    Expectation expectation;
    expectation.knownBy_ = Expectation::KnownBy::kBeingADialog;
    return expectation;
}

Expectation Dialog(const std::string& caption) {
    Expectation expectation;
    expectation.knownBy_ = Expectation::KnownBy::kCaption;
    expectation.caption_ = caption;
    return expectation;
}

Expectation& Expectation::Captioned(const std::string& caption) {
    caption_ = caption;
    return *this;
}

Expectation& Expectation::Saying(const std::string& text) {
    text_ = text;
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
    fields_.push_back({control, text, {}});
    return *this;
}

Expectation& Expectation::Limit(int control, size_t characters) {
    fields_.push_back({control, {}, characters});
    return *this;
}

Expectation& Expectation::Type(int control, const std::string& text) {
    steps_.push_back(TypeText{control, text});
    return *this;
}

Expectation& Expectation::Press(int button) {
    steps_.push_back(PressButton{button});
    return *this;
}

Expectation& Expectation::AnswerWith(const std::string& buttonText) {
    steps_.push_back(PressNamed{buttonText});
    return *this;
}

Expectation& Expectation::Key(int virtualKey) {
    steps_.push_back(PressKey{virtualKey});
    return *this;
}

Expectation& Expectation::Close() {
    steps_.push_back(CloseWindowByFrame{});
    return *this;
}

Expectation& Expectation::Screenshot(const std::string& file) {
    steps_.push_back(TakePicture{file});
    return *this;
}

Expectation& Expectation::Look(std::function<void(const SeenDialog&)> observer) {
    steps_.push_back(Observe{std::move(observer)});
    return *this;
}

bool Expectation::Meant(const SeenDialog& seen) const {
    switch (knownBy_) {
        case KnownBy::kText:
            return seen.edits.empty() && seen.text == *text_;
        case KnownBy::kCaption:
            return seen.caption == *caption_;
        case KnownBy::kBeingABox:
            return seen.edits.empty();
        case KnownBy::kBeingADialog:
            return !seen.edits.empty();
    }
    return false;
}

std::vector<std::string> Expectation::Differences(const SeenDialog& seen) const {
    std::vector<std::string> sentences;
    const auto differ = [&](const std::string& what, const std::string& expected, const std::string& found) {
        if (expected != found)
            sentences.push_back("The " + what + " of " + Describe() + " was expected to be " + Quoted(expected) +
                                " and is " + Quoted(found) + ".");
    };
    if (caption_) differ("caption", *caption_, seen.caption);
    if (text_) differ("text", *text_, seen.text);
    if (icon_) differ("icon", NameOf(*icon_), NameOf(seen.icon));
    if (buttons_) differ("row of buttons", Join(*buttons_), seen.ButtonTexts());
    for (const Field& field : fields_) {
        const auto found = std::find_if(seen.edits.begin(), seen.edits.end(),
                                        [&](const SeenEdit& edit) { return edit.id == field.control; });
        const std::string name = "field " + std::to_string(field.control);
        if (found == seen.edits.end()) {
            sentences.push_back("There is no " + name + " in " + Describe() + ".");
            continue;
        }
        if (field.text) differ(name, *field.text, found->text);
        if (field.limit) differ("limit of " + name, std::to_string(*field.limit), std::to_string(found->limit));
    }
    return sentences;
}

std::string Expectation::Describe() const {
    switch (knownBy_) {
        case KnownBy::kText:
            return "the box " + Quoted(*text_);
        case KnownBy::kCaption:
            return "the dialog " + Quoted(*caption_);
        case KnownBy::kBeingABox:
            return "a box";
        case KnownBy::kBeingADialog:
            break;
    }
    return "a dialog";
}

}  // namespace bench
