#include "AcRxClass.h"

#include <map>

namespace bench {
namespace {

class ClassDescription : public AcRxClass {
 public:
    std::wstring name;
    const AcRxClass* parent = nullptr;
};

}  // namespace

AcRxClass* DescribeClass(const std::wstring& name, AcRxClass* parent) {
    static std::map<std::wstring, ClassDescription*> known;
    ClassDescription*& entry = known[name];
    if (entry == nullptr) {
        entry = new ClassDescription;
        entry->name = name;
        entry->parent = parent;
    }
    return entry;
}

const std::wstring& ClassName(const AcRxClass* description) {
    return static_cast<const ClassDescription*>(description)->name;
}

}  // namespace bench

AcRxObject::AcRxObject() = default;
AcRxObject::~AcRxObject() = default;
AcRxClass* AcRxObject::desc() {
    return bench::DescribeClass(L"AcRxObject", nullptr);
}
AcRxClass* AcRxObject::isA() const {
    return desc();
}

ACRX_DEFINE_MEMBERS(AcRxClass, AcRxObject)
AcRxClass::AcRxClass() = default;
AcRxClass::~AcRxClass() = default;

bool AcRxClass::isDerivedFrom(const AcRxClass* pDerived, const AcRxClass* pBase) {
    const AcRxClass* c = pDerived;
    while (c != nullptr && c != pBase)
        c = static_cast<const bench::ClassDescription*>(c)->parent;
    return c != nullptr;
}
