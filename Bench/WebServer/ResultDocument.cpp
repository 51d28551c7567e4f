#include "ResultDocument.h"

#include "tinyxml.h"

namespace bench {
namespace {

const char* const kLevelNames[kOctaveBands] = {"Lw63",   "Lw125",  "Lw250",  "Lw500",
                                               "Lw1000", "Lw2000", "Lw4000", "Lw8000"};

TiXmlElement& Add(TiXmlNode& parent, const std::string& name) {
    TiXmlElement* element = new TiXmlElement(name);
    parent.LinkEndChild(element);
    return *element;
}

void AddText(TiXmlNode& parent, const std::string& name, const std::string& text) {
    TiXmlElement& element = Add(parent, name);
    if (!text.empty()) element.LinkEndChild(new TiXmlText(text));
}

void AddLevels(TiXmlNode& parent, const std::vector<std::string>& levels) {
    for (int band = 0; band < kOctaveBands; ++band)
        AddText(parent, kLevelNames[band], levels[band]);
}

// "Round silencer {d1}, length {length} mm" for one silencer.
std::string Filled(std::string text, const Silencer& silencer) {
    const std::pair<const char*, const std::string*> values[] = {
        {"{d1}", &silencer.d1}, {"{d2}", &silencer.d2}, {"{length}", &silencer.length}};
    for (const auto& [name, value] : values)
        for (size_t at = text.find(name); at != std::string::npos; at = text.find(name))
            text.replace(at, std::string(name).size(), *value);
    return text;
}

// Two of the languages stand in an element name that has an underscore in place of the country.
std::string DescriptionElement(const std::string& language) {
    return (language == "FL" || language == "AR" ? "Description_" : "Description") + language;
}

void AddTexts(TiXmlElement& device, const Silencer& silencer) {
    const Series& series = silencer.series;
    AddText(device, "ID", silencer.id);
    AddText(device, "ProductCodeALL", silencer.code);
    for (const auto& [language, text] : series.descriptions)
        AddText(device, DescriptionElement(language), Filled(text, silencer));
    for (const auto& [country, address] : series.webLinks)
        AddText(device, "kpdWeblink" + country, address);
    if (!series.marketArea.empty()) AddText(device, "MarketArea", series.marketArea);
    AddText(device, "KModelID", series.model);
    TiXmlElement& parameters = Add(device, "KmodelParams");
    for (const auto& [name, value] : silencer.modelParameters)
        AddText(parameters, name, value);
}

void AddDimensions(TiXmlElement& device, const Silencer& silencer) {
    TiXmlElement& data = Add(device, "AirDeviceDimData");
    AddText(data, "Fnc", silencer.fnc);
    AddText(data, "D1", silencer.d1);
    AddText(data, "D2", silencer.d2);
    AddText(data, "Qvmin", silencer.qvMin);
    AddText(data, "Qvmax", silencer.qvMax);
    AddText(data, "Dpmin", silencer.dpMin);
    AddText(data, "Dpmax", silencer.dpMax);
}

void AddCurves(TiXmlElement& device, const Silencer& silencer) {
    for (const CurvePoint& point : silencer.dpPoints) {
        TiXmlElement& element = Add(device, "DpCurve");
        AddText(element, "Qv", point.qv);
        AddText(element, "Dp", point.dp);
    }
    for (const CurvePoint& point : silencer.dpCurve) {
        TiXmlElement& element = Add(device, "aDpCurves");
        AddText(element, "A", point.a);
        AddText(element, "Dp", point.dp);
        AddText(element, "Qv", point.qv);
    }
    for (const CurvePoint& point : silencer.flowNoise) {
        TiXmlElement& element = Add(device, "QvDpLwPoints");
        AddText(element, "Qv", point.qv);
        AddText(element, "Dp", point.dp);
        AddLevels(element, point.levels);
    }
    for (const std::vector<std::string>& loss : silencer.insertionLosses)
        AddLevels(Add(device, "dLw"), loss);
    AddText(device, "Shape", silencer.series.shape);
}

}  // namespace

std::string ResultDocument(const Catalogue& catalogue, const std::vector<std::string>& products,
                           const std::string& server,
                           const std::vector<std::pair<std::string, std::string>>& rootTexts) {
    TiXmlDocument document;
    document.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement& root = Add(document, "ConfiguratorResult");
    for (const auto& [name, text] : rootTexts)
        AddText(root, name, text);
    AddText(root, "DdkFileUrl", server + catalogue.dictionary.path);
    AddText(root, "KpdFileUrl", server + catalogue.database.path);
    for (const std::string& id : products) {
        const Silencer* silencer = catalogue.Find(id);
        if (!silencer) continue;
        TiXmlElement& device = Add(root, "device");
        AddTexts(device, *silencer);
        AddDimensions(device, *silencer);
        AddCurves(device, *silencer);
    }
    TiXmlPrinter printer;
    document.Accept(&printer);
    return printer.Str();
}

}  // namespace bench
