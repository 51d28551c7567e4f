#include "Script.h"

#include <cstdlib>
#include <map>
#include <optional>
#include <sstream>

namespace bench {
namespace {

std::string Trim(const std::string& text) {
    const size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Takes the first word off a line.
std::string TakeWord(std::string& line) {
    const size_t end = line.find_first_of(" \t");
    const std::string word = line.substr(0, end);
    line = end == std::string::npos ? std::string() : Trim(line.substr(end));
    return word;
}

std::string WithLineBreaks(const std::string& text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool lineBreak = text[i] == '\\' && i + 1 < text.size() && text[i + 1] == 'n';
        result += lineBreak ? '\n' : text[i];
        if (lineBreak) ++i;
    }
    return result;
}

class Reader {
 public:
    Reader(const std::string& outputFolder, Script& script) : outputFolder_(outputFolder), script_(script) {}

    std::string Read(const std::string& text) {
        script_ = {};
        std::istringstream lines(text);
        std::string line;
        while (std::getline(lines, line)) {
            ++line_;
            line = Trim(line);
            if (line.empty() || line[0] == '#') continue;
            const std::string trouble = Step(line);
            if (!trouble.empty()) return "Line " + std::to_string(line_) + ": " + trouble;
        }
        if (next_) return Unfinished();
        return script_.commands.empty() ? "The script has no command." : std::string();
    }

 private:
    std::string Step(std::string rest) {
        const std::string verb = TakeWord(rest);
        if (verb == "command") return Command(rest);
        if (script_.commands.empty()) return "\"" + verb + "\" comes before the first command.";
        if (verb == "configurator") {
            script_.commands.back().configurator = rest;
            return rest.empty() ? "\"configurator\" needs words, as in \"configurator choose first\"." : "";
        }
        if (verb == "dialog") return DialogStep(rest);
        if (verb == "box") return BoxStep(rest);
        if (verb == "screenshot") {
            screenshot_ = rest;
            return rest.empty() ? "\"screenshot\" needs a file name." : "";
        }
        return AnswerStep(verb, rest);
    }

    std::string Command(const std::string& name) {
        if (name.empty()) return "\"command\" needs a name.";
        if (next_) return Unfinished();
        script_.commands.emplace_back();
        script_.commands.back().line = line_;
        script_.commands.back().name = name;
        return {};
    }

    std::string AnswerStep(const std::string& verb, const std::string& rest) {
        static const std::map<std::string, Answer::Kind> kinds = {{"pick", Answer::kPick},
                                                                  {"miss", Answer::kMiss},
                                                                  {"enter", Answer::kEnter},
                                                                  {"escape", Answer::kEscape},
                                                                  {"text", Answer::kText}};
        const auto kind = kinds.find(verb);
        if (kind == kinds.end()) return "\"" + verb + "\" is no step.";
        const bool needsValue = verb == "pick" || verb == "text";
        if (needsValue && rest.empty()) return "\"" + verb + "\" needs a value.";
        if (!needsValue && !rest.empty()) return "\"" + verb + "\" takes no value.";
        script_.commands.back().answers.push_back({kind->second, rest});
        return {};
    }

    std::string DialogStep(std::string rest) {
        const std::string verb = TakeWord(rest);
        if (next_ && isBox_) return Unfinished();
        if (verb == "type" || verb == "shows") {
            char* end = nullptr;
            const std::string number = TakeWord(rest);
            const int control = static_cast<int>(std::strtol(number.c_str(), &end, 10));
            if (number.empty() || *end) return "\"dialog " + verb + "\" needs the number of a field.";
            Next(false);
            if (verb == "type")
                next_->Type(control, rest);
            else
                next_->Shows(control, rest);
            return {};
        }
        if (verb == "press" && !rest.empty()) {
            Next(false);
            return End([&](Expectation& dialog) { dialog.AnswerWith(rest); });
        }
        if (verb == "close" && rest.empty()) {
            Next(false);
            return End([](Expectation& dialog) { dialog.Close(); });
        }
        return "a dialog step is \"shows ID TEXT\", \"type ID TEXT\", \"press BUTTON\" or \"close\".";
    }

    std::string BoxStep(std::string rest) {
        const std::string verb = TakeWord(rest);
        if (next_ && !isBox_) return Unfinished();
        if (verb == "says" && !rest.empty()) {
            if (next_) return "this box has its text already.";
            next_ = Box(WithLineBreaks(rest));
            isBox_ = true;
            return {};
        }
        if (verb == "answer" && !rest.empty()) {
            Next(true);
            return End([&](Expectation& box) { box.AnswerWith(rest); });
        }
        return "a box step is \"says TEXT\" or \"answer BUTTON\".";
    }

    void Next(bool isBox) {
        if (next_) return;
        next_ = isBox ? AnyBox() : AnyDialog();
        isBox_ = isBox;
    }

    template <typename Last>
    std::string End(Last last) {
        if (!screenshot_.empty()) next_->Screenshot(outputFolder_ + "\\" + screenshot_);
        screenshot_.clear();
        last(*next_);
        script_.commands.back().dialogs.push_back(*next_);
        next_.reset();
        return {};
    }

    std::string Unfinished() const {
        return isBox_ ? "the box before has no answer." : "the dialog before is neither answered nor closed.";
    }

    const std::string outputFolder_;
    Script& script_;
    int line_ = 0;
    std::optional<Expectation> next_;
    bool isBox_ = false;
    std::string screenshot_;
};

}  // namespace

std::string ReadScript(const std::string& text, const std::string& outputFolder, Script& script) {
    return Reader(outputFolder, script).Read(text);
}

}  // namespace bench
