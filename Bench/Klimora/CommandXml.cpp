#include "Commands.h"

#include <cstring>

#include "Refusal.h"

namespace bench::klimora {
namespace {

constexpr const char* kEntities[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#"};

// The parser accepts an unescaped ampersand; the server does not.
void CheckEscaping(const std::string& text) {
    for (size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
        bool known = false;
        for (const char* entity : kEntities)
            known = known || text.compare(at, std::strlen(entity), entity) == 0;
        if (!known) throw Refusal(kBadCommand, "An ampersand is not escaped: '" + text.substr(at, 20) + "'.");
    }
}

// Text beside elements results from an unescaped "<" or a missing end tag.
void CheckContents(const TiXmlElement* element) {
    const bool hasElements = element->FirstChildElement() != nullptr;
    int others = 0;
    for (const TiXmlNode* child = element->FirstChild(); child; child = child->NextSibling())
        if (!child->ToElement()) ++others;
    if (others > (hasElements ? 0 : 1))
        throw Refusal(kBadCommand, "Element " + element->ValueStr() + " mixes text and elements.");
    for (const TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
        CheckContents(child);
}

}  // namespace

std::unique_ptr<TiXmlDocument> ParseXml(const std::string& text) {
    TiXmlBase::SetCondenseWhiteSpace(false);
    auto document = std::make_unique<TiXmlDocument>();
    document->Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    if (document->Error()) throw Refusal(kBadCommand, std::string("Not XML: ") + document->ErrorDesc() + ".");
    const TiXmlElement* root = document->RootElement();
    if (!root || document->FirstChild() != root || document->LastChild() != root)
        throw Refusal(kBadCommand, "There is not exactly one root element.");
    CheckEscaping(text);
    CheckContents(root);
    return document;
}

std::unique_ptr<TiXmlDocument> ParseCommand(const std::string& text, const std::string& root) {
    std::unique_ptr<TiXmlDocument> document = ParseXml(text);
    if (document->RootElement()->ValueStr() != root)
        throw Refusal(kBadCommand, "The command is " + document->RootElement()->ValueStr() + ", not " + root + ".");
    return document;
}

}  // namespace bench::klimora
