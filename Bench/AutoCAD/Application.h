// Parts of AutoCAD that its other units use: window, working database, transactions, modules.
#pragma once

#include <windows.h>

#include "Drawing.h"
#include "actrans.h"
#include "dbapserv.h"
#include "dbmain.h"
#include "rxdefs.h"

namespace bench {

// The main window is visible; its caption names product and drawing. It has no timer: a module that waits for messages
// on this thread must wake itself.
void OpenMainWindow();
void CloseMainWindow();
void ShowFileName();

void SetWorkingDatabase(AcDbDatabase* database);  // null: no drawing is open
void ResetSystemVariables();
// Creates an object of the record's class that is not in a drawing yet.
AcDbObject* MakeObject(const Record& record);

AcTransactionManager* TheTransactionManager();  // of the document
size_t ActiveTransactions();
void ForgetTransactions();

void SendToModules(AcRx::AppMsgCode message);
void UnloadAllModules();

}  // namespace bench
