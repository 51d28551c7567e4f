// What stands before the XML parser for files that come from outside. The parser knows no limits: it goes into elements
// by recursion, looks every attribute up among those before it, takes a hundred bytes of memory for one of text, and
// hangs on a character of UTF-8 that is cut off behind its first byte. So
// a file is read whole, and a text that no result can be is refused before the parser sees it. What is not well-formed
// is let through: the parser has the words for it.
#pragma once

#include <string>

inline constexpr size_t kMaxXmlBytes = 16 * 1024 * 1024;
inline constexpr size_t kMaxXmlLevels = 200;      // of elements, one in the other
inline constexpr size_t kMaxXmlAttributes = 200;  // of one element
inline constexpr size_t kMaxXmlNodes = 100000;    // elements, texts, comments and whatever else the parser keeps

// The file's text within the limits, ready for the parser: each line ends in LF, as XML asks. Throws ticpp::Exception
// when it cannot be read or is beyond one.
std::string ReadXmlFile(const std::string& path);

// Throws ticpp::Exception, worded as the parser's own with `name`, line and column, when the text is beyond a limit.
// One pass over the text, without recursion; it sees elements exactly where the parser sees them.
void CheckXmlLimits(const std::string& xml, const std::string& name);
