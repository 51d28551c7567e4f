#include <vector>

#include "AcDbDatabase.h"
#include "AcDbObjectId.h"
#include "AcRxClass.h"
#include "ArxCall.h"
#include "Texts.h"

using bench::ArxCall;

namespace {

class AttributeIterator : public AcDbObjectIterator {
 public:
    AttributeIterator(bench::DrawingDatabase* drawing, const bench::Record& reference)
        : database(drawing), owner(reference.handle), handles(reference.children) {
        bench::TrackAcquire("attribute iterator", bench::HandleText(owner));
    }
    ~AttributeIterator() override { bench::TrackRelease("attribute iterator", bench::HandleText(owner)); }

    bench::DrawingDatabase* const database;
    const bench::Handle owner;
    const std::vector<bench::Handle> handles;
    size_t place = 0;
};

}  // namespace

AcDbObjectIterator* bench::IterateAttributes(DrawingDatabase* database, const Record& reference) {
    return new AttributeIterator(database, reference);
}

ACRX_DEFINE_MEMBERS(AcDbObjectIterator, AcRxObject)
AcDbObjectIterator::AcDbObjectIterator() = default;
AcDbObjectIterator::~AcDbObjectIterator() = default;

bool AcDbObjectIterator::done() const {
    const auto& walk = static_cast<const AttributeIterator&>(*this);
    ArxCall call("AcDbObjectIterator::done", bench::HandleText(walk.owner));
    return call.done(walk.place >= walk.handles.size());
}

void AcDbObjectIterator::step(bool, bool) {
    auto& walk = static_cast<AttributeIterator&>(*this);
    ArxCall call("AcDbObjectIterator::step", bench::HandleText(walk.owner));
    ++walk.place;
}

AcDbObjectId AcDbObjectIterator::objectId() {
    auto& walk = static_cast<AttributeIterator&>(*this);
    ArxCall call("AcDbObjectIterator::objectId", bench::HandleText(walk.owner));
    const bool ended = walk.place >= walk.handles.size();
    if (ended) bench::ReportViolation("An attribute iterator was asked for an object after its end.");
    return ended || call.fails() ? AcDbObjectId() : bench::IdOf(walk.database, walk.handles[walk.place]);
}
