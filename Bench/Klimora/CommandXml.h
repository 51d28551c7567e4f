// XML commands as a strict server reads them: one root element, no attributes, every special character escaped, values
// only in leaves. A command becomes its leaves in document order, each with its path, and is held against a grammar of
// fields in a fixed order. What does not fit is refused with a sentence that names the place.
// Contract: rows D2.
#pragma once

#include <tinyxml.h>

#include <memory>
#include <string>
#include <vector>

namespace bench::klimora {

// Any well-formed text with one root element; attributes are allowed here (line type definitions have some).
std::unique_ptr<TiXmlDocument> ParseXml(const std::string& text);
// A command with that root; no attributes anywhere.
std::unique_ptr<TiXmlDocument> ParseCommand(const std::string& text, const std::string& root);

struct Leaf {
    std::string path;  // below the root, "Part/Type/Define"
    std::string value;
};

std::vector<Leaf> Leaves(const TiXmlElement* element);

enum class Kind { kText, kWord, kInteger, kReal, kPoint, kBands };  // kWord: a text that is not empty; kBands: 8 reals

struct Field {
    const char* path;
    Kind kind;
    bool optional = false;
};

// Number of leaves that fit the grammar from the first one on; `reason` says what stands in the way of the next field
// or leaf, and is empty when fields and leaves both came to their end.
size_t MatchFields(const std::vector<Leaf>& leaves, const std::vector<Field>& fields, std::string& reason);
// Refuses leaves that do not fit to the last one.
void CheckFields(const std::vector<Leaf>& leaves, const std::vector<Field>& fields, const std::string& command);

}  // namespace bench::klimora
