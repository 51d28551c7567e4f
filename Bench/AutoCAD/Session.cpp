#include "Session.h"

#include "AcDbDatabase.h"

namespace bench {

Session& TheSession() {
    static Session session;
    return session;
}

Drawing* CurrentDrawing() {
    DrawingDatabase* current = TheSession().current;
    return current == nullptr ? nullptr : &current->drawing;
}

}  // namespace bench
