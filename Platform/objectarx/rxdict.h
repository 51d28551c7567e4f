// Dictionaries of objects, such as the system registry, which lives as long as the host. at() returns an object that
// the dictionary owns; remove() passes ownership to the caller. Both return null for an absent key.
// acrxServiceDictionary is a macro that looks up the dictionary at each use.
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
