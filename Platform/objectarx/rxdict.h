// Dictionaries of objects, above all the system registry, which lives as long as the host. at() lends; remove() hands
// the object over to the caller, who deletes it. Both give null for a key that is absent. acrxServiceDictionary is a
// macro that looks the dictionary up at each use.
#pragma once

#include "rxnames.h"
#include "rxobject.h"

class AcRxDictionary : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcRxDictionary)
    virtual AcRxObject* at(const ACHAR* key) const = 0;
    virtual AcRxObject* at(Adesk::UInt32 id) const = 0;
    virtual AcRxObject* atPut(const ACHAR* key, AcRxObject* pObject, Adesk::UInt32& retId) = 0;
    virtual AcRxObject* remove(const ACHAR* key) = 0;
    virtual AcRxObject* remove(Adesk::UInt32 id) = 0;
    virtual Adesk::Boolean has(const ACHAR* entryName) const = 0;
};

extern "C" AcRxDictionary* acrxSysRegistry();

#define acrxServiceDictionary AcRxDictionary::cast(acrxSysRegistry()->at(ACRX_SERVICE_DICTIONARY))
