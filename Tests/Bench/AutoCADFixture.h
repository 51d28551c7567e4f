// AutoCAD with an empty drawing for each case. A case ends with an empty balance and without accusations but for those
// that it took with TakeAccusations.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>

#include <functional>
#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "acdocman.h"
#include "acedads.h"
#include "acutads.h"
#include "adscodes.h"
#include "dbents.h"
#include "dbmain.h"
#include "dbsymtb.h"

class AutoCADTest : public testing::Test {
 protected:
    void SetUp() override;
    void TearDown() override;

    std::vector<std::string> TakeAccusations();
    // Runs the function as a command of that name, then what was queued.
    void RunAs(const std::string& name, std::function<void()> body);

    std::string AddDuct(const std::string& layer = "0") { return bench::AddEntity({"", "EwaDuct", layer}); }
    // A reference of block "TAG" at 100,200,0 with the attributes CODE=A, CODE=B and NOTE=C.
    std::string AddTaggedReference(double rotation = 0);
    AcDbObjectId Id(const std::string& handle);
    AcDbDatabase* Database();
    AcApDocument* Document();
    AcDbEntity* Opened(const std::string& handle, AcDb::OpenMode mode);
};

std::string Narrowed(const wchar_t* text);
