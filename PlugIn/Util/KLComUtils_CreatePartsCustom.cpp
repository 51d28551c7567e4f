// Custom objects: their geometry, their line types and their creation.
#include "Util/KLComUtils.h"

#include "acdb.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbsymtb.h"

#include "Lib/ExceptionReport.h"
#include "Lib/Text.h"
#include "Util/ArxHandles.h"
#include "Util/PartCommands.h"

namespace {

constexpr char kSource[] = "PlugIn/Util/KLComUtils_CreateParts";
constexpr char kSetGeometry[] = "KLComUtils::SetGeometryForCustomObject";
constexpr char kCreateCustomObject[] = "KLComUtils::CreateCustomObject";
constexpr char kNotCreated[] = "Can't create custom object";

constexpr char kCustomDefine[] = "EWAPART_CUSTOM";
constexpr char kKModelParams[] = "/Part/Geometry/Source[0]/KModel/Params";
constexpr int kCustomObjectVersion = 2005087;
constexpr int kGeometryVariable = 1;
constexpr size_t kLayerLength = 128;

void CheckVersion(int serverVersion) {
    if (serverVersion < kCustomObjectVersion) throw "Klimora version is too old";
}

// What a custom object takes from the block reference that it replaces.
struct BlockPlace {
    std::string layer;
    PartPlacement placement;
    AcDbObjectId block;
};

BlockPlace ReadBlockReference(const std::string& handle) {
    const AcDbObjectId id = ObjectIdOf(handle, "Can't get block reference object id.");
    OpenObject<AcDbObject> object;
    if (object.Open(id, AcDb::kForRead) != Acad::eOk) throw "Can't open block reference object for reading.";
    const AcDbBlockReference* reference = AcDbBlockReference::cast(object.get());
    if (!reference) throw "Can't cast to block reference";

    BlockPlace place;
    const ArxString layer(reference->layer());
    if (layer) place.layer = Narrow(layer.get()).substr(0, kLayerLength);
    place.placement.normal = reference->normal();
    place.placement.position = reference->position();
    place.placement.direction = AcGeVector3d(1, 0, 0);
    place.placement.direction.rotateBy(reference->rotation(), place.placement.normal);
    place.block = reference->blockTableRecord();
    return place;
}

std::string ReadBlockName(AcDbObjectId block) {
    OpenObject<AcDbObject> object;
    if (object.Open(block, AcDb::kForRead) != Acad::eOk) throw "Can't open block table for reading";
    const AcDbBlockTableRecord* record = AcDbBlockTableRecord::cast(object.get());
    if (!record) throw "Can't cast to block table record";
    ArxString name;
    if (record->getName(*name.put()) != Acad::eOk) throw "Can't get block name";
    return Narrow(name.get());
}

}  // namespace

int KLComUtils::SetGeometryFromMemory(const std::string& part, const char* attribute, const void* data, int size) {
    if (!data || size < 1 || Server()->setBinVariableSize(kGeometryVariable, size) != 0) throw kNoDetails;
    const BinVariableGuard variable(*this, kGeometryVariable);
    if (SendBinVariableData(kGeometryVariable, data, size) != 0) throw kNoDetails;
    return SetPartAtt(part, attribute, kGeometryVariable, true);
}

int KLComUtils::SetGeometryForCustomObject(const std::string& part, const void* data, int size) {
    return ReportOnThrow({"Can't set gm_model geometry for custom object", kSource, 481, kSetGeometry}, -1, [&] {
        CheckVersion(ServerVersion());
        return SetGeometryFromMemory(part, "/Part/Geometry/Source[0]/gm_model/binvar", data, size);
    });
}

int KLComUtils::SetGeometryForCustomObject(const std::string& part, const std::string& kmodelFileName,
                                           const std::string& params) {
    return ReportOnThrow({"Can't set kmodel file geometry for custom object", kSource, 511, kSetGeometry}, -1, [&] {
        CheckVersion(ServerVersion());
        SetPartAtt(part, "/Part/Geometry/Source[0]/KModel/Filename", kmodelFileName, true);
        return params.empty() ? 0 : SetPartAtt(part, kKModelParams, params, true);
    });
}

int KLComUtils::SetGeometryForCustomObject(const std::string& part, const void* data, int size,
                                           const std::string& params) {
    // The message names the geometry model on purpose.
    return ReportOnThrow({"Can't set gm_model data for custom object", kSource, 553, kSetGeometry}, -1, [&] {
        CheckVersion(ServerVersion());
        SetGeometryFromMemory(part, "/Part/Geometry/Source[0]/KModel/binvar", data, size);
        return params.empty() ? 0 : SetPartAtt(part, kKModelParams, params, true);
    });
}

int KLComUtils::SetGeometryForCustomObject(const std::string& part, const std::string& blockName) {
    return ReportOnThrow({"Can't set block geometry for custom object", kSource, 577, kSetGeometry}, -1, [&] {
        CheckVersion(ServerVersion());
        return SetPartAtt(part, "/Part/Geometry/Source[0]/Block/Name", blockName, true);
    });
}

int KLComUtils::SetLinetypesForCustomObject(const std::string& part, const std::string& layer) {
    constexpr ReportSite kSite = {"Can't set line type definitions to part", kSource, 617,
                                  "KLComUtils::SetLinetypesForCustomObject"};
    return ReportOnThrow(kSite, -1, [&] {
        CheckVersion(ServerVersion());
        return SetPartAtt(part, "/Part/Geometry/Linetypedef[0]", LinetypeDefinition(layer), true);
    });
}

std::string KLComUtils::CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object) {
    return ReportOnThrow({kNotCreated, kSource, 667, kCreateCustomObject}, std::string(), [&] {
        CheckVersion(ServerVersion());
        std::string part = Create(&KlimComSrvImpl::createPart, CustomObjectCommand(placement, object));
        // A part without its line types is still valid; their failure is reported.
        if (IsValidPartHandle(part)) SetLinetypesForCustomObject(part, object.layer);
        return part;
    });
}

std::string KLComUtils::CreateCustomObject(const PartPlacement& placement, const CustomObjectData& object,
                                           const void* data, int size) {
    std::string part;
    ReportOnThrow({kNotCreated, kSource, 699, kCreateCustomObject}, [&] {
        part = CreateCustomObject(placement, object);
        if (IsValidPartHandle(part)) SetGeometryForCustomObject(part, data, size);
    });
    return part;
}

bool KLComUtils::IsCustomObject(const std::string& part) {
    const TraceSwitchGuard silent(*this, kNoTrace);
    return IsPartTypeDefine(part, kCustomDefine);
}

std::string KLComUtils::CreateCustomObject(const std::string& blockReference, const CustomObjectData& object,
                                           bool /*flag*/) {
    return ReportOnThrow({kNotCreated, kSource, 774, kCreateCustomObject}, std::string(), [&] {
        CheckVersion(ServerVersion());
        if (IsCustomObject(blockReference)) return std::string();
        const BlockPlace place = ReadBlockReference(blockReference);
        CustomObjectData onLayer = object;
        if (!place.layer.empty()) onLayer.layer = place.layer;
        std::string part = CreateCustomObject(place.placement, onLayer);
        if (IsValidPartHandle(part)) SetGeometryForCustomObject(part, ReadBlockName(place.block));
        return part;
    });
}
