#include "KbaseFile.h"

#include <tinyxml.h>

#include <fstream>

#include "BenchTexts.h"

namespace bench {
namespace {

std::string Text(const char* text) {
    return text ? text : "";
}

bool ReadRecord(const TiXmlElement& element, KbaseRecord& record) {
    record.className = Text(element.Attribute("class"));
    record.key = Text(element.Attribute("key"));
    for (const TiXmlElement* one = element.FirstChildElement(); one; one = one->NextSiblingElement()) {
        int number = 0;
        one->Attribute("number", &number);
        KbaseAttribute& attribute = record.attributes[number];
        attribute.name = Text(one->Attribute("name"));
        if (!FromHex(Text(one->Attribute("hex")), attribute.bytes)) return false;
        for (const TiXmlElement* line = one->FirstChildElement("is"); line; line = line->NextSiblingElement("is"))
            attribute.decoded.push_back(Text(line->GetText()));
    }
    return true;
}

TiXmlElement* RecordElement(const KbaseRecord& record) {
    auto* element = new TiXmlElement("Record");
    element->SetAttribute("class", record.className);
    element->SetAttribute("key", record.key);
    for (const auto& [number, attribute] : record.attributes) {
        auto* one = element->LinkEndChild(new TiXmlElement("Attribute"))->ToElement();
        one->SetAttribute("number", number);
        one->SetAttribute("name", attribute.name);
        one->SetAttribute("hex", Hex(attribute.bytes));
        for (const std::string& line : attribute.decoded)
            one->LinkEndChild(new TiXmlElement("is"))->LinkEndChild(new TiXmlText(line));
    }
    return element;
}

}  // namespace

std::string KbaseRecord::BytesOf(int attribute) const {
    const auto found = attributes.find(attribute);
    return found == attributes.end() ? std::string() : found->second.bytes;
}

// Strings are bytes in any encoding.
bool KbaseFile::Read(const std::string& path) {
    *this = {};
    path_ = path;
    TiXmlDocument document;
    bool good = document.LoadFile(path, TIXML_ENCODING_LEGACY) && document.RootElement() &&
                document.RootElement()->ValueStr() == "KbaseDatabase";
    if (!good) return false;
    for (const TiXmlElement* one = document.RootElement()->FirstChildElement(); one && good;
         one = one->NextSiblingElement()) {
        KbaseRecord record;
        good = ReadRecord(*one, record) && records_.emplace(std::pair(record.className, record.key), record).second;
    }
    return good;
}

const KbaseRecord* KbaseFile::Find(const std::string& className, const std::string& key) const {
    const auto found = records_.find({className, key});
    return found == records_.end() ? nullptr : &found->second;
}

bool KbaseFile::Save(const KbaseRecord& record) {
    records_.insert_or_assign({record.className, record.key}, record);
    return Write();
}

bool KbaseFile::Delete(const std::string& className, const std::string& key) {
    records_.erase({className, key});
    return Write();
}

bool KbaseFile::Write() const {
    TiXmlDocument document;
    TiXmlNode* root = document.LinkEndChild(new TiXmlElement("KbaseDatabase"));
    for (const auto& [name, record] : records_)
        root->LinkEndChild(RecordElement(record));
    TiXmlPrinter printer;
    document.Accept(&printer);
    std::ofstream file(path_, std::ios::binary | std::ios::trunc);
    file << printer.Str();
    file.flush();
    return static_cast<bool>(file);
}

}  // namespace bench
