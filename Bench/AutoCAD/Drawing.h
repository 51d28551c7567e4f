// The drawing as a value: records by handle, with references between them as handles. A transaction keeps a copy of the
// Drawing; abort assigns the copy back.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "gemat3d.h"

namespace bench {

using Handle = std::uint64_t;

// The declared class that represents a record when it is opened.
enum class RecordKind { kBlockTable, kBlockRecord, kLayerTable, kLayerRecord, kEntity, kReference, kAttribute };

struct XdataItem {
    short code = 0;
    std::wstring text;
    short integer = 0;
};

struct XdataOfApplication {
    std::wstring application;
    std::vector<XdataItem> items;
};

struct Record {
    Handle handle = 0;
    RecordKind kind = RecordKind::kEntity;
    std::wstring className;
    Handle owner = 0;
    bool erased = false;
    std::vector<XdataOfApplication> xdata;

    std::wstring name;             // symbol table records
    bool locked = false;           // layers
    std::vector<Handle> children;  // records of a table, entities of a block, attributes of a reference
    std::wstring layer = L"0";     // entities
    AcGeMatrix3d placement;        // entities: accumulated by transformBy; references: block to world
    Handle block = 0;              // references
    std::wstring text;             // attributes
    std::wstring tag;

    bool isEntity() const { return kind >= RecordKind::kEntity; }
};

struct Ucs {
    AcGePoint3d origin;
    AcGeVector3d xAxis = AcGeVector3d(1, 0, 0);
    AcGeVector3d yAxis = AcGeVector3d(0, 1, 0);
    AcGeMatrix3d toWorld() const;
};

// The placement of a block reference, as the matrix from block to world. `rotation` is about the normal.
AcGeMatrix3d BlockPlacement(const AcGePoint3d& position, double rotation, const AcGeVector3d& normal);
AcGeVector3d NormalOf(const AcGeMatrix3d& placement);
double RotationOf(const AcGeMatrix3d& placement);

class Drawing {
 public:
    // Handles of the objects in every drawing.
    static constexpr Handle kBlockTable = 0x1;
    static constexpr Handle kLayerTable = 0x2;
    static constexpr Handle kLayerZero = 0x10;
    static constexpr Handle kModelSpace = 0x1F;
    static constexpr Handle kPaperSpace = 0x1B;

    Drawing();

    Record* find(Handle handle);
    const Record* find(Handle handle) const;
    // Adds the record under its owner, with the next free handle if it has none. Returns null when the handle is taken.
    Record* add(Record record);
    Record* findNamed(Handle table, const std::wstring& name);
    Record& block(const std::wstring& name);  // added if missing
    Record& layer(const std::wstring& name);  // added if missing
    bool onLockedLayer(const Record& record) const;
    bool isRegistered(const std::wstring& application) const;
    // Restores the state of `earlier`, but does not reuse handles assigned since.
    void restore(const Drawing& earlier);
    // Returns readable text in a fixed order.
    std::string description() const;

    std::map<Handle, Record> records;
    std::vector<std::wstring> applications;
    Ucs ucs;

 private:
    Record& made(RecordKind kind, const wchar_t* className, Handle table, const std::wstring& name);

    Handle nextHandle_ = 0x200;
};

}  // namespace bench
