// Points, vectors and the tolerance. Pure arithmetic, not logged.
#include <cmath>

#include "gepnt3d.h"

// Only this library defines the static data of the geometry classes.
AcGeTol AcGeContext::gTol;
const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
const AcGePoint3d AcGePoint3d::kOrigin(0, 0, 0);

AcGeTol::AcGeTol() : mTolArr{1e-10, 1e-10} {}

AcGeVector3d& AcGeVector3d::rotateBy(double ang, const AcGeVector3d& axis) {
    const AcGeVector3d a = axis.normal();
    const double c = std::cos(ang), s = std::sin(ang);
    return *this = *this * c + a.crossProduct(*this) * s + a * (a.dotProduct(*this) * (1 - c));
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    const double size = length();
    return size <= tol.equalVector() ? *this : *this / size;
}

double AcGeVector3d::length() const {
    return std::sqrt(dotProduct(*this));
}

AcGeVector3d AcGeVector3d::crossProduct(const AcGeVector3d& v) const {
    return AcGeVector3d(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x);
}
