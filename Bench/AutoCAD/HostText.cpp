// AcString: pure text, nothing journaled.
#include <cstdarg>
#include <cwchar>
#include <string>
#include <utility>

#include "AcString.h"
#include "HostCall.h"
#include "dbhandle.h"

namespace {

wchar_t* Copied(const wchar_t* text) {
    const size_t size = text == nullptr ? 0 : std::wcslen(text);
    wchar_t* copy = new wchar_t[size + 1];
    std::wmemcpy(copy, text == nullptr ? L"" : text, size);
    copy[size] = L'\0';
    return copy;
}

}  // namespace

AcString::AcString() : m_text(Copied(L"")) {}
AcString::AcString(const AcString& other) : m_text(Copied(other.m_text)) {}
AcString::AcString(AcString&& other) : m_text(Copied(L"")) {
    std::swap(m_text, other.m_text);
}
AcString::AcString(wchar_t character) : m_text(Copied(std::wstring(1, character).c_str())) {}
AcString::AcString(const wchar_t* text) : m_text(Copied(text)) {}
AcString::AcString(const AcDbHandle& handle) : m_text(Copied(bench::Wide(bench::HandleText(handle)).c_str())) {}
AcString::~AcString() {
    delete[] m_text;
}

AcString& AcString::operator=(const AcString& other) {
    return *this = other.m_text;
}
AcString& AcString::operator=(AcString&& other) {
    std::swap(m_text, other.m_text);
    return *this;
}
AcString& AcString::operator=(const wchar_t* text) {
    wchar_t* copy = Copied(text);
    delete[] m_text;
    m_text = copy;
    return *this;
}

const wchar_t* AcString::constPtr() const {
    return m_text;
}
const wchar_t* AcString::kwszPtr() const {
    return m_text;
}
const wchar_t* AcString::kACharPtr() const {
    return m_text;
}
AcString::operator const wchar_t*() const {
    return m_text;
}
bool AcString::isEmpty() const {
    return *m_text == L'\0';
}
unsigned AcString::length() const {
    return static_cast<unsigned>(std::wcslen(m_text));
}
AcString& AcString::setEmpty() {
    return *this = L"";
}

AcString& AcString::format(const ACHAR* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list counted;
    va_copy(counted, arguments);
    std::wstring text(static_cast<size_t>(_vscwprintf(format, counted)), L'\0');
    va_end(counted);
    _vsnwprintf(text.data(), text.size(), format, arguments);
    va_end(arguments);
    return *this = text.c_str();
}

bool AcString::operator==(wchar_t character) const {
    return m_text[0] == character && length() == 1;
}
bool AcString::operator==(const wchar_t* text) const {
    return std::wcscmp(m_text, text == nullptr ? L"" : text) == 0;
}
bool AcString::operator==(const AcString& other) const {
    return *this == other.m_text;
}
bool AcString::operator!=(const wchar_t* text) const {
    return !(*this == text);
}
bool AcString::operator!=(const AcString& other) const {
    return !(*this == other);
}
