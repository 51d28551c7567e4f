// The transaction manager of the document, for the stand-in's own use.
#pragma once

#include "actrans.h"

namespace bench {

AcTransactionManager* TransactionManager();
int ActiveTransactions();

}  // namespace bench
