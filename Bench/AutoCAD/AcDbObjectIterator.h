// Iterates over the attributes of a block reference; tracked until it is deleted.
#pragma once

#include <vector>

#include "AcDbDatabase.h"

namespace bench {

class AttributeIterator : public AcDbObjectIterator {
 public:
    AttributeIterator(DrawingDatabase* database, const Record& reference);
    ~AttributeIterator() override;

    DrawingDatabase* const database;
    const Handle owner;
    const std::vector<Handle> handles;
    size_t place = 0;
};

}  // namespace bench
