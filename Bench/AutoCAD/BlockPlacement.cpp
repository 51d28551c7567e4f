#include "BlockPlacement.h"

#include <cmath>

namespace bench {
namespace {

// The arbitrary axis algorithm: the x axis is world y × normal near the world's z, otherwise world z × normal.
AcGeMatrix3d PlaneToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d z = normal.normal();
    const bool nearZ = std::fabs(z.x) < 1.0 / 64 && std::fabs(z.y) < 1.0 / 64;
    const AcGeVector3d x = (nearZ ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1)).crossProduct(z).normal();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d(), x, z.crossProduct(x), z);
}

AcGeVector3d Axis(const AcGeMatrix3d& placement, int column) {
    return AcGeVector3d(placement.entry[0][column], placement.entry[1][column], placement.entry[2][column]);
}

}  // namespace

AcGeMatrix3d BlockPlacement(const AcGePoint3d& position, double rotation, const AcGeVector3d& normal) {
    AcGeMatrix3d placement = PlaneToWorld(normal) * AcGeMatrix3d::rotation(rotation, AcGeVector3d(0, 0, 1));
    return placement.setTranslation(position.asVector());
}

AcGeVector3d NormalOf(const AcGeMatrix3d& placement) {
    return Axis(placement, 2);
}

double RotationOf(const AcGeMatrix3d& placement) {
    const AcGeVector3d flat = PlaneToWorld(NormalOf(placement)).inverse() * Axis(placement, 0);
    return std::atan2(flat.y, flat.x);
}

}  // namespace bench
