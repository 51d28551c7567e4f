// What starting and stopping AutoCAD and changing its drawing need from the other units.
#pragma once

#include <windows.h>

#include "Drawing.h"
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

void SendToModules(AcRx::AppMsgCode message);
void UnloadAllModules();

}  // namespace bench
