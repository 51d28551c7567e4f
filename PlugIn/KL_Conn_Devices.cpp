#include <windows.h>

#include "KL_Conn.h"

#include <cstring>
#include <unordered_set>

#include "ModuleNames.h"

namespace {

std::string PartsOfClass(const std::string& className) {
    return "/Project/KPDClass[" + className + "]/Part";
}

}  // namespace

// Up to the first that equals `last`, or all (null). False when one of these, or their count, is not given.
bool KlConn::ReadUserCodes(const std::string& className, std::vector<std::string>& codes, const std::string* last) {
    const std::string parts = PartsOfClass(className);
    const int count = GetPartAttOrDefault("", "Count(" + parts + ")", -1);
    bool complete = count >= 0;
    for (int i = 0; i < count; ++i) {
        codes.emplace_back();
        if (GetPartAtt("", parts + "[" + std::to_string(i) + "]/Usercode", codes.back(), false) != 0) complete = false;
        if (last && codes.back() == *last) break;
    }
    return complete;
}

std::string KlConn::ProposeUserCode(const std::string& className, const std::string& suffix) {
    std::vector<std::string> codes;
    ReadUserCodes(className, codes, nullptr);
    const std::unordered_set<std::string> used(codes.begin(), codes.end());
    for (int n = 1;; ++n) {
        std::string candidate = "SORV" + std::to_string(n) + suffix;
        if (used.count(candidate) == 0) return candidate;
    }
}

bool KlConn::IsUserCodeInUse(const std::string& className, const std::string& code) {
    std::vector<std::string> codes;
    // Unknown is not free: the user is asked before a product is replaced.
    if (!ReadUserCodes(className, codes, &code)) return true;
    return !codes.empty() && codes.back() == code;
}

// Every element of the query becomes a child of a new list element, its values the child's attributes.
int KlConn::ExportRecords(ticpp::Element* parent, const char* listName, const char* elementName,
                          const std::string& path, const std::vector<std::string>& names) {
    if (!parent) return -1;
    // An insertion copies, so each element is inserted while it is empty.
    ticpp::Element* const list = parent->InsertEndChild(ticpp::Element(listName));
    const ticpp::Element empty(elementName);
    return ForEachRecord(path, names, [&](const Record& record) {
        ticpp::Element* const element = list->InsertEndChild(empty);
        for (const auto& [name, value] : record)
            element->SetAttribute(name, value);
    });
}

int KlConn::ExportExistingDevices(ticpp::Element* parent, const char* commandName) {
    if (!commandName || std::strcmp(commandName, kSilencerCommand) != 0) return -1;
    return ExportRecords(parent, "SilencerDevices", "SilencerDevice", PartsOfClass(kSilencerClass),
                         {"ProductKey", "ProductCode", "UserCode"});
}

int KlConn::ExportDuctworkSystems(ticpp::Element* parent) {
    return ExportRecords(parent, "DuctworkSystems", "System", "/Project/Ductwork/System",
                         {"ID", "Name", "Type/ID", "UserCode"});
}
