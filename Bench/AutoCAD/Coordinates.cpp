// Points and vectors between world, user, display and object coordinates. The view is the plan view of the world, so
// that display coordinates are world coordinates.
#include "HostCall.h"
#include "HostObjects.h"
#include "HostSession.h"
#include "aced.h"
#include "acedads.h"
#include "adscodes.h"
#include "dbxutil.h"
#include "geassign.h"

using bench::HostCall;

namespace {

// Matrix to the world from the system that a result buffer names; false for one that is not understood.
bool ToWorld(const resbuf* system, AcGeMatrix3d& matrix) {
    if (system == nullptr) return false;
    const bench::Drawing& drawing = *bench::CurrentDrawing();
    matrix.setToIdentity();
    if (system->restype == RTSHORT) {
        if (system->resval.rint == 1) matrix = drawing.ucs.toWorld();
        return system->resval.rint >= 0 && system->resval.rint <= 3;
    }
    if (system->restype == RT3DPOINT) {
        matrix = bench::PlaneToWorld(asVec3d(system->resval.rpoint));
        return !asVec3d(system->resval.rpoint).isZeroLength();
    }
    if (system->restype != RTENAME) return false;
    AcDbObjectId id;
    id.setFromOldId(system->resval.rlname[0]);
    const bench::Record* record = AcDbImpDatabase::stub(id) == nullptr ? nullptr : drawing.find(id.handle());
    if (record == nullptr) return false;
    matrix = bench::PlaneToWorld(record->normal);
    return true;
}

bool IsPaper(const resbuf* system) {
    return system != nullptr && system->restype == RTSHORT && system->resval.rint == 3;
}

bool IsDisplay(const resbuf* system) {
    return system != nullptr && system->restype == RTSHORT && system->resval.rint == 2;
}

std::string SystemText(const resbuf* system) {
    if (system == nullptr) return "(null)";
    if (system->restype == RTSHORT) return std::to_string(system->resval.rint);
    return system->restype == RTENAME ? "entity" : "normal";
}

void Transform(const AcGeMatrix3d& matrix, const ads_point from, bool vector, ads_point to) {
    if (vector)
        asVec3d(to) = matrix * AcGeVector3d(asVec3d(from));
    else
        asPnt3d(to) = matrix * AcGePoint3d(asPnt3d(from));
}

bool Convert(const char* name, ads_point p, ads_point q, bool vec, bool toWorld) {
    HostCall call(name, bench::PointText(p));
    if (call.fails() || bench::CurrentDrawing() == nullptr) return false;
    const AcGeMatrix3d matrix = bench::CurrentDrawing()->ucs.toWorld();
    Transform(toWorld ? matrix : matrix.inverse(), p, vec, q);
    return true;
}

}  // namespace

int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp, ads_point result) {
    HostCall call("acedTrans",
                  bench::PointText(pt) + " " + SystemText(from) + " " + SystemText(to) + " " + std::to_string(disp));
    if (call.fails()) return call.failed(RTERROR);
    AcGeMatrix3d first, second;
    if (bench::CurrentDrawing() == nullptr || !ToWorld(from, first) || !ToWorld(to, second)) return call.done(RTERROR);
    if ((IsPaper(from) && !IsDisplay(to)) || (IsPaper(to) && !IsDisplay(from))) return call.done(RTERROR);
    Transform(second.inverse() * first, pt, disp != 0, result);
    call.result(bench::PointText(result));
    return RTNORM;
}

bool acdbUcs2Wcs(ads_point p, ads_point q, bool vec) {
    return Convert("acdbUcs2Wcs", p, q, vec, true);
}
bool acdbWcs2Ucs(ads_point p, ads_point q, bool vec) {
    return Convert("acdbWcs2Ucs", p, q, vec, false);
}

Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& mat) {
    HostCall call("acedGetCurrentUCS", "");
    if (call.fails()) return call.failed(Acad::eInvalidInput);
    if (bench::CurrentDrawing() == nullptr) return call.done(Acad::eNoDocument);
    mat = bench::CurrentDrawing()->ucs.toWorld();
    return call.done(Acad::eOk);
}
