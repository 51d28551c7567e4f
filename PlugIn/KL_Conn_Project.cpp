#include "KL_Conn.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "Lib/ModuleIdentity.h"

namespace {

constexpr char kProposalPrefix[] = "SORV";

std::string PartsOfClass(const std::string& className) {
    return "/Project/KPDClass[" + className + "]/Part";
}

std::string Proposal(long number, const std::string& suffix) {
    return kProposalPrefix + std::to_string(number) + suffix;
}

// Returns the number in a code that Proposal composes with this suffix; 0 for any other code.
long ProposalNumber(const std::string& code, const std::string& suffix) {
    const size_t prefix = std::strlen(kProposalPrefix);
    if (code.size() <= prefix + suffix.size()) return 0;
    const std::string digits = code.substr(prefix, code.size() - prefix - suffix.size());
    const long number = std::strtol(digits.c_str(), nullptr, 10);
    return number > 0 && code == Proposal(number, suffix) ? number : 0;
}

// Calls `visit` with each user code of the class until it returns false. Returns false when the count or a code cannot
// be read; the codes before it have been visited.
template <class Visit>
bool VisitUserCodes(KLComUtils& klimora, const std::string& className, const Visit& visit) {
    const std::string parts = PartsOfClass(className);
    const int count = klimora.GetCountOrDefault(parts, -1);
    if (count < 0) return false;
    std::string code;
    for (int i = 0; i < count; ++i) {
        if (klimora.GetPartAtt("", parts + "[" + std::to_string(i) + "]/Usercode", code, false) != 0) return false;
        if (!visit(code)) break;
    }
    return true;
}

// Appends a list element with one child for every element at `path`; the values become the child's attributes.
int ExportRecords(KLComUtils& klimora, ticpp::Element* parent, const char* listName, const char* elementName,
                  const std::string& path, const std::vector<std::string>& names) {
    if (!parent) return -1;
    // InsertEndChild copies, so each element is inserted while it is empty.
    ticpp::Element* const list = parent->InsertEndChild(ticpp::Element(listName));
    const ticpp::Element empty(elementName);
    return klimora.ForEachRecord(path, names, [&](const KLComUtils::Record& record) {
        ticpp::Element* const element = list->InsertEndChild(empty);
        for (const auto& [name, value] : record)
            element->SetAttribute(name, value);
    });
}

}  // namespace

std::string KlConn::ProposeUserCode(const std::string& className, const std::string& suffix) {
    std::vector<long> used;
    VisitUserCodes(*this, className, [&](const std::string& code) {
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
    const bool complete = VisitUserCodes(*this, className, [&](const std::string& used) {
        found = used == code;
        return !found;
    });
    // A code that may be in use counts as used, so that the user is asked before a product is replaced.
    return found || !complete;
}

int KlConn::ExportExistingDevices(ticpp::Element* parent, const char* commandName) {
    if (!commandName || std::strcmp(commandName, kSilencerCommand) != 0) return -1;
    return ExportRecords(*this, parent, "SilencerDevices", "SilencerDevice", PartsOfClass(kSilencerClass),
                         {"ProductKey", "ProductCode", "UserCode"});
}

int KlConn::ExportDuctworkSystems(ticpp::Element* parent) {
    return ExportRecords(*this, parent, "DuctworkSystems", "System", "/Project/Ductwork/System",
                         {"ID", "Name", "Type/ID", "UserCode"});
}
