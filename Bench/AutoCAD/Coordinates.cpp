// acedTrans: converts points and displacements between world and user coordinates.
#include "ArxCall.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"

namespace {

// Finds the matrix to world coordinates from the system that a result buffer names. Returns false for an unsupported
// one.
bool ToWorld(const resbuf* system, AcGeMatrix3d& matrix) {
    if (system == nullptr || system->restype != RTSHORT) return false;
    if (system->resval.rint == 1) matrix = bench::CurrentDrawing()->ucs.toWorld();
    return system->resval.rint == 0 || system->resval.rint == 1;
}

std::string SystemText(const resbuf* system) {
    return system == nullptr ? "(null)" : std::to_string(system->resval.rint);
}

}  // namespace

int acedTrans(const ads_point pt, const struct resbuf* from, const struct resbuf* to, int disp, ads_point result) {
    bench::ArxCall call(
        "acedTrans", bench::PointText(pt) + " " + SystemText(from) + " " + SystemText(to) + " " + std::to_string(disp));
    if (call.fails()) return call.failed(RTERROR);
    AcGeMatrix3d first, second;
    if (bench::CurrentDrawing() == nullptr || !ToWorld(from, first) || !ToWorld(to, second)) return call.done(RTERROR);
    AcGeMatrix3d matrix = second.inverse() * first;
    if (disp != 0) matrix.setTranslation(AcGeVector3d());
    const AcGePoint3d moved = matrix * AcGePoint3d(pt[0], pt[1], pt[2]);
    for (unsigned i = 0; i < 3; ++i)
        result[i] = moved[i];
    call.result(bench::PointText(result));
    return RTNORM;
}
