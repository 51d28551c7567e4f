#include "XmlLimits.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <string_view>
#include <vector>

#include "ticpp.h"

#include "Lib/Handles.h"

namespace {

// The parser's own idea of texts: it takes every byte from 127 on for a letter, and in UTF-8 steps over whole
// characters by their first byte.
class Scanner {
 public:
    Scanner(const char* text, const std::string& name) : text_(text), at_(text), name_(name) {
        if (StartsWith("\xEF\xBB\xBF")) encoding_ = TIXML_ENCODING_UTF8;
    }

    void Scan() {
        RefuseTruncatedCharacter();
        while (SkipNode()) {
        }
    }
    [[noreturn]] void Refuse(const std::string& what, const char* where) const {
        const auto line = std::count(text_, where, '\n') + 1;
        const char* start = where;
        while (start > text_ && start[-1] != '\n')
            --start;
        const std::string place =
            "(line " + std::to_string(line) + ',' + " column " + std::to_string(where - start + 1) + ")";
        throw ticpp::Exception(name_ + ": " + what + ' ' + place);
    }

 private:
    // The parser waits for ever for the two bytes that belong to this one.
    void RefuseTruncatedCharacter() const {
        const size_t length = std::strlen(text_);
        for (size_t i = length < 2 ? 0 : length - 2; i < length; ++i) {
            if (text_[i] == '\xEF') Refuse("A character is cut off at the end", text_ + i);
        }
    }

    bool StartsWith(const char* start) const { return std::strncmp(at_, start, std::strlen(start)) == 0; }

    void SkipBlanks() {
        const auto isMark = [this] {
            return StartsWith("\xEF\xBB\xBF") || StartsWith("\xEF\xBF\xBE") || StartsWith("\xEF\xBF\xBF");
        };
        for (;;) {
            if (std::isspace(static_cast<unsigned char>(*at_))) {
                ++at_;
            } else if (encoding_ == TIXML_ENCODING_UTF8 && *at_ == '\xEF' && isMark()) {
                at_ += 3;
            } else {
                return;
            }
        }
    }

    // All of these give false at the text's end and where the parser gives up.

    // Behind the next `end`.
    bool SkipThrough(const char* end) {
        const char* found = std::strstr(at_, end);
        if (found) at_ = found + std::strlen(end);
        return found != nullptr;
    }
    // A character given by its number. The parser reads the digits backwards, from the ";" to the nearest "x" or "#".
    bool SkipNumber() {
        const bool hexadecimal = at_[2] == 'x';
        const char* const end = std::strchr(at_ + 2, ';');
        if (!end) return false;
        for (const char* digit = end - 1; *digit != (hexadecimal ? 'x' : '#'); --digit) {
            const unsigned char byte = static_cast<unsigned char>(*digit);
            if (!(hexadecimal ? std::isxdigit(byte) : std::isdigit(byte))) return false;
        }
        at_ = end + 1;
        return true;
    }
    // To the next `end` that is a character of its own.
    bool SkipTextTo(char end) {
        while (*at_ && *at_ != end) {
            if (*at_ == '&' && at_[1] == '#' && at_[2]) {
                if (!SkipNumber()) return false;
                continue;
            }
            const unsigned char first = static_cast<unsigned char>(*at_);
            int step = 1;
            if (encoding_ == TIXML_ENCODING_UTF8 && first >= 0xC2 && first <= 0xF4)
                step = first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
            for (; step > 0 && *at_; --step)
                ++at_;
        }
        return *at_ != '\0';
    }
    static bool BeginsName(char letter) {
        const unsigned char byte = static_cast<unsigned char>(letter);
        return byte >= 127 || (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
    }
    bool SkipName() {
        if (!BeginsName(*at_)) return false;
        while (BeginsName(*at_) || (*at_ >= '0' && *at_ <= ':') || *at_ == '-' || *at_ == '.')
            ++at_;
        return *at_ != '\0';
    }
    // The parser gives up at a second attribute of one name. `names` are those before.
    bool SkipAttribute(std::vector<std::string_view>& names) {
        const char* const start = at_;
        if (!SkipName()) return false;
        const std::string_view name(start, static_cast<size_t>(at_ - start));
        SkipBlanks();
        if (*at_ != '=') return false;
        ++at_;
        SkipBlanks();
        if (!SkipValue() || std::find(names.begin(), names.end(), name) != names.end()) return false;
        names.push_back(name);
        return true;
    }
    bool SkipValue() {
        if (*at_ == '"' || *at_ == '\'') {
            const char quote = *at_++;
            if (!SkipTextTo(quote)) return false;
            ++at_;
            return true;
        }
        for (; *at_ && !std::isspace(static_cast<unsigned char>(*at_)) && *at_ != '/' && *at_ != '>'; ++at_) {
            if (*at_ == '"' || *at_ == '\'') return false;
        }
        return *at_ != '\0';
    }
    bool SkipStartTag() {
        const char* const tag = at_++;
        if (!SkipName()) return false;
        const std::string_view name(tag + 1, static_cast<size_t>(at_ - tag - 1));
        std::vector<std::string_view> attributes;
        for (;;) {
            SkipBlanks();
            if (*at_ == '/') return *++at_ == '>' && *at_++;
            if (*at_ == '>') break;
            if (attributes.size() == kMaxXmlAttributes) Refuse("More than 200 attributes in an element", at_);
            if (!SkipAttribute(attributes)) return false;
        }
        ++at_;
        if (open_.size() == kMaxXmlLevels) Refuse("More than 200 levels of elements", tag);
        open_.push_back(name);
        return true;
    }
    // The parser gives up at the end of another element than the open one.
    bool SkipEndTag() {
        at_ += 2;
        const std::string_view name = open_.back();
        open_.pop_back();
        if (std::strncmp(at_, name.data(), name.size()) != 0) return false;
        at_ += name.size();
        SkipBlanks();
        return *at_ == '>' && *at_++;
    }
    // The declaration of a document without a mark says how its texts are coded.
    bool SkipDeclaration() {
        TiXmlDeclaration declaration;
        const char* end = declaration.Parse(at_, nullptr, encoding_);
        if (!end) return false;
        at_ = end;
        if (!open_.empty() || encoding_ != TIXML_ENCODING_UNKNOWN) return true;
        std::string encoding = declaration.Encoding();
        std::transform(encoding.begin(), encoding.end(), encoding.begin(),
                       [](char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); });
        const bool utf8 =
            encoding.empty() || encoding.compare(0, 5, "utf-8") == 0 || encoding.compare(0, 4, "utf8") == 0;
        encoding_ = utf8 ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_LEGACY;
        return true;
    }
    bool SkipNode() {
        SkipBlanks();
        if (!*at_) return false;
        if (!open_.empty() && *at_ == '<' && at_[1] == '/') return SkipEndTag();
        if (++nodes_ > kMaxXmlNodes) Refuse("More than 100000 elements, texts and comments", at_);
        if (*at_ != '<') return !open_.empty() && SkipTextTo('<');
        if (at_[1] == '?' && std::tolower(at_[2]) == 'x' && std::tolower(at_[3]) == 'm' && std::tolower(at_[4]) == 'l')
            return SkipDeclaration();
        if (StartsWith("<!--")) return (at_ += 4, SkipThrough("-->"));
        if (StartsWith("<![CDATA[")) return (at_ += 9, SkipThrough("]]>"));
        return BeginsName(at_[1]) ? SkipStartTag() : SkipThrough(">");
    }

    const char* const text_;
    const char* at_;
    const std::string& name_;
    TiXmlEncoding encoding_ = TIXML_ENCODING_UNKNOWN;
    size_t nodes_ = 0;
    std::vector<std::string_view> open_;  // names of the elements around the place, the innermost last
};

// CR LF and a CR alone become LF.
void EndLinesInLf(std::string& text) {
    size_t to = 0;
    for (size_t at = 0; at < text.size(); ++at) {
        const bool carriageReturn = text[at] == '\r';
        text[to++] = carriageReturn ? '\n' : text[at];
        if (carriageReturn && at + 1 < text.size() && text[at + 1] == '\n') ++at;
    }
    text.resize(to);
}

}  // namespace

std::string ReadXmlFile(const std::string& path) {
    const StdioFile file(std::fopen(path.c_str(), "rb"));
    if (!file) throw ticpp::Exception(path + ": Failed to open file");
    std::fseek(file.get(), 0, SEEK_END);
    const long size = std::ftell(file.get());
    std::fseek(file.get(), 0, SEEK_SET);
    std::string text(size > 0 ? std::min(static_cast<size_t>(size), kMaxXmlBytes + 1) : 0, '\0');
    if (size < 0 || std::fread(text.data(), 1, text.size(), file.get()) != text.size())
        throw ticpp::Exception(path + ": Failed to read file");
    if (text.size() <= kMaxXmlBytes) EndLinesInLf(text);
    CheckXmlLimits(text, path);
    // The parser steps over the whole of a character whose end the text has lost.
    text.append(3, '\0');
    return text;
}

void CheckXmlLimits(const std::string& xml, const std::string& name) {
    Scanner scanner(xml.c_str(), name);
    if (xml.size() > kMaxXmlBytes) scanner.Refuse("More than 16 MB", xml.c_str() + kMaxXmlBytes);
    scanner.Scan();
}
