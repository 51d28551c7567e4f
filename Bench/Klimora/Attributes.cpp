#include "Attributes.h"

#include "Commands.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

enum class Value { kText, kFlag, kBinaryVariable, kXmlElement, kHandles, kReadOnly };

struct Rule {
    const char* path;  // without indices
    Value value;
};

constexpr Rule kRules[] = {
    {"dwg/kpjfilename", Value::kReadOnly},
    {"dwg/flag/noPrjFileAccessCheck", Value::kFlag},
    {"Part/Type/ID", Value::kReadOnly},
    {"Part/Type/Define", Value::kReadOnly},
    {"Part/Geometry/Source/gm_model/binvar", Value::kBinaryVariable},
    {"Part/Geometry/Source/KModel/binvar", Value::kBinaryVariable},
    {"Part/Geometry/Source/KModel/Filename", Value::kText},
    {"Part/Geometry/Source/KModel/Params", Value::kText},
    {"Part/Geometry/Source/Block/Name", Value::kText},
    {"Part/Geometry/Linetypedef", Value::kXmlElement},
    {"Part/Package/PartList", Value::kHandles},
};

const Rule* FindRule(const AttributePath& path) {
    std::string plain;
    for (const PathStep& step : path.steps)
        plain += (plain.empty() ? "" : "/") + step.name;
    for (const Rule& rule : kRules)
        if (SameName(plain, rule.path)) return &rule;
    return nullptr;
}

void CheckValue(const Rule& rule, const std::string& value) {
    const std::string what = std::string("'") + value + "' is not a value of " + rule.path + ": ";
    long number = 0;
    switch (rule.value) {
        case Value::kReadOnly:
            throw Refusal(kReadOnly, std::string(rule.path) + " cannot be set.");
        case Value::kFlag:
            if (value != "0" && value != "1") throw Refusal(kBadValue, what + "it is 0 or 1.");
            break;
        case Value::kBinaryVariable:
            if (!ReadNumber(value, number)) throw Refusal(kBadValue, what + "it is the number of a variable.");
            break;
        case Value::kXmlElement:
            ParseXml(value);
            break;
        case Value::kHandles:
            for (const std::string& handle : Split(value, ' '))
                if (!handle.empty() && !IsHandle(handle))
                    throw Refusal(kBadValue, what + "it is a list of handles separated by blanks.");
            break;
        case Value::kText:
            break;
    }
}

}  // namespace

bool MayBeAdded(const AttributePath& path) {
    return FindRule(path) != nullptr;
}

void CheckSettable(const AttributePath& path, const std::string& value) {
    if (const Rule* rule = FindRule(path)) CheckValue(*rule, value);
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
    const Rule* rule = FindRule(parsed);
    long variable = 0;
    if (part.empty() || !rule || rule->value != Value::kBinaryVariable || !ReadNumber(value, variable)) {
        server.project.SetAttribute(part, path, value);
        return;
    }
    TiXmlElement* element = server.project.Part(part);
    const std::string data = Hex(server.variables.Take(variable));
    server.project.SetAttribute(part, path, value);
    parsed.steps.back().name = "Data";
    SetLeafText(FindOrMakeElement(element, parsed, 1), data);
}

}  // namespace bench::klimora
