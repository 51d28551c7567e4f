#include "Util/KLUtils.h"

#include <acedads.h>
#include <adscodes.h>
#include <adsdef.h>
#include <dbapserv.h>
#include <dbents.h>
#include <dbmain.h>
#include <dbsymtb.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>

#include "Lib/ExceptionReport.h"
#include "Lib/FormatText.h"
#include "Lib/Text.h"
#include "Util/ArxHandles.h"

namespace KLUtils {

namespace {

constexpr size_t kTagLength = 32;

void UpdateAttributes(AcDbBlockReference* reference, const char* tag, const wchar_t* value) {
    const std::unique_ptr<AcDbObjectIterator> attributes(reference->attributeIterator());
    if (!attributes) throw std::runtime_error("The block reference gives no attributes.");
    for (; !attributes->done(); attributes->step()) {
        OpenObject<AcDbAttribute> attribute;
        if (attribute.Open(attributes->objectId(), AcDb::kForWrite) != Acad::eOk) {
            throw std::runtime_error("An attribute could not be opened for write.");
        }
        const ACHAR* ownTag = attribute->tagConst();
        if (std::strncmp(Narrow(ownTag ? ownTag : L"").c_str(), tag, kTagLength) != 0) continue;
        if (attribute->setTextString(value) != Acad::eOk) {
            throw std::runtime_error("An attribute's text could not be set.");
        }
        attribute->recordGraphicsModified();
    }
}

}  // namespace

bool PickEntity(const wchar_t* prompt, AcDbObjectId& id) {
    // Single pick; the prompts are those for adding and for removing.
    const ACHAR* prompts[] = {prompt, prompt};
    SelectionSet selection;
    if (acedSSGet(L":S:$", prompts, nullptr, nullptr, selection.put()) != RTNORM) return false;
    selection.setFilled();
    ads_name entity = {0, 0};
    if (acedSSName(selection.name(), 0, entity) != RTNORM) return false;
    return acdbGetObjectId(id, entity) == Acad::eOk;
}

Acad::ErrorStatus AppendToModelSpace(AcDbEntity* entity, AcDbObjectId& id) {
    AcDbDatabase* database = WorkingDatabase();
    if (!database) return Acad::eNoDatabase;
    AcDbBlockTable* table = nullptr;
    Acad::ErrorStatus status = database->getBlockTable(table, AcDb::kForRead);
    if (status != Acad::eOk) return status;
    const OpenObject<AcDbBlockTable> blocks(table);
    AcDbBlockTableRecord* record = nullptr;
    status = blocks->getAt(ACDB_MODEL_SPACE, record, AcDb::kForWrite);
    if (status != Acad::eOk) return status;
    const OpenObject<AcDbBlockTableRecord> modelSpace(record);
    return modelSpace->appendAcDbEntity(id, entity);
}

int UpdateAttribute(AcDbBlockReference* reference, const char* tag, const char* value) {
    if (!reference) return -1;
    constexpr ReportSite kSite = {"Failed to update attribute.", "PlugIn/Util/KLUtils", 282,
                                  "KLUtils::UpdateAttribute"};
    return ReportOnThrow(kSite, -1, [&] {
        if (!tag || !value) throw std::invalid_argument("Tag or value is missing.");
        UpdateAttributes(reference, tag, Widen(value).c_str());
        return 0;
    });
}

void MoveEntity(AcDbObjectId id, const AcGeVector3d& displacement) {
    OpenObject<AcDbEntity> entity;
    if (entity.Open(id, AcDb::kForWrite) != Acad::eOk) {
        throw std::runtime_error("failed to move entity because entity could not be opened for write");
    }
    entity->transformBy(AcGeMatrix3d::translation(displacement));
}

bool IsTileModeOn() {
    const AcDbDatabase* database = WorkingDatabase();
    return database && database->tilemode();
}

bool IsHostReleaseListed(const HostRelease* releases, int count) {
    AcDbHostApplicationServices* services = acdbHostApplicationServices();
    if (!services) return false;
    const std::string release = FormatString("%d.%d", services->releaseMajorVersion(), services->releaseMinorVersion());
    for (int i = 0; i < count; ++i) {
        // An entry that fills its 20 characters has no terminator.
        if (std::string(releases[i], strnlen(releases[i], sizeof releases[i])) == release) return true;
    }
    return false;
}

}  // namespace KLUtils
