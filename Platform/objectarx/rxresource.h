// Location of a module's resources. A module handle converts implicitly; empty() means no particular location.
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
