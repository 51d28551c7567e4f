#include "Catalogue.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace bench {
namespace {

// Returns the text of the element at a path below the device; empty when there is none.
std::string Text(const TiXmlElement& device, const char* name, const char* inner = nullptr) {
    const TiXmlElement* element = device.FirstChildElement(name);
    if (element && inner) element = element->FirstChildElement(inner);
    return element && element->GetText() ? element->GetText() : "";
}

double Dimension(const TiXmlElement& device, const char* name) {
    return std::strtod(Text(device, "AirDeviceDimData", name).c_str(), nullptr);
}

bool Fits(const TiXmlElement& device, const Duct& duct) {
    const bool round = Text(device, "Shape") == "0";
    const double width = round ? duct.diameter : duct.width, height = round ? 0 : duct.height;
    const bool sizeFits = width > 0 && std::fabs(width - Dimension(device, "D1")) < 0.5 &&
                          (round || std::fabs(height - Dimension(device, "D2")) < 0.5);
    return sizeFits && (duct.airflow <= 0 ||
                        (duct.airflow >= Dimension(device, "Qvmin") && duct.airflow <= Dimension(device, "Qvmax")));
}

// The pressure drop grows with the square of the airflow.
std::string PressureDrop(const TiXmlElement& device, double airflow) {
    const double ratio = airflow / Dimension(device, "Qvmax");
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", Dimension(device, "Dpmax") * ratio * ratio);
    return text;
}

TiXmlElement& Add(TiXmlNode& parent, const std::string& name, const std::string& text = "") {
    TiXmlElement* element = parent.LinkEndChild(new TiXmlElement(name))->ToElement();
    if (!text.empty()) element->LinkEndChild(new TiXmlText(text));
    return *element;
}

std::string Printed(const TiXmlDocument& document) {
    TiXmlPrinter printer;
    document.Accept(&printer);
    return printer.Str();
}

}  // namespace

Catalogue::Catalogue(const std::string& path) {
    if (!document_.LoadFile(path, TIXML_ENCODING_UTF8))
        throw std::runtime_error("The catalogue " + path + " cannot be read: " + document_.ErrorDesc() + '.');
    const size_t lastSeparator = path.find_last_of("/\\");
    const std::string folder = lastSeparator == std::string::npos ? "" : path.substr(0, lastSeparator + 1);
    const auto served = [&](const char* name) -> ServedFile {
        const TiXmlElement* root = document_.RootElement();
        const TiXmlElement* element = root ? root->FirstChildElement(name) : nullptr;
        if (!element || !element->Attribute("file") || !element->Attribute("path"))
            throw std::runtime_error("The catalogue " + path + " names no " + name + '.');
        return {folder + element->Attribute("file"), element->Attribute("path")};
    };
    dictionary_ = served("dictionary");
    database_ = served("database");
}

const TiXmlElement* Catalogue::Find(const std::string& id) const {
    const TiXmlElement* device = document_.RootElement()->FirstChildElement("device");
    while (device && Text(*device, "ID") != id)
        device = device->NextSiblingElement("device");
    return device;
}

std::string Catalogue::ProductsPage(const Duct& duct) const {
    TiXmlDocument page;
    page.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement& root = Add(page, "products");
    for (const TiXmlElement* device = document_.RootElement()->FirstChildElement("device"); device;
         device = device->NextSiblingElement("device")) {
        if (!Fits(*device, duct)) continue;
        TiXmlElement& product = Add(root, "product");
        product.SetAttribute("id", Text(*device, "ID"));
        product.SetAttribute("code", Text(*device, "ProductCodeALL"));
        product.SetAttribute("length", Text(*device, "KmodelParams", "L"));
        product.SetAttribute("pressureDrop", PressureDrop(*device, duct.airflow));
        product.SetAttribute("attenuation250", Text(*device, "dLw", "Lw250"));
    }
    return Printed(page);
}

std::string Catalogue::Result(const std::vector<std::string>& products, const std::string& server,
                              const std::vector<std::pair<std::string, std::string>>& rootTexts) const {
    TiXmlDocument result;
    result.LinkEndChild(new TiXmlDeclaration("1.0", "UTF-8", ""));
    TiXmlElement& root = Add(result, "ConfiguratorResult");
    for (const auto& [name, text] : rootTexts)
        Add(root, name, text);
    Add(root, "DdkFileUrl", server + dictionary_.path);
    Add(root, "KpdFileUrl", server + database_.path);
    for (const std::string& product : products)
        if (const TiXmlElement* device = Find(product)) root.InsertEndChild(*device);
    return Printed(result);
}

}  // namespace bench
