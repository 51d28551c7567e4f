// Points, vectors, scales and tolerances. Pure arithmetic: nothing here is journaled.
#include <cmath>

#include "gemat3d.h"
#include "gescl3d.h"

// The host library is the one place where the static data of the geometry classes is defined.
AcGeTol AcGeContext::gTol;
const AcGeVector3d AcGeVector3d::kIdentity(0, 0, 0);
const AcGeVector3d AcGeVector3d::kXAxis(1, 0, 0);
const AcGeVector3d AcGeVector3d::kYAxis(0, 1, 0);
const AcGeVector3d AcGeVector3d::kZAxis(0, 0, 1);
const AcGePoint3d AcGePoint3d::kOrigin(0, 0, 0);

AcGeTol::AcGeTol() : mTolArr{1e-10, 1e-10} {}

// ---- Vectors ----

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    const auto row = [&](int i) { return m.entry[i][0] * v.x + m.entry[i][1] * v.y + m.entry[i][2] * v.z; };
    return AcGeVector3d(row(0), row(1), row(2));
}

AcGeVector3d operator*(double scl, const AcGeVector3d& vec) {
    return vec * scl;
}

AcGeVector3d& AcGeVector3d::transformBy(const AcGeMatrix3d& xfm) {
    return *this = xfm * *this;
}

AcGeVector3d& AcGeVector3d::rotateBy(double ang, const AcGeVector3d& axis) {
    return transformBy(AcGeMatrix3d::rotation(ang, axis));
}

double AcGeVector3d::angleTo(const AcGeVector3d& vec) const {
    return std::atan2(crossProduct(vec).length(), dotProduct(vec));
}

double AcGeVector3d::angleTo(const AcGeVector3d& vec, const AcGeVector3d& refVec) const {
    const double angle = angleTo(vec);
    return crossProduct(vec).dotProduct(refVec) < 0 ? 2 * std::acos(-1.0) - angle : angle;
}

AcGeVector3d AcGeVector3d::normal(const AcGeTol& tol) const {
    AcGeVector3d copy(*this);
    return copy.normalize(tol);
}

AcGeVector3d& AcGeVector3d::normalize(const AcGeTol& tol) {
    const double size = length();
    return size <= tol.equalVector() ? *this : *this /= size;
}

double AcGeVector3d::length() const {
    return std::sqrt(dotProduct(*this));
}

Adesk::Boolean AcGeVector3d::isZeroLength(const AcGeTol& tol) const {
    return length() <= tol.equalVector();
}

Adesk::Boolean AcGeVector3d::isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol) const {
    return normal().crossProduct(vec.normal()).isZeroLength(tol);
}

Adesk::Boolean AcGeVector3d::isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol) const {
    return isParallelTo(vec, tol) && dotProduct(vec) > 0;
}

Adesk::Boolean AcGeVector3d::isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol) const {
    return std::fabs(normal().dotProduct(vec.normal())) <= tol.equalVector();
}

AcGeVector3d AcGeVector3d::crossProduct(const AcGeVector3d& v) const {
    return AcGeVector3d(y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x);
}

bool AcGeVector3d::isEqualTo(const AcGeVector3d& vec, const AcGeTol& tol) const {
    return (*this - vec).length() <= tol.equalVector();
}

// ---- Points and scales ----

AcGePoint3d operator*(const AcGeMatrix3d& mat, const AcGePoint3d& pnt) {
    return AcGePoint3d() + (mat * pnt.asVector() + mat.translation());
}

AcGePoint3d& AcGePoint3d::transformBy(const AcGeMatrix3d& leftSide) {
    return *this = leftSide * *this;
}

double AcGePoint3d::distanceTo(const AcGePoint3d& pnt) const {
    return (*this - pnt).length();
}

bool AcGePoint3d::isEqualTo(const AcGePoint3d& pnt, const AcGeTol& tol) const {
    return distanceTo(pnt) <= tol.equalPoint();
}

AcGeScale3d::AcGeScale3d() : sx(1), sy(1), sz(1) {}
AcGeScale3d::AcGeScale3d(const AcGeScale3d& src) : sx(src.sx), sy(src.sy), sz(src.sz) {}
AcGeScale3d::AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
AcGeScale3d::AcGeScale3d(double xFact, double yFact, double zFact) : sx(xFact), sy(yFact), sz(zFact) {}
