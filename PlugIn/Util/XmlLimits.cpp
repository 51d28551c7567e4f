#include "Util/XmlLimits.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <string_view>
#include <vector>

#include "ticpp.h"

#include "Lib/WholeFile.h"

namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";

char ToLower(char letter) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

bool IsSpace(char character) {
    return std::isspace(static_cast<unsigned char>(character)) != 0;
}

// The parser accepts every byte from 127 on as a letter.
bool IsNameStart(char character) {
    const unsigned char byte = static_cast<unsigned char>(character);
    return byte >= 127 || std::isalpha(byte) || byte == '_';
}

bool IsNameCharacter(char character) {
    return IsNameStart(character) || (character >= '0' && character <= '9') || character == ':' || character == '-' ||
           character == '.';
}

// Scans the way the parser does, faults included: where the parser stops with an error, the scan ends too.
class Scanner {
 public:
    Scanner(const char* text, const std::string& name) : text_(text), at_(text), name_(name) {
        if (StartsWith(kByteOrderMark)) encoding_ = TIXML_ENCODING_UTF8;
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
    // The parser loops forever when one of the two bytes after this lead byte is missing.
    void RefuseTruncatedCharacter() const {
        const std::string_view text = text_;
        const size_t found = text.find('\xEF', text.size() - std::min<size_t>(text.size(), 2));
        if (found != text.npos) Refuse("A character is cut off at the end", text_ + found);
    }

    bool StartsWith(std::string_view start) const { return std::strncmp(at_, start.data(), start.size()) == 0; }

    // The parser skips byte order marks and two characters that do not exist like white space.
    bool AtIgnoredCharacter() const {
        return encoding_ == TIXML_ENCODING_UTF8 && *at_ == '\xEF' &&
               (StartsWith(kByteOrderMark) || StartsWith("\xEF\xBF\xBE") || StartsWith("\xEF\xBF\xBF"));
    }
    // "<?xml" in any letter case.
    bool AtDeclaration() const {
        return StartsWith("<?") && ToLower(at_[2]) == 'x' && ToLower(at_[3]) == 'm' && ToLower(at_[4]) == 'l';
    }
    // Bytes of the character here, as the parser counts them.
    int CharacterSize() const {
        const unsigned char first = static_cast<unsigned char>(*at_);
        if (encoding_ != TIXML_ENCODING_UTF8 || first < 0xC2 || first > 0xF4) return 1;
        if (first < 0xE0) return 2;
        return first < 0xF0 ? 3 : 4;
    }

    void SkipBlanks() {
        for (;;) {
            if (IsSpace(*at_))
                ++at_;
            else if (AtIgnoredCharacter())
                at_ += 3;
            else
                return;
        }
    }

    // The functions below return false at the end of the text and where the parser stops.

    bool Skip(std::string_view expected) {
        if (!StartsWith(expected)) return false;
        at_ += expected.size();
        return true;
    }
    // To behind the next `end`.
    bool SkipThrough(std::string_view end) {
        const char* const found = std::strstr(at_, end.data());
        if (!found) return false;
        at_ = found + end.size();
        return true;
    }
    // A numeric character reference. The parser reads its digits backwards, from the ";" to the nearest "x" or "#".
    bool SkipReference() {
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
    // To the next `end` that is not part of a longer character.
    bool SkipTextTo(char end) {
        while (*at_ && *at_ != end) {
            if (*at_ == '&' && at_[1] == '#' && at_[2]) {
                if (!SkipReference()) return false;
                continue;
            }
            for (int left = CharacterSize(); left > 0 && *at_; --left)
                ++at_;
        }
        return *at_ != '\0';
    }
    bool SkipName() {
        if (!IsNameStart(*at_)) return false;
        while (IsNameCharacter(*at_))
            ++at_;
        return *at_ != '\0';
    }
    // `names` are the element's earlier attributes: the parser stops at a second one of the same name.
    bool SkipAttribute(std::vector<std::string_view>& names) {
        const char* const start = at_;
        if (!SkipName()) return false;
        const std::string_view name(start, static_cast<size_t>(at_ - start));
        SkipBlanks();
        if (!Skip("=")) return false;
        SkipBlanks();
        if (!SkipValue() || std::find(names.begin(), names.end(), name) != names.end()) return false;
        names.push_back(name);
        return true;
    }
    bool SkipValue() {
        if (Skip("\"")) return SkipTextTo('"') && Skip("\"");
        if (Skip("'")) return SkipTextTo('\'') && Skip("'");
        for (; *at_ && !IsSpace(*at_) && *at_ != '/' && *at_ != '>'; ++at_) {
            if (*at_ == '"' || *at_ == '\'') return false;
        }
        return *at_ != '\0';
    }
    bool SkipStartTag() {
        const char* const tag = at_++;
        SkipBlanks();  // byte order marks may precede the name
        const char* const start = at_;
        if (!SkipName()) return false;
        const std::string_view name(start, static_cast<size_t>(at_ - start));
        std::vector<std::string_view> attributes;
        for (;;) {
            SkipBlanks();
            if (Skip("/")) return Skip(">");
            if (Skip(">")) break;
            if (*at_ && attributes.size() == kMaxXmlAttributes) Refuse("More than 200 attributes in an element", at_);
            if (!SkipAttribute(attributes)) return false;
        }
        if (open_.size() == kMaxXmlLevels) Refuse("More than 200 levels of elements", tag);
        open_.push_back(name);
        return true;
    }
    // Fails when the tag closes another element than the innermost open one.
    bool SkipEndTag() {
        const std::string_view name = open_.back();
        open_.pop_back();
        if (!Skip("</") || !Skip(name)) return false;
        SkipBlanks();
        return Skip(">");
    }
    // A declaration at the top level sets the encoding, unless a byte order mark or an earlier one has.
    bool SkipDeclaration() {
        TiXmlDeclaration declaration;
        const char* const end = declaration.Parse(at_, nullptr, encoding_);
        if (!end) return false;
        at_ = end;
        if (!open_.empty() || encoding_ != TIXML_ENCODING_UNKNOWN) return true;
        std::string encoding = declaration.Encoding();
        std::transform(encoding.begin(), encoding.end(), encoding.begin(), ToLower);
        const bool utf8 = encoding.empty() || encoding.rfind("utf-8", 0) == 0 || encoding.rfind("utf8", 0) == 0;
        encoding_ = utf8 ? TIXML_ENCODING_UTF8 : TIXML_ENCODING_LEGACY;
        return true;
    }
    bool SkipNode() {
        SkipBlanks();
        if (!*at_) return false;
        if (!open_.empty() && StartsWith("</")) return SkipEndTag();
        if (++nodes_ > kMaxXmlNodes) Refuse("More than 100000 elements, texts and comments", at_);
        if (*at_ != '<') return !open_.empty() && SkipTextTo('<');
        if (AtDeclaration()) return SkipDeclaration();
        if (Skip("<!--")) return SkipThrough("-->");
        if (Skip("<![CDATA[")) return SkipThrough("]]>");
        return IsNameStart(at_[1]) ? SkipStartTag() : SkipThrough(">");
    }

    const char* const text_;
    const char* at_;
    const std::string& name_;
    TiXmlEncoding encoding_ = TIXML_ENCODING_UNKNOWN;
    size_t nodes_ = 0;
    std::vector<std::string_view> open_;  // names of the open elements, innermost last
};

// Replaces CR LF and lone CR by LF.
void ConvertLineEndsToLf(std::string& text) {
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
    std::string text;
    const WholeFile read = ReadWholeFile(path.c_str(), text, kMaxXmlBytes + 1);
    if (read == WholeFile::kNotOpened) throw ticpp::Exception(path + ": Failed to open file");
    if (read == WholeFile::kNotRead) throw ticpp::Exception(path + ": Failed to read file");
    if (text.size() <= kMaxXmlBytes) ConvertLineEndsToLf(text);
    CheckXmlLimits(text, path);
    // The parser skips up to three bytes beyond a truncated character.
    text.append(3, '\0');
    return text;
}

void CheckXmlLimits(const std::string& xml, const std::string& name) {
    Scanner scanner(xml.c_str(), name);
    if (xml.size() > kMaxXmlBytes) scanner.Refuse("More than 16 MB", xml.c_str() + kMaxXmlBytes);
    scanner.Scan();
}
