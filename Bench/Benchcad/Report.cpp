#include "Report.h"

#include <cstdio>
#include <iterator>

namespace bench {
namespace {

constexpr const char* kFieldNames[] = {
    "plug-in name", "plug-in version", "vendor name",  "vendor identifier",    "product line name", "product line key",
    "product",      "product family",  "CAD platform", "CAD platform version", "discipline",        "device class",
    "extra",        "action"};

// Formats lines under a heading; empty without lines.
std::string List(const std::string& heading, const std::vector<std::string>& lines) {
    std::string text = lines.empty() ? "" : heading + "\n";
    for (const std::string& line : lines)
        text += "  " + line + "\n";
    return text;
}

std::string PlaceOf(const PlanPart& part, const FloorPlan& plan) {
    char place[64];
    std::snprintf(place, sizeof place, "from (%.0f, %.0f), %.0f mm long", part.start.x, part.start.y, part.length);
    std::string text = std::string(place) + ", " + part.size;
    if (!part.airflow.empty()) text += ", " + part.airflow + " l/s";
    if (part.system < plan.systems.size())
        text += ", system " + plan.systems[part.system].id + " " + plan.systems[part.system].name;
    return text;
}

}  // namespace

bool Committed(const std::vector<std::string>& callLog) {
    bool ended = false;
    for (const std::string& line : callLog) {
        if (line == "AcTransactionManager::endTransaction -> 0") ended = true;
        if (line.compare(0, 38, "AcTransactionManager::abortTransaction") == 0) return false;
    }
    return ended;
}

std::vector<std::string> CallsOf(const std::vector<std::string>& callLog, const std::string& name) {
    std::vector<std::string> calls;
    for (const std::string& line : callLog)
        if (line.compare(0, name.size() + 1, name + " ") == 0) calls.push_back(line.substr(name.size() + 1));
    return calls;
}

std::string Heading(const std::string& text) {
    return "\n" + text + "\n" + std::string(text.size(), '-') + "\n";
}

std::string CommandText(const CommandReport& command, const FloorPlan& plan) {
    std::string text = Heading("Command " + command.name + (command.committed ? ": committed" : ": not committed"));
    for (const PlanPart& part : command.picked)
        text += "Picked part " + part.handle + ": " + PlaceOf(part, plan) + "\n";
    text += List("Configurator (" + command.configuratorScript + ")", command.configuratorRecord);
    text += List("Web server", command.requests);
    text += List("Queued for execution", command.queued);
    for (const PlanPart& part : command.inserted) {
        const bool silencer = part.kind == PlanPart::Kind::kSilencer;
        text += (silencer ? "New silencer " + part.userCode + " (" + part.product + "), part " : "New part ") +
                part.handle + ": " + PlaceOf(part, plan) + "\n";
    }
    return text + List("Violations", command.violations);
}

std::string RecordText(const KbaseRecord& record) {
    if (record.className.empty()) return {};
    std::string text =
        "Product record " + record.className + ", key " + record.key + "\n number  attribute            value\n";
    for (const auto& [number, attribute] : record.attributes) {
        char head[64];
        const int wide = std::snprintf(head, sizeof head, "  %5d  %-20s ", number, attribute.name.c_str());
        std::string before = head;
        for (const std::string& line : attribute.decoded) {
            text += before + (line.empty() ? "(empty)" : line) + "\n";
            before.assign(static_cast<size_t>(wide), ' ');
        }
        if (attribute.decoded.empty()) text += before + "(empty)\n";
    }
    return text;
}

std::string StatisticsText(const std::vector<StatisticsEvent>& events) {
    std::string text;
    for (const StatisticsEvent& event : events) {
        text += event.name + (event.sent ? " (sent)" : " (not sent)") + "\n  no  field                 value\n";
        for (size_t i = 0; i < event.fields.size(); ++i) {
            char line[64];
            std::snprintf(line, sizeof line, "  %2zu  %-21s ", i + 1,
                          i < std::size(kFieldNames) ? kFieldNames[i] : "beyond the record");
            text += line + event.fields[i] + "\n";
        }
    }
    return text;
}

std::string VerdictText(const std::vector<std::string>& failures) {
    if (failures.empty()) return "\nThe run succeeded.\n";
    return List(Heading("The run failed"), failures);
}

}  // namespace bench
