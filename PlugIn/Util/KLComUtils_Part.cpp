#include "Util/KLComUtils.h"

#include <utility>

#include "acdb.h"
#include "dbents.h"
#include "dbmain.h"

#include "Lib/ExceptionReport.h"
#include "Util/ArxHandles.h"
#include "Util/KLUtils_Text.h"
#include "Util/ServerCommand.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_Part";
constexpr char kPackagePath[] = "/Part/Package/PartList";

std::string ConnectedToPath(int connection) {
    return "/Part/Connection[" + std::to_string(connection) + "]/ConnectedTo";
}

}  // namespace

int KLComUtils::CountConnections(const std::string& part) {
    const int count = ToWholeNumber(GetPartAttReal(part, "Count(/Part/Connection)", true));
    if (count > kMaxCount) throw "Klimora's number of connections is not believable";
    return count;
}

void KLComUtils::GetTwoConnectedParts(const std::string& part, std::string& first, std::string& second,
                                      bool validOnly) {
    first.clear();
    second.clear();
    if (!server_) return;
    std::string* const results[] = {&first, &second};
    const char* const messages[] = {"Can't get connection 0 ", "Can't get connection 1 "};
    constexpr ReportSite kSite = {"GetConnectedParts : Failed to get parts connected to segment.", kSource, 49,
                                  "KLComUtils::GetTwoConnectedParts"};
    ReportOnThrow(kSite, [&] {
        const int count = CountConnections(part);
        for (int i = 0; i < 2 && i < count; ++i) {
            if (GetPartAtt(part, ConnectedToPath(i), *results[i], false) != 0) throw messages[i];
        }
        for (std::string* result : results) {
            if (validOnly && !IsValidPartHandle(*result)) result->clear();
        }
    });
}

void KLComUtils::GetAllConnectedParts(const std::string& part, std::vector<std::string>& parts, bool validOnly) {
    if (!server_) return;
    ReportOnThrow({"Failed to get connected parts", kSource, 66, "KLComUtils::GetAllConnectedParts"}, [&] {
        const int count = CountConnections(part);
        for (int i = 0; i < count; ++i) {
            std::string connected = GetPartAtt(part, ConnectedToPath(i), true);
            if (!validOnly || IsValidPartHandle(connected)) parts.push_back(std::move(connected));
        }
    });
}

int KLComUtils::EraseParts(const char* list) {
    if (!server_) return -1;
    if (!list) return 0;
    return ReportOnThrow({"Failed to erase parts", kSource, 105, "KLComUtils::EraseParts"}, -1, [&] {
        const ServerCommand command = ServerCommand().Verbatim("ErasePart/PartList", list);
        if (Server()->erasePart(command.Text().c_str()) != 0) throw kNoDetails;
        return 0;
    });
}

int KLComUtils::GetPackageList(const std::string& part, std::vector<std::string>& members) {
    if (!server_) return -1;
    return ReportOnThrow({"Can't get Klimora product package", kSource, 124, "KLComUtils::GetPackageList"}, -1, [&] {
        for (std::string& member : KLUtils::Split(GetPartAtt(part, kPackagePath, true), " "))
            members.push_back(std::move(member));
        return 0;
    });
}

int KLComUtils::SetPackageList(const std::string& part, const std::vector<std::string>& members) {
    if (!server_) return -1;
    if (members.empty()) return 0;
    return ReportOnThrow({"Can't set Klimora product package", kSource, 137, "KLComUtils::SetPackageList"}, -1, [&] {
        std::string list = members[0];
        for (size_t i = 1; i < members.size(); ++i)
            list += ' ' + members[i];
        return SetPartAtt(part, kPackagePath, list, true);
    });
}

std::string KLComUtils::GetPackageMainPart(const std::string& part) {
    const TraceSwitchGuard silent(*this, kNoTrace);
    return GetPartAttOrDefault(part, "/part/package/mainpart", std::string());
}

AcGeMatrix3d KLComUtils::GetTransformationMatrix(AcDbObjectId entity) {
    AcGeMatrix3d matrix;
    matrix.setToIdentity();
    if (!server_) return matrix;
    constexpr ReportSite kSite = {"Failed to get transformation matrix", kSource, 166,
                                  "KLComUtils::GetTransformationMatrix"};
    ReportOnThrow(kSite, [&] {
        OpenObject<AcDbEntity> opened;
        if (opened.Open(entity, AcDb::kForRead) != Acad::eOk) throw "Can't open object for reading";
        if (const AcDbBlockReference* reference = AcDbBlockReference::cast(opened.get())) {
            matrix = reference->blockTransform();
            return;
        }
        opened.reset();
        const std::string part = GetPartHandle(entity);
        if (!IsValidPartHandle(part)) return;
        const AcGePoint3d position = GetPartAttPoint(part, "/Part/Position/WCS", true);
        const AcGeVector3d direction = GetPartAttVector(part, "/Part/Direction/WCS", true);
        const AcGeVector3d normal = GetPartAttVector(part, "/Part/Normal/WCS", true);
        matrix.setCoordSystem(position, direction, normal.crossProduct(direction), normal);
    });
    return matrix;
}
