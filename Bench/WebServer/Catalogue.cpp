#include "Catalogue.h"

#include <sstream>
#include <stdexcept>

#include "tinyxml.h"

namespace bench {
namespace {

std::string Attribute(const TiXmlElement& element, const char* name) {
    const char* text = element.Attribute(name);
    return text ? text : "";
}

std::string Required(const TiXmlElement& element, const char* name) {
    const std::string text = Attribute(element, name);
    if (text.empty())
        throw std::runtime_error("The catalogue's element " + element.ValueStr() + " in line " +
                                 std::to_string(element.Row()) + " has no " + name + ".");
    return text;
}

template <class Visit>
void ForEach(const TiXmlElement& parent, const char* name, Visit visit) {
    for (const TiXmlElement* child = parent.FirstChildElement(name); child; child = child->NextSiblingElement(name))
        visit(*child);
}

std::vector<std::string> Levels(const TiXmlElement& element) {
    std::istringstream words(Required(element, "lw"));
    std::vector<std::string> levels;
    for (std::string word; words >> word;)
        levels.push_back(word);
    if (levels.size() != kOctaveBands)
        throw std::runtime_error("The catalogue's levels in line " + std::to_string(element.Row()) +
                                 " are not one for each octave band.");
    return levels;
}

CurvePoint Point(const TiXmlElement& element) {
    return {Attribute(element, "a"), Required(element, "qv"), Required(element, "dp"), {}};
}

Series ReadSeries(const TiXmlElement& element) {
    Series series;
    series.shape = Required(element, "shape");
    series.model = Required(element, "model");
    series.marketArea = Attribute(element, "marketArea");
    const auto text = [](const TiXmlElement& child) { return std::string(child.GetText() ? child.GetText() : ""); };
    ForEach(element, "description", [&](const TiXmlElement& child) {
        series.descriptions.emplace_back(Required(child, "language"), text(child));
    });
    ForEach(element, "weblink",
            [&](const TiXmlElement& child) { series.webLinks.emplace_back(Attribute(child, "country"), text(child)); });
    return series;
}

Silencer ReadSilencer(const TiXmlElement& element, const Series& series) {
    Silencer silencer;
    silencer.series = series;
    silencer.id = Required(element, "id");
    silencer.code = Required(element, "code");
    silencer.fnc = Required(element, "fnc");
    silencer.d1 = Required(element, "d1");
    silencer.d2 = Required(element, "d2");
    silencer.length = Required(element, "length");
    ForEach(element, "range", [&](const TiXmlElement& range) {
        silencer.qvMin = Required(range, "qvMin");
        silencer.qvMax = Required(range, "qvMax");
        silencer.dpMin = Required(range, "dpMin");
        silencer.dpMax = Required(range, "dpMax");
    });
    ForEach(element, "dpPoint", [&](const TiXmlElement& point) { silencer.dpPoints.push_back(Point(point)); });
    ForEach(element, "dpCurve", [&](const TiXmlElement& point) { silencer.dpCurve.push_back(Point(point)); });
    ForEach(element, "flowNoise", [&](const TiXmlElement& point) {
        silencer.flowNoise.push_back(Point(point));
        silencer.flowNoise.back().levels = Levels(point);
    });
    ForEach(element, "insertionLoss",
            [&](const TiXmlElement& loss) { silencer.insertionLosses.push_back(Levels(loss)); });
    if (const TiXmlElement* parameters = element.FirstChildElement("modelParameters"))
        for (const TiXmlAttribute* one = parameters->FirstAttribute(); one; one = one->Next())
            silencer.modelParameters.emplace_back(one->NameTStr(), one->ValueStr());
    return silencer;
}

ServedFile ReadServedFile(const TiXmlElement& root, const char* name, const std::string& folder) {
    const TiXmlElement* element = root.FirstChildElement(name);
    if (!element) throw std::runtime_error(std::string("The catalogue names no ") + name + ".");
    return {folder + Required(*element, "file"), Required(*element, "path")};
}

}  // namespace

const Silencer* Catalogue::Find(const std::string& id) const {
    for (const Silencer& silencer : silencers)
        if (silencer.id == id) return &silencer;
    return nullptr;
}

Catalogue ReadCatalogue(const std::string& path) {
    TiXmlDocument document;
    if (!document.LoadFile(path, TIXML_ENCODING_UTF8))
        throw std::runtime_error("The catalogue " + path + " cannot be read: " + document.ErrorDesc() + '.');
    const TiXmlElement* root = document.RootElement();
    if (!root || root->ValueStr() != "catalogue") throw std::runtime_error(path + " is no catalogue.");
    const size_t lastSeparator = path.find_last_of("/\\");
    const std::string folder = lastSeparator == std::string::npos ? "" : path.substr(0, lastSeparator + 1);
    Catalogue catalogue;
    catalogue.dictionary = ReadServedFile(*root, "dictionary", folder);
    catalogue.database = ReadServedFile(*root, "database", folder);
    ForEach(*root, "series", [&](const TiXmlElement& element) {
        const Series series = ReadSeries(element);
        ForEach(element, "silencer",
                [&](const TiXmlElement& child) { catalogue.silencers.push_back(ReadSilencer(child, series)); });
    });
    return catalogue;
}

}  // namespace bench
