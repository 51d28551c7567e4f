#include "Application.h"

#include "AcDbObject.h"
#include "dbents.h"
#include "dbsymtb.h"

namespace bench {
namespace {

// The declared classes have no public constructors; the drawing creates their objects.
template <class Base>
class Made : public Base {};

// Entities of other applications, layers and the layer table, whose run-time class is in the record.
template <class Base>
class Named : public Base {
 public:
    explicit Named(const std::wstring& name) : class_(DescribeClass(name, Base::desc())) {}
    AcRxClass* isA() const override {
        AcDbObjectOpening::Read(this, "isA");
        return class_;
    }

 private:
    AcRxClass* class_;
};

}  // namespace

AcDbObject* MakeObject(const Record& record) {
    switch (record.kind) {
        case RecordKind::kBlockTable:
            return new Made<AcDbBlockTable>;
        case RecordKind::kBlockRecord:
            return new Made<AcDbBlockTableRecord>;
        case RecordKind::kLayerTable:
            return new Named<AcDbSymbolTable>(record.className);
        case RecordKind::kLayerRecord:
            return new Named<AcDbSymbolTableRecord>(record.className);
        case RecordKind::kReference:
            return new Made<AcDbBlockReference>;
        case RecordKind::kAttribute:
            return new Made<AcDbAttribute>;
        case RecordKind::kEntity:
            break;
    }
    return new Named<AcDbEntity>(record.className);
}

}  // namespace bench
