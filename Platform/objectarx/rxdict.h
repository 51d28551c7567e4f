// Dictionaries of objects, above all the system registry, which lives as long as the host. at() lends; remove() hands
// the object over to the caller, who deletes it. Both give null for a key that is absent. acrxServiceDictionary is a
// macro that looks the dictionary up at each use.
#pragma once

#include "rxnames.h"
#include "rxobject.h"

class ACCORE_PORT AcRxDictionary : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary)
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    virtual AcRxObject* remove(const ACHAR* key) = 0;
};

extern "C" ACCORE_PORT AcRxDictionary* acrxSysRegistry();

#define acrxServiceDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_SERVICE_DICTIONARY))
