#include "ProcessState.h"

#include "AcDbDatabase.h"

namespace bench {

ProcessState& TheProcess() {
    static ProcessState process;
    return process;
}

Drawing* CurrentDrawing() {
    DrawingDatabase* current = TheProcess().current;
    return current == nullptr ? nullptr : &current->drawing;
}

}  // namespace bench
