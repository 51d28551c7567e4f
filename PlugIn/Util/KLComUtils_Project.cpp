#include "Util/KLComUtils.h"

#include "acedads.h"

#include "Lib/CommandLine.h"
#include "Lib/ExceptionReport.h"
#include "Lib/FormatText.h"
#include "Lib/ModuleIdentity.h"
#include "Util/ServerCommand.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_Project";
constexpr int kFileAccessSwitchVersion = 20090300;
constexpr int kProductVariable = 1;

struct TypeDefine {
    const char* kpdClassName;
    const char* define;
};

constexpr TypeDefine kTypeDefines[] = {
    {"hZoneValveType", "EWAPART_ZONEVALVE"},  //
    {"hStopValveType", "EWAPART_STOPVALVE"},  //
    {"dSupplyType", "EWAPART_SUPPLY"},        //
    {"dExtractType", "EWAPART_EXTRACT"},      //
    {"dOutdoorType", "EWAPART_OUTDOOR"},      //
    {"dExhaustType", "EWAPART_EXHAUST"},      //
    {"dSilencerType", "EWAPART_SILENCER"},
};

// Returns the server's name of the project file, empty when no project is open. Failures are not traced, because the
// caller shows that no project is open.
std::string ProjectFile(KLComUtils& utils) {
    const TraceSwitchGuard silent(utils, kNoTrace);
    return utils.GetPartAtt("", "/dwg/kpjfilename", false);
}

}  // namespace

bool KLComUtils::CheckKlimoraProject(int requiredVersion) {
    if (!server_) return false;
    std::string message;
    if (ServerVersion() < requiredVersion)
        message = FormatString("Klimora version %d or newer is required.", requiredVersion);
    else if (ProjectFile(*this).empty())
        message = "Klimora project is not open. Please, open Klimora project.";
    if (message.empty()) return true;
    PrintCommandLine("\n%s: %s\n", kDisplayName, message.c_str());
    MessageBoxA(adsw_acadMainWnd(), message.c_str(), kDisplayName, MB_TASKMODAL | MB_ICONEXCLAMATION | MB_OK);
    return false;
}

void KLComUtils::SetNoProjectFileAccessCheck(bool check) {
    if (!server_ || ServerVersion() < kFileAccessSwitchVersion) return;
    // The attribute means "no check", hence inverted.
    SetPartAtt("", "/dwg/flag/noPrjFileAccessCheck", check ? 0 : 1, false);
}

int KLComUtils::AddDeviceToKlimoraProject(const ProductToAdd& product) {
    int result = -1;
    if (!server_) return result;
    constexpr ReportSite kSite = {"Failed to add device to Klimora project.", kSource, 115,
                                  "KLComUtils::AddDeviceToKlimoraProject"};
    ReportOnThrow(kSite, [&] {
        const bool hasBinary = product.binaryData && product.binarySize >= 1;
        if (hasBinary && (Server()->setBinVariableSize(kProductVariable, product.binarySize) != 0 ||
                          SendBinVariableData(kProductVariable, product.binaryData, product.binarySize) != 0))
            throw "Can't set data to binary variable " + ServerErrorText();
        std::optional<BinVariableGuard> binary;
        if (hasBinary) binary.emplace(*this, kProductVariable);

        ServerCommand command("ManageProductData");
        command.Element("Function/Name", "Add");
        if (product.kpdFileName) command.Element("KPD/Filename", *product.kpdFileName);
        if (hasBinary) command.Element("KPD/binvar", kProductVariable);
        command.Element("KPDClass/Name", product.kpdClassName);
        command.Element("Usercode", product.userCode);
        command.Element("Productfamilykey", product.productFamilyKey);
        if (product.productKey) command.Element("Productkey", *product.productKey);
        if (product.extraXml) command.Verbatim(*product.extraXml);
        command.Close("ManageProductData");
        result = Server()->manageProductData(command.Text().c_str());

        // Read before freeing the variable can replace the server's last error text.
        const std::string productError = result < 0 ? ServerErrorText() : std::string();
        if (binary && binary->Free() != 0) throw "Can't free binary variable " + ServerErrorText();
        if (result < 0) throw "Can not add device to Klimora project " + productError;
    });
    return result;
}

std::string KLComUtils::GetTypeDefineByKPDClassName(const std::string& kpdClassName) {
    constexpr ReportSite kSite = {"Failed to get type define by KPD class name", kSource, 152,
                                  "KLComUtils::GetTypeDefineByKPDClassName"};
    return ReportOnThrow(kSite, std::string(), [&] {
        for (const TypeDefine& entry : kTypeDefines) {
            if (kpdClassName == entry.kpdClassName) return std::string(entry.define);
        }
        throw "Unknown kpd class for valve " + kpdClassName;
    });
}
