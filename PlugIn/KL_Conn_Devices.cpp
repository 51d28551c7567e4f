#include <windows.h>

#include "KL_Conn.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "ModuleNames.h"

namespace {

std::string PartsOfClass(const std::string& className) {
    return "/Project/KPDClass[" + className + "]/Part";
}

}  // namespace

// Gives one after the other to `take` until that wants no more. False when one of these, or their count, is not given.
bool KlConn::ReadUserCodes(const std::string& className, const std::function<bool(const std::string&)>& take) {
    const std::string parts = PartsOfClass(className);
    const int count = GetPartAttOrDefault("", "Count(" + parts + ")", -1);
    bool complete = count >= 0, wanted = true;
    std::string code;
    for (int i = 0; i < count && wanted; ++i) {
        if (GetPartAtt("", parts + "[" + std::to_string(i) + "]/Usercode", code, false) != 0) complete = false;
        wanted = take(code);
    }
    return complete;
}

std::string KlConn::ProposeUserCode(const std::string& className, const std::string& suffix) {
    const auto proposal = [&](long number) { return "SORV" + std::to_string(number) + suffix; };
    std::vector<long> used;
    ReadUserCodes(className, [&](const std::string& code) {
        const long number = code.size() > 4 ? std::strtol(code.c_str() + 4, nullptr, 10) : 0;
        if (number > 0 && code == proposal(number)) used.push_back(number);
        return true;
    });
    std::sort(used.begin(), used.end());
    long unused = 1;
    for (const long number : used)
        unused += number == unused;
    return proposal(unused);
}

bool KlConn::IsUserCodeInUse(const std::string& className, const std::string& code) {
    bool found = false;
    const bool complete = ReadUserCodes(className, [&](const std::string& used) { return !(found = used == code); });
    // Unknown is not free: the user is asked before a product is replaced.
    return found || !complete;
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
