// Starts and stops AutoCAD; opens and closes its drawing.
#include "Application.h"

#include <ole2.h>

#include "AcDbDatabase.h"
#include "AcDbObject.h"
#include "BenchAutoCAD.h"
#include "Memory.h"
#include "ProcessState.h"
#include "SystemRegistry.h"
#include "Texts.h"

namespace bench {

ProcessState& TheProcess() {
    static ProcessState process;
    return process;
}

Drawing* CurrentDrawing() {
    DrawingDatabase* current = TheProcess().current;
    return current == nullptr ? nullptr : &current->drawing;
}

void StartAutoCAD() {
    TheProcess().mainThread = GetCurrentThreadId();
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
    TheProcess() = ProcessState();
}

void SetProduct(const std::string& product, int releaseMajor, int releaseMinor) {
    TheProcess().product = FromAnsi(product);
    TheProcess().releaseMajor = releaseMajor;
    TheProcess().releaseMinor = releaseMinor;
    ShowFileName();
}

void NewDrawing(const std::string& fileName) {
    CloseDrawing();
    TheProcess().fileName = FromAnsi(fileName);
    ResetSystemVariables();
    TheProcess().current = new DrawingDatabase;
    SetWorkingDatabase(TheProcess().current);
    ShowFileName();
    SendToModules(AcRx::kLoadDwgMsg);
}

void CloseDrawing() {
    ProcessState& process = TheProcess();
    if (process.current == nullptr) return;
    SendToModules(AcRx::kUnloadDwgMsg);
    SetWorkingDatabase(nullptr);
    // The database is kept so that ids and pointers into the closed drawing stay recognisable.
    process.current->open = false;
    process.current = nullptr;
    ForgetTransactions();
    process.lastPick = 0;
    process.queue.clear();
    process.input.clear();
    ShowFileName();
}

}  // namespace bench
