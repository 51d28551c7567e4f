#include "Attributes.h"

#include "Refusal.h"
#include "SettableAttributes.h"
#include "Texts.h"

namespace bench::klimora {

std::string GetAttribute(const Server& server, const std::string& part, const std::string& path) {
    return server.project.Attribute(part, path);
}

std::vector<double> GetReals(const Server& server, const std::string& part, const std::string& path, size_t count) {
    const std::string text = server.project.Attribute(part, path);
    std::vector<double> values;
    if (!ReadReals(text, count, values))
        throw Refusal(kBadValue, "'" + text + "' at '" + path + "' is not " + std::to_string(count) + " numbers.");
    return values;
}

void SetAttribute(Server& server, const std::string& part, const std::string& path, const std::string& value) {
    AttributePath parsed = ParseAttributePath(path);
    if (part.empty() || !TakesBinaryVariable(parsed)) {
        server.project.SetAttribute(part, path, value);
        return;
    }
    TiXmlElement* element = server.project.Part(part);
    CheckSettable(parsed, value);
    long variable = 0;
    ReadNumber(value, variable);
    const std::string data = Hex(server.variables.Take(variable));
    server.project.SetAttribute(part, path, value);
    parsed.steps.back().name = "Data";
    SetLeafText(FindOrMakeElement(element, parsed, 1), data);
}

}  // namespace bench::klimora
