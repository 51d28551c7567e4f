#include "Util/KLUtils.h"

#include <acedads.h>
#include <adscodes.h>
#include <adsdef.h>
#include <dbmain.h>
#include <geassign.h>

#include <cmath>

#include "Lib/CommandLine.h"
#include "Lib/FormatText.h"
#include "Lib/Text.h"
#include "Util/ArxHandles.h"

namespace KLUtils {

namespace {

enum CoordinateSystem : short { kWorld = 0, kUser = 1 };

bool Transform(const double* point, CoordinateSystem from, CoordinateSystem to, bool displacement, double* result) {
    resbuf source = {};
    source.restype = RTSHORT;
    source.resval.rint = from;
    resbuf target = source;
    target.resval.rint = to;
    return acedTrans(point, &source, &target, displacement, result) == RTNORM;
}

bool TransformPoint(const AcGePoint3d& point, CoordinateSystem from, CoordinateSystem to, AcGePoint3d& result) {
    return Transform(asDblArray(point), from, to, false, asDblArray(result));
}

bool TransformVector(const AcGeVector3d& vector, CoordinateSystem from, CoordinateSystem to, AcGeVector3d& result) {
    return Transform(asDblArray(vector), from, to, true, asDblArray(result));
}

// Prints a line for a value that is not a point, but uses it.
bool ReadPoint(const wchar_t* name, double point[3]) {
    resbuf value = {};
    if (acedGetVar(name, &value) != RTNORM) return false;
    const ArxString text(value.restype == RTSTR ? value.resval.rstring : nullptr);
    if (value.restype != RT3DPOINT) PrintCommandLine("%s not a point.\n", Narrow(name).c_str());
    for (int i = 0; i < 3; ++i)
        point[i] = value.resval.rpoint[i];
    return true;
}

}  // namespace

bool GetUcsMatrix(AcGeMatrix3d& matrix) {
    matrix.setToIdentity();
    AcGePoint3d origin;
    AcGeVector3d xAxis, yAxis;
    if (!ReadPoint(L"UCSORG", asDblArray(origin))) return false;
    if (!ReadPoint(L"UCSXDIR", asDblArray(xAxis))) return false;
    if (!ReadPoint(L"UCSYDIR", asDblArray(yAxis))) return false;
    matrix.setCoordSystem(origin, xAxis, yAxis, xAxis.crossProduct(yAxis));
    return true;
}

bool WcsToUcsPoint(const AcGePoint3d& point, AcGePoint3d& result) {
    return TransformPoint(point, kWorld, kUser, result);
}

bool UcsToWcsPoint(const AcGePoint3d& point, AcGePoint3d& result) {
    return TransformPoint(point, kUser, kWorld, result);
}

bool UcsToWcsVector(const AcGeVector3d& vector, AcGeVector3d& result) {
    return TransformVector(vector, kUser, kWorld, result);
}

bool WcsToUcsVector(const AcGeVector3d& vector, AcGeVector3d& result) {
    return TransformVector(vector, kWorld, kUser, result);
}

AcGeVector3d GetUcsXDir() {
    const AcDbDatabase* database = WorkingDatabase();
    return database ? database->ucsxdir() : AcGeVector3d::kXAxis;
}

void GetTransformDifference(const AcGeMatrix3d& first, const AcGeMatrix3d& second, AcGeVector3d& offset,
                            double angles[3]) {
    AcGePoint3d firstOrigin, secondOrigin;
    AcGeVector3d firstAxes[3], secondAxes[3];
    first.getCoordSystem(firstOrigin, firstAxes[0], firstAxes[1], firstAxes[2]);
    second.getCoordSystem(secondOrigin, secondAxes[0], secondAxes[1], secondAxes[2]);
    offset = secondOrigin - firstOrigin;

    // The columns of r are the second system's axes in coordinates of the first.
    double r[3][3];
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) {
            r[row][column] = firstAxes[row].normal().dotProduct(secondAxes[column].normal());
        }
    }
    const double horizontal = std::hypot(r[0][0], r[1][0]);
    angles[1] = std::atan2(-r[2][0], horizontal);
    if (horizontal > 1e-9) {
        angles[0] = std::atan2(r[1][0], r[0][0]);
        angles[2] = std::atan2(r[2][1], r[2][2]);
    } else {
        angles[0] = std::atan2(-r[0][1], r[1][1]);
        angles[2] = 0;
    }
}

}  // namespace KLUtils
