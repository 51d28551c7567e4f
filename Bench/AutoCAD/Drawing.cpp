#include "Drawing.h"

#include <cmath>

#include "Texts.h"
#include "acdb.h"

namespace bench {
namespace {

Record Named(Handle handle, RecordKind kind, const wchar_t* className, Handle owner, const std::wstring& name) {
    Record record;
    record.handle = handle;
    record.kind = kind;
    record.className = className;
    record.owner = owner;
    record.name = name;
    return record;
}

}  // namespace

AcGeMatrix3d Ucs::toWorld() const {
    return AcGeMatrix3d().setCoordSystem(origin, xAxis, yAxis, xAxis.crossProduct(yAxis));
}

Drawing::Drawing() {
    add(Named(kBlockTable, RecordKind::kBlockTable, L"AcDbBlockTable", 0, L""));
    add(Named(kLayerTable, RecordKind::kLayerTable, L"AcDbLayerTable", 0, L""));
    add(Named(kLayerZero, RecordKind::kLayerRecord, L"AcDbLayerTableRecord", kLayerTable, L"0"));
    add(Named(kModelSpace, RecordKind::kBlockRecord, L"AcDbBlockTableRecord", kBlockTable, ACDB_MODEL_SPACE));
    add(Named(kPaperSpace, RecordKind::kBlockRecord, L"AcDbBlockTableRecord", kBlockTable, ACDB_PAPER_SPACE));
    applications.push_back(L"ACAD");
}

Record* Drawing::find(Handle handle) {
    const auto found = records.find(handle);
    return found == records.end() ? nullptr : &found->second;
}

const Record* Drawing::find(Handle handle) const {
    return const_cast<Drawing*>(this)->find(handle);
}

Record* Drawing::add(Record record) {
    if (record.handle == 0) {
        while (records.count(nextHandle_) != 0)
            ++nextHandle_;
        record.handle = nextHandle_++;
    }
    const auto [place, added] = records.emplace(record.handle, record);
    if (!added) return nullptr;
    if (Record* owner = find(record.owner)) owner->children.push_back(record.handle);
    if (record.isEntity()) layer(record.layer);
    return &place->second;
}

Record* Drawing::findNamed(Handle table, const std::wstring& name) {
    for (Handle handle : find(table)->children) {
        Record* record = find(handle);
        if (record != nullptr && SameName(record->name, name)) return record;
    }
    return nullptr;
}

Record& Drawing::made(RecordKind kind, const wchar_t* className, Handle table, const std::wstring& name) {
    if (Record* known = findNamed(table, name)) return *known;
    return *add(Named(0, kind, className, table, name));
}

Record& Drawing::block(const std::wstring& name) {
    return made(RecordKind::kBlockRecord, L"AcDbBlockTableRecord", kBlockTable, name);
}

Record& Drawing::layer(const std::wstring& name) {
    return made(RecordKind::kLayerRecord, L"AcDbLayerTableRecord", kLayerTable, name);
}

bool Drawing::onLockedLayer(const Record& record) const {
    if (!record.isEntity()) return false;
    const Record* layer = const_cast<Drawing*>(this)->findNamed(kLayerTable, record.layer);
    return layer != nullptr && layer->locked;
}

bool Drawing::isRegistered(const std::wstring& application) const {
    for (const std::wstring& known : applications)
        if (SameName(known, application)) return true;
    return false;
}

void Drawing::restore(const Drawing& earlier) {
    const Handle next = nextHandle_;
    *this = earlier;
    nextHandle_ = next;
}

// ---- Block placement ----

namespace {

// The arbitrary axis algorithm: the x axis is world y × normal near the world's z, otherwise world z × normal.
AcGeMatrix3d PlaneToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d z = normal.normal();
    const bool nearZ = std::fabs(z.x) < 1.0 / 64 && std::fabs(z.y) < 1.0 / 64;
    const AcGeVector3d x = (nearZ ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1)).crossProduct(z).normal();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d(), x, z.crossProduct(x), z);
}

AcGeVector3d Axis(const AcGeMatrix3d& placement, int column) {
    return AcGeVector3d(placement.entry[0][column], placement.entry[1][column], placement.entry[2][column]);
}

}  // namespace

AcGeMatrix3d BlockPlacement(const AcGePoint3d& position, double rotation, const AcGeVector3d& normal) {
    AcGeMatrix3d placement = PlaneToWorld(normal) * AcGeMatrix3d::rotation(rotation, AcGeVector3d(0, 0, 1));
    return placement.setTranslation(position.asVector());
}

AcGeVector3d NormalOf(const AcGeMatrix3d& placement) {
    return Axis(placement, 2);
}

double RotationOf(const AcGeMatrix3d& placement) {
    const AcGeVector3d flat = PlaneToWorld(NormalOf(placement)).inverse() * Axis(placement, 0);
    return std::atan2(flat.y, flat.x);
}

// ---- The drawing as text ----

namespace {

std::string DescribeXdata(const Record& record) {
    std::string text;
    for (const XdataOfApplication& data : record.xdata) {
        text += "    xdata " + Ansi(data.application) + "\n";
        for (const XdataItem& item : data.items)
            text += "      " + std::to_string(item.code) + " " +
                    (item.code == AcDb::kDxfXdInteger16 ? std::to_string(item.integer) : Ansi(item.text)) + "\n";
    }
    return text;
}

std::string DescribePlacement(const Drawing& drawing, const Record& record) {
    std::string text;
    if (const Record* block = drawing.find(record.block)) text = " block=" + Ansi(block->name);
    text += " placement=";
    for (const auto& row : record.placement.entry)
        for (double number : row)
            text += NumberText(number, 10) + ";";
    return text;
}

std::string DescribeEntity(const Drawing& drawing, const Record& record) {
    std::string text = "  " + HandleText(record.handle) + " " + Ansi(record.className) +
                       " layer=" + Ansi(record.layer) + DescribePlacement(drawing, record);
    if (record.erased) text += " erased";
    text += "\n" + DescribeXdata(record);
    for (Handle handle : record.children)
        if (const Record* attribute = drawing.find(handle))
            text += "    attribute " + HandleText(handle) + " " + Ansi(attribute->tag) + "=" + Ansi(attribute->text) +
                    (attribute->erased ? " erased" : "") + "\n" + DescribeXdata(*attribute);
    return text;
}

}  // namespace

std::string Drawing::description() const {
    std::string text = "layers\n";
    for (Handle handle : find(kLayerTable)->children) {
        const Record& layer = *find(handle);
        text += "  " + Ansi(layer.name) + (layer.locked ? " locked\n" : "\n") + DescribeXdata(layer);
    }
    for (Handle handle : find(kBlockTable)->children) {
        const Record& block = *find(handle);
        text += "block " + Ansi(block.name) + "\n" + DescribeXdata(block);
        for (Handle entity : block.children)
            text += DescribeEntity(*this, *find(entity));
    }
    text += "applications\n";
    for (const std::wstring& application : applications)
        text += "  " + Ansi(application) + "\n";
    return text;
}

}  // namespace bench
