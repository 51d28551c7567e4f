// The transaction manager of the current document, or null when no document is open.
#pragma once

#include "acdocman.h"
#include "dbtrans.h"

class ACCORE_PORT AcTransactionManager : public AcDbTransactionManager {
 public:
    ACRX_DECLARE_MEMBERS(AcTransactionManager)
};
