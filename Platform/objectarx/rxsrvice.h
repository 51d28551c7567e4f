// A named service of a module, kept in the service dictionary.
#pragma once

#include "rxobject.h"

class AcRxService : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxService)
    AcRxService();
    virtual ~AcRxService();
    void addDependency();
    void removeDependency();
    Adesk::Boolean unloadable() const;

 private:
    int m_dependencies;
};
