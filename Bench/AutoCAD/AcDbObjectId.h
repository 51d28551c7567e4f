// Ids of database objects. There is one for every requested handle, and it lives as long as the process, so that the id
// of a closed drawing can be told from an invalid pointer.
#pragma once

#include <string>

#include "Drawing.h"
#include "adsdef.h"
#include "dbid.h"

namespace bench {
class DrawingDatabase;
}

// The target of an id's pointer.
class AcDbStub {
 public:
    bench::Handle handle;
    bench::DrawingDatabase* database;
};

namespace bench {

AcDbObjectId IdOf(DrawingDatabase* database, Handle handle);
// Returns null for an id that this library did not create.
const AcDbStub* StubOf(AcDbObjectId id);
// Converts the id into an entity name.
void NameEntity(AcDbObjectId id, ads_name name);
// Returns the handle, or "(null)", for the call log.
std::string IdText(AcDbObjectId id);

}  // namespace bench
