#include "CommandXml.h"

#include <cstring>

#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr const char* kEntities[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&apos;", "&#"};

// The parser takes a bare ampersand as it stands; the server does not.
void CheckEscaping(const std::string& text) {
    for (size_t at = text.find('&'); at != std::string::npos; at = text.find('&', at + 1)) {
        bool known = false;
        for (const char* entity : kEntities)
            known = known || text.compare(at, std::strlen(entity), entity) == 0;
        if (!known) throw Refusal(kBadCommand, "An ampersand is not escaped: '" + text.substr(at, 20) + "'.");
    }
}

void CheckNoAttributes(const TiXmlElement* element) {
    if (element->FirstAttribute())
        throw Refusal(kBadCommand, "Element " + element->ValueStr() + " has an attribute; commands have none.");
    for (const TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement())
        CheckNoAttributes(child);
}

// Text beside elements is what an unescaped "<" or a forgotten end tag leaves behind.
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

void CollectLeaves(const TiXmlElement* element, const std::string& prefix, std::vector<Leaf>& leaves) {
    for (const TiXmlElement* child = element->FirstChildElement(); child; child = child->NextSiblingElement()) {
        const std::string path = prefix.empty() ? child->ValueStr() : prefix + "/" + child->ValueStr();
        if (child->FirstChildElement())
            CollectLeaves(child, path, leaves);
        else
            leaves.push_back({path, child->GetText() ? child->GetText() : ""});
    }
}

bool Fits(Kind kind, const std::string& value) {
    long integer = 0;
    double real = 0;
    std::vector<double> reals;
    switch (kind) {
        case Kind::kText:
            return true;
        case Kind::kWord:
            return !value.empty();
        case Kind::kInteger:
            return ReadNumber(value, integer);
        case Kind::kReal:
            return ReadNumber(value, real);
        case Kind::kPoint:
            return ReadReals(value, 3, reals);
        case Kind::kBands:
            return ReadReals(value, 8, reals);
    }
    return false;
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
    CheckNoAttributes(document->RootElement());
    return document;
}

std::vector<Leaf> Leaves(const TiXmlElement* element) {
    std::vector<Leaf> leaves;
    CollectLeaves(element, "", leaves);
    return leaves;
}

size_t MatchFields(const std::vector<Leaf>& leaves, const std::vector<Field>& fields, std::string& reason) {
    size_t at = 0;
    for (const Field& field : fields) {
        const bool here = at < leaves.size() && leaves[at].path == field.path;
        if (!here && field.optional) continue;
        if (!here) {
            reason = std::string(field.path) + " is expected, not " +
                     (at < leaves.size() ? leaves[at].path : "the end of the command");
            return at;
        }
        if (!Fits(field.kind, leaves[at].value)) {
            reason = "'" + leaves[at].value + "' is not a value of " + field.path;
            return at;
        }
        ++at;
    }
    reason = at < leaves.size() ? leaves[at].path + " is unknown or out of order" : "";
    return at;
}

void CheckFields(const std::vector<Leaf>& leaves, const std::vector<Field>& fields, const std::string& command) {
    std::string reason;
    MatchFields(leaves, fields, reason);
    if (!reason.empty()) throw Refusal(kBadCommand, command + ": " + reason + ".");
}

}  // namespace bench::klimora
