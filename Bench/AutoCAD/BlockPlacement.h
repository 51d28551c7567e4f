// The placement of a block reference: position, rotation about its normal, and the resulting matrix from block to
// world.
#pragma once

#include "gemat3d.h"

namespace bench {

AcGeMatrix3d BlockPlacement(const AcGePoint3d& position, double rotation, const AcGeVector3d& normal);
AcGeVector3d NormalOf(const AcGeMatrix3d& placement);
double RotationOf(const AcGeMatrix3d& placement);

}  // namespace bench
