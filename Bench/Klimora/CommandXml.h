// XML as a strict server reads it: one root element, every special character escaped, values only in leaves. Anything
// else is refused. Which elements a client sends, and in which order, is not checked here.
// Contract: rows D2.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>

namespace bench::klimora {

// Any well-formed text with one root element.
std::unique_ptr<TiXmlDocument> ParseXml(const std::string& text);
// A command with that root.
std::unique_ptr<TiXmlDocument> ParseCommand(const std::string& text, const std::string& root);

}  // namespace bench::klimora
