// Start and end of AutoCAD and of its drawing.
#include "Application.h"

#include <ole2.h>

#include "AcDbDatabase.h"
#include "AcDbObject.h"
#include "AcTransactionManager.h"
#include "BenchAutoCAD.h"
#include "Memory.h"
#include "Session.h"
#include "SystemRegistry.h"
#include "Texts.h"

namespace bench {

void StartAutoCAD() {
    TheSession().mainThread = GetCurrentThreadId();
    OleInitialize(nullptr);
    AcDbObjectOpening::SetFactory(MakeObject);
    ResetSystemVariables();
    OpenMainWindow();
}

void StopAutoCAD() {
    UnloadAllModules();
    CloseDrawing();
    CloseMainWindow();
    ClearServices();
    AcDbObjectOpening::FreeAll();
    FreeMemory();
    OleUninitialize();
    TheSession() = Session();
}

void SetProduct(const std::string& product, int releaseMajor, int releaseMinor) {
    TheSession().product = FromAnsi(product);
    TheSession().releaseMajor = releaseMajor;
    TheSession().releaseMinor = releaseMinor;
    ShowFileName();
}

void NewDrawing(const std::string& fileName) {
    CloseDrawing();
    TheSession().fileName = FromAnsi(fileName);
    ResetSystemVariables();
    TheSession().current = new DrawingDatabase;
    SetWorkingDatabase(TheSession().current);
    ShowFileName();
    SendToModules(AcRx::kLoadDwgMsg);
}

void CloseDrawing() {
    Session& session = TheSession();
    if (session.current == nullptr) return;
    SendToModules(AcRx::kUnloadDwgMsg);
    SetWorkingDatabase(nullptr);
    // Kept: ids and pointers into the closed drawing must stay recognisable.
    session.current->open = false;
    session.current = nullptr;
    ForgetTransactions();
    session.lastPick = 0;
    session.queue.clear();
    session.input.clear();
    ShowFileName();
}

}  // namespace bench
