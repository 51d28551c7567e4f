// The transaction manager of a document; null where no document is open.
#pragma once

#include "acdocman.h"
#include "dbtrans.h"

class ACCORE_PORT AcTransactionManager : public AcDbTransactionManager {
 public:
    ACRX_DECLARE_MEMBERS(AcTransactionManager)
};
