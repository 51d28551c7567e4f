// The transaction manager of the document.
#pragma once

#include "actrans.h"

namespace bench {

AcTransactionManager* TheTransactionManager();
size_t ActiveTransactions();
void ForgetTransactions();

}  // namespace bench
