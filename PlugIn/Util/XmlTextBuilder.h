// Builds a text by appending, also printf-style, and escapes XML. Arguments of formats are those of printf: numbers and
// narrow C strings.
#pragma once

#include "PrintfFormat.h"

#include <string>
#include <string_view>
#include <type_traits>

class XmlTextBuilder {
 public:
    // A null text or format appends nothing.
    void Append(const char* text) {
        if (text) Append(std::string_view(text));
    }
    void Append(std::string_view text) {
        Reserve(text.size());
        text_ += text;
    }
    PRINTF_FORMAT(format, 2, 3) void AppendFormat(const char* format, ...);
    // Appends two upper-case hexadecimal digits for each byte.
    void AppendHex(const void* bytes, size_t count);

    const std::string& Text() const { return text_; }

    // Formats, then replaces the characters & < > " ' by their entities. A value without arguments is also a format, so
    // "%%" in it becomes "%" (FormatOwnText). A null format returns an empty string.
    static std::string Escape(const char* value);
    static std::string Escape(const std::string& value) { return Escape(value.c_str()); }
    template <class First, class... Others>
    static std::string Escape(const char* format, First first, Others... others) {
        static_assert(IsPrintfArgument<First>() && (IsPrintfArgument<Others>() && ...), "printf accepts no objects");
        return EscapeFormat(format, first, others...);
    }

 private:
    template <class Argument>
    static constexpr bool IsPrintfArgument() {
        return std::is_arithmetic_v<Argument> || std::is_pointer_v<Argument> || std::is_enum_v<Argument>;
    }
    static std::string EscapeFormat(const char* format, ...);
    void Reserve(size_t more) {
        const size_t needed = text_.size() + more;
        if (text_.capacity() < needed) text_.reserve(needed + 1024);
    }

    std::string text_;
};
