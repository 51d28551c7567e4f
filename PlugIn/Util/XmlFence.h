// What stands before the XML parser for files that come from outside. The parser knows no limits: it goes into elements
// by recursion, looks every attribute up among those before it, and takes a hundred bytes of memory for one of text. So
// a file is read whole, and a text that no result can be is refused before the parser sees it. What is not well-formed
// is let through: the parser has the words for it.
#pragma once

#include <string>

inline constexpr size_t kMostXmlBytes = 16 * 1024 * 1024;
inline constexpr size_t kMostXmlLevels = 200;      // of elements, one in the other
inline constexpr size_t kMostXmlAttributes = 200;  // of one element

// The file's text within the limits, ready for the parser. Throws ticpp::Exception when it cannot be read or is beyond
// one.
std::string ReadXmlFile(const std::string& path);

// Throws ticpp::Exception, worded as the parser's own with `name`, line and column, when the text is beyond a limit.
// One pass over the text, without recursion; it sees elements exactly where the parser sees them.
void CheckXmlLimits(const std::string& xml, const std::string& name);
