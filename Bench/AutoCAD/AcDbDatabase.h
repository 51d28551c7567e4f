// The database of a drawing: its records, and which objects are open for reading or writing. It outlives the drawing.
#pragma once

#include <map>

#include "Drawing.h"
#include "dbmain.h"

namespace bench {

class DrawingDatabase : public AcDbDatabase {
 public:
    struct Openings {
        int readers = 0;
        int writers = 0;
    };

    Drawing drawing;
    bool open = true;
    std::map<Handle, Openings> openings;
};

// Returns an iterator over the attributes of a block reference; tracked until it is deleted.
AcDbObjectIterator* IterateAttributes(DrawingDatabase* database, const Record& reference);

}  // namespace bench
