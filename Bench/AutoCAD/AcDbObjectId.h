// Ids of database objects: one for every handle that was asked for, kept for the life of the process, so that an id of
// a closed drawing and a pointer that is no id are told apart.
#pragma once

#include <string>

#include "Drawing.h"
#include "adsdef.h"
#include "dbid.h"

namespace bench {
class DrawingDatabase;
}

// What an id points at.
class AcDbStub {
 public:
    bench::Handle handle;
    bench::DrawingDatabase* database;
};

namespace bench {

AcDbObjectId IdOf(DrawingDatabase* database, Handle handle);
// Null when the id is none of ours.
const AcDbStub* StubOf(AcDbObjectId id);
// The id as an entity's name.
void NameEntity(AcDbObjectId id, ads_name name);
// For the journal: the handle, or "(null)".
std::string IdText(AcDbObjectId id);

}  // namespace bench
