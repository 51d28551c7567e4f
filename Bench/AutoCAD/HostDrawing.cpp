#include "HostDrawing.h"

#include "HostCall.h"

namespace bench {

Drawing::Drawing() {
    const auto fixed = [this](Handle handle, RecordKind kind, const wchar_t* className, Handle owner,
                              const wchar_t* name) {
        Record record;
        record.handle = handle;
        record.kind = kind;
        record.className = className;
        record.owner = owner;
        record.name = name;
        add(record);
    };
    fixed(kBlockTable, RecordKind::kBlockTable, L"AcDbBlockTable", 0, L"");
    fixed(kLayerTable, RecordKind::kLayerTable, L"AcDbLayerTable", 0, L"");
    fixed(kLayerZero, RecordKind::kLayerRecord, L"AcDbLayerTableRecord", kLayerTable, L"0");
    fixed(kModelSpace, RecordKind::kBlockRecord, L"AcDbBlockTableRecord", kBlockTable, ACDB_MODEL_SPACE);
    fixed(kPaperSpace, RecordKind::kBlockRecord, L"AcDbBlockTableRecord", kBlockTable, ACDB_PAPER_SPACE);
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

Record& Drawing::block(const std::wstring& name) {
    if (Record* known = findNamed(kBlockTable, name)) return *known;
    Record record;
    record.kind = RecordKind::kBlockRecord;
    record.className = L"AcDbBlockTableRecord";
    record.owner = kBlockTable;
    record.name = name;
    return *add(record);
}

Record& Drawing::layer(const std::wstring& name) {
    if (Record* known = findNamed(kLayerTable, name)) return *known;
    Record record;
    record.kind = RecordKind::kLayerRecord;
    record.className = L"AcDbLayerTableRecord";
    record.owner = kLayerTable;
    record.name = name;
    return *add(record);
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

// ---- The drawing as a text ----

namespace {

std::string DescribeItem(const XdataItem& item) {
    std::string text = "      " + std::to_string(item.code) + " ";
    if (item.code == 1004)
        for (unsigned char byte : item.bytes)
            text += HandleText(byte) + ".";
    else if (item.code < 1010)
        text += Narrow(item.text);
    else if (item.code < 1040)
        text += PointText(item.numbers);
    else if (item.code < 1070)
        text += NumberText(item.numbers[0]);
    else
        text += std::to_string(item.integer);
    return text + "\n";
}

std::string DescribeXdata(const Record& record) {
    std::string text;
    for (const XdataOfApplication& data : record.xdata) {
        text += "    xdata " + Narrow(data.application) + "\n";
        for (const XdataItem& item : data.items)
            text += DescribeItem(item);
    }
    return text;
}

std::string DescribePlacement(const Drawing& drawing, const Record& record) {
    if (record.kind == RecordKind::kReference) {
        const Record* block = drawing.find(record.block);
        return " block=" + (block == nullptr ? "?" : Narrow(block->name)) + " at=" + PointText(&record.position.x) +
               " scale=" + PointText(&record.scale.sx) + " rotation=" + NumberText(record.rotation) +
               " normal=" + PointText(&record.normal.x);
    }
    if (record.placement.isEqualTo(AcGeMatrix3d())) return {};
    std::string text = " placement=";
    for (const auto& row : record.placement.entry)
        for (double number : row)
            text += NumberText(number) + ";";
    return text;
}

std::string DescribeEntity(const Drawing& drawing, const Record& record) {
    std::string text = "  " + HandleText(record.handle) + " " + Narrow(record.className) +
                       " layer=" + Narrow(record.layer) + DescribePlacement(drawing, record);
    if (record.erased) text += " erased";
    if (!record.text.empty()) text += " text=" + Narrow(record.text);
    text += "\n" + DescribeXdata(record);
    for (Handle handle : record.children)
        if (const Record* attribute = drawing.find(handle))
            text += "    attribute " + HandleText(handle) + " " + Narrow(attribute->tag) + "=" +
                    Narrow(attribute->text) + (attribute->erased ? " erased" : "") + "\n" + DescribeXdata(*attribute);
    return text;
}

}  // namespace

std::string DescribeDrawing(const Drawing& drawing) {
    std::string text = "layers\n";
    for (Handle handle : drawing.find(Drawing::kLayerTable)->children) {
        const Record& layer = *drawing.find(handle);
        text += "  " + Narrow(layer.name) + (layer.locked ? " locked\n" : "\n") + DescribeXdata(layer);
    }
    for (Handle handle : drawing.find(Drawing::kBlockTable)->children) {
        const Record& block = *drawing.find(handle);
        text += "block " + Narrow(block.name) + "\n" + DescribeXdata(block);
        for (Handle entity : block.children)
            text += DescribeEntity(drawing, *drawing.find(entity));
    }
    text += "applications\n";
    for (const std::wstring& application : drawing.applications)
        text += "  " + Narrow(application) + "\n";
    return text;
}

}  // namespace bench
