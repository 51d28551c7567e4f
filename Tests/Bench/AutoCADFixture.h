// AutoCAD with an empty drawing for each case. A case ends with an empty balance and without accusations but for those
// that it took with TakeAccusations.
#pragma once

#include <windows.h>

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "acedads.h"
#include "acutads.h"
#include "acutmem.h"
#include "adscodes.h"
#include "dbapserv.h"
#include "dbents.h"
#include "dbsymtb.h"

class AutoCADTest : public testing::Test {
 protected:
    void SetUp() override {
        bench::ResetBench();
        bench::StartAutoCAD();
        bench::NewDrawing("plan.dwg");
    }
    void TearDown() override {
        bench::StopAutoCAD();
        EXPECT_THAT(bench::BenchBalance(), testing::IsEmpty());
        EXPECT_THAT(TakeAccusations(), testing::IsEmpty());
        bench::ResetBench();
    }

    static std::vector<std::string> TakeAccusations() {
        std::vector<std::string> accusations = bench::Accusations();
        bench::ClearAccusations();
        return accusations;
    }
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
