#include <windows.h>

#include "KL_Conn.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "Lib/ModuleIdentity.h"

namespace {

constexpr char kProposalPrefix[] = "SORV";

std::string PartsOfClass(const std::string& className) {
    return "/Project/KPDClass[" + className + "]/Part";
}

std::string Proposal(long number, const std::string& suffix) {
    return kProposalPrefix + std::to_string(number) + suffix;
}

// Returns the number between prefix and suffix of a code that could be proposed, or 0.
long ProposalNumber(const std::string& code, const std::string& suffix) {
    const size_t prefix = std::strlen(kProposalPrefix);
    if (code.size() <= prefix + suffix.size()) return 0;
    const std::string digits = code.substr(prefix, code.size() - prefix - suffix.size());
    const long number = std::strtol(digits.c_str(), nullptr, 10);
    return number > 0 && code == Proposal(number, suffix) ? number : 0;
}

}  // namespace

// Hands one after the other to `take` until that wants no more. Returns false when their count or one of them cannot be
// read; the codes before it were handed over.
bool KlConn::ReadUserCodes(const std::string& className, const std::function<bool(const std::string&)>& take) {
    const std::string parts = PartsOfClass(className);
    const int count = GetCountOrDefault(parts, -1);
    if (count < 0) return false;
    std::string code;
    for (int i = 0; i < count; ++i) {
        if (GetPartAtt("", parts + "[" + std::to_string(i) + "]/Usercode", code, false) != 0) return false;
        if (!take(code)) break;
    }
    return true;
}

std::string KlConn::ProposeUserCode(const std::string& className, const std::string& suffix) {
    std::vector<long> used;
    ReadUserCodes(className, [&](const std::string& code) {
        used.push_back(ProposalNumber(code, suffix));
        return true;
    });
    std::sort(used.begin(), used.end());
    long unused = 1;
    for (const long number : used) {
        if (number == unused) ++unused;
    }
    return Proposal(unused, suffix);
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
