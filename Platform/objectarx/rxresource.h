// Where the host finds a module's resources. A module handle converts by itself; empty() says: nowhere special.
#pragma once

#include "AdAChar.h"

class AcRxResourceInstance {
 public:
    AcRxResourceInstance();
    AcRxResourceInstance(void* hInstance);
    explicit AcRxResourceInstance(const wchar_t* name);
    ~AcRxResourceInstance();
    AcRxResourceInstance(const AcRxResourceInstance& other);
    AcRxResourceInstance& operator=(const AcRxResourceInstance& other);

    bool isNull() const;
    static const AcRxResourceInstance& empty();

 private:
    void* m_hInstance;
    wchar_t* m_name;
};
