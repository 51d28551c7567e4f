// Where the host finds a module's resources. A module handle converts by itself; empty() says: nowhere special.
#pragma once

#include "adesk.h"

class ACCORE_PORT AcRxResourceInstance {
 public:
    AcRxResourceInstance();
    AcRxResourceInstance(void* hInstance);

    static const AcRxResourceInstance& empty();

 private:
    void* m_hInstance;
};
