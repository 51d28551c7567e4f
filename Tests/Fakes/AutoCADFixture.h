// AutoCAD with an empty drawing for each case.
#pragma once

#include <windows.h>

#include "BenchAutoCAD.h"
#include "FakeFixture.h"
#include "acedads.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

class AutoCADTest : public FakeTest {
 protected:
    AutoCADTest() {
        bench::StartAutoCAD();
        bench::NewDrawing("plan.dwg");
    }
    ~AutoCADTest() override { bench::StopAutoCAD(); }

    static std::string AddDuct(const std::string& layer = "0") { return bench::AddEntity({"", "EwaDuct", layer}); }
    static AcDbDatabase* Database() { return acdbHostApplicationServices()->workingDatabase(); }
    static AcDbObjectId Id(const std::string& handle) {
        AcDbObjectId id;
        EXPECT_EQ(Database()->getAcDbObjectId(id, false, AcDbHandle(std::stoull(handle, nullptr, 16))), Acad::eOk);
        return id;
    }
    static AcDbEntity* Opened(const std::string& handle, AcDb::OpenMode mode) {
        AcDbEntity* entity = nullptr;
        EXPECT_EQ(acdbOpenObject(entity, Id(handle), mode), Acad::eOk);
        return entity;
    }
};
