#include "InsertCommand.h"

#include <windows.h>

#include "acedads.h"
#include "adscodes.h"

#include <string>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "DuctSplit.h"
#include "Refusal.h"
#include "Server.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr char kSilencerClass[] = "dSilencerType";
constexpr char kEnterPressed[] = "52";  // ERRNO after a pick prompt that was answered with Enter

void Say(const std::string& sentence) {
    PrintText("\n" + sentence + "\n");
}

bool ReadLine(const wchar_t* prompt, std::string& line) {
    wchar_t buffer[256] = {};
    if (acedGetString(1, prompt, buffer, std::size(buffer)) != RTNORM) return false;
    line = Utf8(buffer);
    return true;
}

// Handle of the duct that the user points at, or of the one picked last on Enter; empty when the user cancelled.
std::string AskForDuct(const std::string& userCode) {
    const std::wstring prompt =
        L"\nKlimora: Select the duct for silencer " + FromUtf8(userCode) + L" or press Enter for the duct picked last:";
    for (;;) {
        ads_name picked = {};
        ads_point at = {};
        const int answer = acedEntSel(prompt.c_str(), picked, at);
        if (answer == RTNORM) return LastPick();
        if (answer != RTERROR) return {};
        if (SystemVariable("ERRNO") == kEnterPressed) return LastPick();
    }
}

void Insert(const std::string& familyKey, const std::string& userCode) {
    const ProjectTree& project = TheServer().project;
    const TiXmlElement* product = project.Product(kSilencerClass, userCode);
    if (!product || ValueAt(product, "ProductFamilyKey") != familyKey) {
        Say("KLIMSILX: product " + familyKey + " with user code " + userCode + " is not in the project.");
        return;
    }
    const std::string handle = AskForDuct(userCode);
    if (handle.empty()) {
        Say("KLIMSILX: no duct was selected.");
        return;
    }
    const InsertedSilencer inserted = InsertIntoDuct(project, project.Part(handle), product);
    Say("Klimora: Silencer " + userCode + " was inserted as part " + inserted.silencer + " between ducts " + handle +
        " and " + inserted.secondDuct + ", " + NumberText(inserted.fromStart) + " mm from the start of the duct.");
}

}  // namespace

void RunInsertCommand() {
    const Quiet quiet;
    std::string familyKey;
    std::string userCode;
    if (!ReadLine(L"\nProduct family key: ", familyKey) || !ReadLine(L"\nUser code: ", userCode)) {
        Say("KLIMSILX: cancelled.");
        return;
    }
    try {
        Insert(familyKey, userCode);
    } catch (const Refusal& refusal) {
        Say(std::string("KLIMSILX: ") + refusal.what());
    }
}

}  // namespace bench::klimora
