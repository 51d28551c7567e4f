// Strict XML parser for commands: one root element, every special character escaped, values only in leaves; anything
// else throws Refusal. It does not check which elements a client sends or their order.
// Contract: rows D2.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>

namespace bench::klimora {

// Parses well-formed XML with one root element.
std::unique_ptr<TiXmlDocument> ParseXml(const std::string& text);
// Parses a command with the given root.
std::unique_ptr<TiXmlDocument> ParseCommand(const std::string& text, const std::string& root);

}  // namespace bench::klimora
