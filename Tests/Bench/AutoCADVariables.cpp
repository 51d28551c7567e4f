// System variables with their types, coordinates and the placement of block references.
#include "AutoCADFixture.h"

#include <cmath>

#include "aced.h"
#include "acutmem.h"
#include "dbxutil.h"

using testing::ElementsAre;
using testing::IsEmpty;

using AutoCADVariables = AutoCADTest;

namespace {

resbuf Short(short value) {
    resbuf buffer = {};
    buffer.restype = RTSHORT;
    buffer.resval.rint = value;
    return buffer;
}

const double kQuarter = std::acos(0.0);

}  // namespace

TEST_F(AutoCADVariables, ValuesKeepTheirTypes) {
    resbuf value = Short(0);
    EXPECT_EQ(acedSetVar(L"cmdecho", &value), RTNORM);
    value.resval.rint = 77;
    EXPECT_EQ(acedGetVar(L"CMDECHO", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    EXPECT_EQ(value.resval.rint, 0);
    value.restype = RTREAL;
    EXPECT_EQ(acedSetVar(L"CMDECHO", &value), RTERROR);
    value = Short(9);
    EXPECT_EQ(acedSetVar(L"WORLDUCS", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"NOSUCHVAR", &value), RTERROR);
    EXPECT_EQ(acedGetVar(L"NOSUCHVAR", &value), RTERROR);
    EXPECT_EQ(acedGetVar(L"LTSCALE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTREAL);
    EXPECT_THAT(bench::Journal(),
                testing::IsSupersetOf({"acedSetVar cmdecho 0 -> 5100", "acedGetVar NOSUCHVAR -> -5001"}));
}

TEST_F(AutoCADVariables, TextsAreTheCallers) {
    resbuf value = {};
    ASSERT_EQ(acedGetVar(L"DWGNAME", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSTR);
    EXPECT_STREQ(value.resval.rstring, L"plan.dwg");
    EXPECT_THAT(bench::BenchBalance(), ElementsAre("string value of DWGNAME"));
    acutDelString(value.resval.rstring);
    EXPECT_THAT(bench::BenchBalance(), IsEmpty());
}

TEST_F(AutoCADVariables, CoordinatesConvertBothWays) {
    const double origin[] = {10, 20, 30}, x[] = {0, 1, 0}, y[] = {-1, 0, 0};
    bench::SetUcs(origin, x, y);
    const resbuf world = Short(0), user = Short(1), nowhere = Short(7);
    ads_point point = {1, 2, 3}, result = {-1, -1, -1};
    ASSERT_EQ(acedTrans(point, &user, &world, 0, result), RTNORM);
    EXPECT_THAT(result, ElementsAre(8, 21, 33));
    ASSERT_EQ(acedTrans(result, &world, &user, 0, result), RTNORM);
    EXPECT_THAT(result, ElementsAre(1, 2, 3));
    ASSERT_EQ(acedTrans(point, &user, &world, 1, result), RTNORM);
    EXPECT_THAT(result, ElementsAre(-2, 1, 3));
    EXPECT_EQ(acedTrans(point, &user, &nowhere, 0, result), RTERROR);
    EXPECT_EQ(acedTrans(point, nullptr, &world, 0, result), RTERROR);
    EXPECT_TRUE(acdbUcs2Wcs(point, result, false));
    EXPECT_THAT(result, ElementsAre(8, 21, 33));
    AcGeMatrix3d matrix;
    EXPECT_EQ(acedGetCurrentUCS(matrix), Acad::eOk);
    EXPECT_EQ(matrix * AcGePoint3d(1, 2, 3), AcGePoint3d(8, 21, 33));
    resbuf value = {};
    ASSERT_EQ(acedGetVar(L"UCSXDIR", &value), RTNORM);
    EXPECT_EQ(value.restype, RT3DPOINT);
    EXPECT_THAT(value.resval.rpoint, ElementsAre(0, 1, 0));
    EXPECT_EQ(Database()->ucsxdir(), AcGeVector3d::kYAxis);
    EXPECT_EQ(bench::SystemVariable("WORLDUCS"), "0");
}

TEST_F(AutoCADVariables, NormalsNameAnObjectsCoordinates) {
    resbuf front = {};
    front.restype = RT3DPOINT;
    front.resval.rpoint[1] = -1;  // looking along +y: x stays x, y is up
    const resbuf world = Short(0);
    ads_point point = {1, 2, 3}, result;
    ASSERT_EQ(acedTrans(point, &front, &world, 0, result), RTNORM);
    EXPECT_THAT(result, ElementsAre(1, -3, 2));
}

TEST_F(AutoCADVariables, ReferencesAreMovedTurnedAndMirrored) {
    AcDbBlockReference* reference = nullptr;
    ASSERT_EQ(acdbOpenObject(reference, Id(AddTaggedReference(kQuarter)), AcDb::kForWrite), Acad::eOk);
    EXPECT_EQ(reference->blockTransform() * AcGePoint3d(1, 0, 0), AcGePoint3d(100, 201, 0));
    const AcGePoint3d corner = reference->blockTransform() * AcGePoint3d(3, 4, 5);
    AcGeMatrix3d mirror;
    mirror(0, 0) = -1;
    const AcGeMatrix3d moves[] = {
        AcGeMatrix3d::translation(AcGeVector3d(5, 6, 7)),
        AcGeMatrix3d::rotation(1, AcGeVector3d(1, 2, 3), AcGePoint3d(4, 5, 6)),
        AcGeMatrix3d::scaling(2.5, AcGePoint3d(1, 1, 1)),
        mirror,
    };
    AcGePoint3d expected = corner;
    AcGeTol loose;
    loose.setEqualPoint(1e-7);
    for (const AcGeMatrix3d& move : moves) {
        ASSERT_EQ(reference->transformBy(move), Acad::eOk);
        EXPECT_TRUE((reference->blockTransform() * AcGePoint3d(3, 4, 5)).isEqualTo(expected.transformBy(move), loose));
    }
    EXPECT_NEAR(reference->scaleFactors().sx, 2.5, 1e-9);
    EXPECT_LT(reference->scaleFactors().sz, 0);
    AcGeMatrix3d shear;
    shear(0, 1) = 1;
    EXPECT_EQ(reference->transformBy(shear), Acad::eCannotScaleNonUniformly);
    reference->close();
}

TEST_F(AutoCADVariables, MatricesInvertAndTakeApart) {
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kQuarter, AcGeVector3d::kZAxis, AcGePoint3d(1, 0, 0));
    EXPECT_EQ(turn * AcGePoint3d(2, 0, 0), AcGePoint3d(1, 1, 0));
    EXPECT_EQ(turn * turn.inverse(), AcGeMatrix3d::kIdentity);
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    turn.getCoordSystem(origin, x, y, z);
    EXPECT_EQ(AcGeMatrix3d().setCoordSystem(origin, x, y, z), turn);
    EXPECT_EQ(x, AcGeVector3d::kYAxis);
    AcGeVector3d turned(1, 0, 0);
    EXPECT_EQ(&turned.rotateBy(kQuarter, AcGeVector3d::kZAxis), &turned);
    EXPECT_EQ(turned, AcGeVector3d::kYAxis);
    EXPECT_NEAR(AcGeVector3d::kXAxis.angleTo(AcGeVector3d(0, -1, 0), AcGeVector3d::kZAxis), 3 * kQuarter, 1e-12);
}
