// A vector. Functions named after an act (rotateBy, transformBy, normalize, negate, set) change the object and return
// it; crossProduct, normal and the operators without "=" give new values. Angles are radians. kIdentity is the zero
// vector.
#pragma once

#include "gegbl.h"

class AcGeMatrix3d;

class AcGeVector3d {
 public:
    AcGeVector3d();
    AcGeVector3d(const AcGeVector3d& src);
    AcGeVector3d(double xx, double yy, double zz);

    GE_DLLDATAEXIMP static const AcGeVector3d kIdentity;
    GE_DLLDATAEXIMP static const AcGeVector3d kXAxis;
    GE_DLLDATAEXIMP static const AcGeVector3d kYAxis;
    GE_DLLDATAEXIMP static const AcGeVector3d kZAxis;

    friend AcGeVector3d operator*(const AcGeMatrix3d& mat, const AcGeVector3d& vec);
    friend AcGeVector3d operator*(double scl, const AcGeVector3d& vec);

    AcGeVector3d& transformBy(const AcGeMatrix3d& xfm);
    AcGeVector3d& rotateBy(double ang, const AcGeVector3d& axis);

    AcGeVector3d operator*(double scl) const;
    AcGeVector3d& operator*=(double scl);
    AcGeVector3d operator/(double scl) const;
    AcGeVector3d& operator/=(double scl);
    AcGeVector3d operator+(const AcGeVector3d& vec) const;
    AcGeVector3d& operator+=(const AcGeVector3d& vec);
    AcGeVector3d operator-(const AcGeVector3d& vec) const;
    AcGeVector3d& operator-=(const AcGeVector3d& vec);
    AcGeVector3d operator-() const;
    AcGeVector3d& negate();

    // 0 to pi; with a reference vector 0 to 2 pi.
    double angleTo(const AcGeVector3d& vec) const;
    double angleTo(const AcGeVector3d& vec, const AcGeVector3d& refVec) const;
    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    AcGeVector3d& normalize(const AcGeTol& tol = AcGeContext::gTol);
    double length() const;
    Adesk::Boolean isZeroLength(const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isParallelTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isCodirectionalTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    Adesk::Boolean isPerpendicularTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;
    double dotProduct(const AcGeVector3d& vec) const;
    AcGeVector3d crossProduct(const AcGeVector3d& vec) const;

    bool operator==(const AcGeVector3d& vec) const;
    bool operator!=(const AcGeVector3d& vec) const;
    bool isEqualTo(const AcGeVector3d& vec, const AcGeTol& tol = AcGeContext::gTol) const;

    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);
    AcGeVector3d& set(double xx, double yy, double zz);
    AcGeVector3d& operator=(const AcGeVector3d& src) = default;

    double x, y, z;
};

AcGeVector3d operator*(const AcGeMatrix3d& mat, const AcGeVector3d& vec);
AcGeVector3d operator*(double scl, const AcGeVector3d& vec);

inline AcGeVector3d::AcGeVector3d() : x(0.0), y(0.0), z(0.0) {}
inline AcGeVector3d::AcGeVector3d(const AcGeVector3d& src) : x(src.x), y(src.y), z(src.z) {}
inline AcGeVector3d::AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
inline AcGeVector3d AcGeVector3d::operator*(double s) const {
    return AcGeVector3d(x * s, y * s, z * s);
}
inline AcGeVector3d& AcGeVector3d::operator*=(double s) {
    return set(x * s, y * s, z * s);
}
inline AcGeVector3d AcGeVector3d::operator/(double s) const {
    return AcGeVector3d(x / s, y / s, z / s);
}
inline AcGeVector3d& AcGeVector3d::operator/=(double s) {
    return set(x / s, y / s, z / s);
}
inline AcGeVector3d AcGeVector3d::operator+(const AcGeVector3d& v) const {
    return AcGeVector3d(x + v.x, y + v.y, z + v.z);
}
inline AcGeVector3d& AcGeVector3d::operator+=(const AcGeVector3d& v) {
    return set(x + v.x, y + v.y, z + v.z);
}
inline AcGeVector3d AcGeVector3d::operator-(const AcGeVector3d& v) const {
    return AcGeVector3d(x - v.x, y - v.y, z - v.z);
}
inline AcGeVector3d& AcGeVector3d::operator-=(const AcGeVector3d& v) {
    return set(x - v.x, y - v.y, z - v.z);
}
inline AcGeVector3d AcGeVector3d::operator-() const {
    return AcGeVector3d(-x, -y, -z);
}
inline AcGeVector3d& AcGeVector3d::negate() {
    return set(-x, -y, -z);
}
inline double AcGeVector3d::dotProduct(const AcGeVector3d& v) const {
    return x * v.x + y * v.y + z * v.z;
}
inline bool AcGeVector3d::operator==(const AcGeVector3d& v) const {
    return isEqualTo(v);
}
inline bool AcGeVector3d::operator!=(const AcGeVector3d& v) const {
    return !isEqualTo(v);
}
inline double AcGeVector3d::operator[](unsigned int i) const {
    return *(&x + i);
}
inline double& AcGeVector3d::operator[](unsigned int i) {
    return *(&x + i);
}
inline AcGeVector3d& AcGeVector3d::set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
}
