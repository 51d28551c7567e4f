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

// Removes the first word from a line and returns it.
std::string TakeWord(std::string& line) {
    const size_t end = line.find_first_of(" \t");
    const std::string word = line.substr(0, end);
    line = end == std::string::npos ? std::string() : Trim(line.substr(end));
    return word;
}

class Reader {
 public:
    Reader(const std::string& outputFolder, Script& script) : outputFolder_(outputFolder), script_(script) {}

    std::string Read(const std::string& text) {
        script_.clear();
        std::istringstream lines(text);
        std::string line;
        for (int number = 1; std::getline(lines, line); ++number) {
            line = Trim(line);
            if (line.empty() || line[0] == '#') continue;
            const std::string problem = Step(line);
            if (!problem.empty()) return "Line " + std::to_string(number) + ": " + problem;
        }
        if (dialog_) return kUnfinished;
        return script_.empty() ? "The script has no command." : std::string();
    }

 private:
    static constexpr char kUnfinished[] = "the dialog before is neither answered nor closed.";

    std::string Step(std::string rest) {
        const std::string verb = TakeWord(rest);
        if (verb == "command") {
            if (rest.empty()) return "\"command\" needs a name.";
            if (dialog_) return kUnfinished;
            script_.emplace_back();
            script_.back().name = rest;
            return {};
        }
        if (script_.empty()) return "\"" + verb + "\" comes before the first command.";
        if (verb == "dialog") return DialogStep(rest);
        if (verb == "box") return BoxStep(rest);
        if (verb == "configurator" || verb == "screenshot") {
            (verb == "screenshot" ? screenshot_ : script_.back().configurator) = rest;
            return rest.empty() ? "\"" + verb + "\" needs a value." : std::string();
        }
        return AnswerStep(verb, rest);
    }

    std::string AnswerStep(const std::string& verb, const std::string& rest) {
        static const std::map<std::string, Answer::Kind> kinds = {{"pick", Answer::kPick},
                                                                  {"miss", Answer::kMiss},
                                                                  {"enter", Answer::kEnter},
                                                                  {"escape", Answer::kEscape},
                                                                  {"text", Answer::kText}};
        const auto kind = kinds.find(verb);
        if (kind == kinds.end()) return "\"" + verb + "\" is not a step.";
        const bool needsValue = verb == "pick" || verb == "text";
        if (needsValue == rest.empty()) return "\"" + verb + (needsValue ? "\" needs a value." : "\" takes no value.");
        script_.back().answers.push_back({kind->second, rest});
        return {};
    }

    std::string DialogStep(std::string rest) {
        const std::string verb = TakeWord(rest);
        if (!dialog_) dialog_ = AnyDialog();
        if (verb == "type" || verb == "shows") {
            char* end = nullptr;
            const std::string number = TakeWord(rest);
            const int control = static_cast<int>(std::strtol(number.c_str(), &end, 10));
            if (number.empty() || *end) return "\"dialog " + verb + "\" needs the number of a field.";
            verb == "type" ? dialog_->Type(control, rest) : dialog_->Shows(control, rest);
            return {};
        }
        const bool press = verb == "press" && !rest.empty();
        if (!press && (verb != "close" || !rest.empty()))
            return "a dialog step is \"shows ID TEXT\", \"type ID TEXT\", \"press BUTTON\" or \"close\".";
        TakeScreenshot(*dialog_);
        script_.back().dialogs.push_back(press ? dialog_->AnswerWith(rest) : dialog_->Close());
        dialog_.reset();
        return {};
    }

    std::string BoxStep(const std::string& button) {
        if (dialog_) return kUnfinished;
        if (button.empty()) return "\"box\" needs a button.";
        Expectation box = AnyBox();
        TakeScreenshot(box);
        script_.back().dialogs.push_back(box.AnswerWith(button));
        return {};
    }

    void TakeScreenshot(Expectation& expectation) {
        if (!screenshot_.empty()) expectation.Screenshot(outputFolder_ + "\\" + screenshot_);
        screenshot_.clear();
    }

    const std::string outputFolder_;
    Script& script_;
    std::optional<Expectation> dialog_;  // whose steps are being read
    std::string screenshot_;             // of the next dialog or box
};

}  // namespace

std::string ReadScript(const std::string& text, const std::string& outputFolder, Script& script) {
    return Reader(outputFolder, script).Read(text);
}

}  // namespace bench
