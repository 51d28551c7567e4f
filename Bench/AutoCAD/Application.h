// What the start and the end of AutoCAD and a change of its drawing ask of the other parts.
#pragma once

#include <windows.h>

#include "Drawing.h"
#include "dbapserv.h"
#include "dbmain.h"
#include "rxdefs.h"

namespace bench {

// The main window: visible and captioned with product and drawing. It has no timer: a module that waits for messages on
// this thread has to see to them itself.
void OpenMainWindow();
void CloseMainWindow();
void ShowFileName();

void SetWorkingDatabase(AcDbDatabase* database);  // null: no drawing is open
void ResetSystemVariables();
// A new object of the class that stands for the record, in no drawing yet.
AcDbObject* MakeObject(const Record& record);

void SendToModules(AcRx::AppMsgCode message);
void UnloadAllModules();

}  // namespace bench
