// Limits on XML files from outside, checked before the parser reads them. The parser has none: it recurses into
// elements, compares every attribute with the earlier ones of its element, needs about a hundred bytes of memory for a
// byte of text, and loops forever on a UTF-8 character that is truncated after its first byte. Text that is not
// well-formed passes, because the parser reports it.
#pragma once

#include <string>

inline constexpr size_t kMaxXmlBytes = 16 * 1024 * 1024;
inline constexpr size_t kMaxXmlLevels = 200;      // of nested elements
inline constexpr size_t kMaxXmlAttributes = 200;  // of one element
inline constexpr size_t kMaxXmlNodes = 100000;    // elements, texts, comments and the parser's other nodes

// Returns the file's text, ready for the parser: every line ends in LF. Throws ticpp::Exception when the file cannot be
// read or exceeds a limit.
std::string ReadXmlFile(const std::string& path);

// Throws ticpp::Exception when the text exceeds a limit, in the parser's own wording with `name`, line and column.
// Scans once, without recursion, and finds exactly the elements that the parser finds.
void CheckXmlLimits(const std::string& xml, const std::string& name);
