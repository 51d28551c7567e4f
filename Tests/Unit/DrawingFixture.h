// Vocabulary of the tests that need the drawing; every case finds a fresh one.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <acdb.h>
#include <dbapserv.h>
#include <dbhandle.h>
#include <dbmain.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "CommaLocale.h"
#include "Lib/Text.h"

inline AcDbObjectId IdOf(const std::string& handle) {
    AcDbObjectId id;
    const AcDbHandle number(Widen(handle).c_str());
    EXPECT_EQ(acdbHostApplicationServices()->workingDatabase()->getAcDbObjectId(id, false, number), Acad::eOk);
    return id;
}

class DrawingTest : public testing::Test {
 protected:
    static std::string AddDuct(const std::string& layer = "0") { return bench::AddEntity({"", "EwaDuct", layer}); }

 private:
    const CommaLocale locale_;
};
