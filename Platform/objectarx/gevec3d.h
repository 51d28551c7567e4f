// A vector. rotateBy changes and returns the object; crossProduct, normal and the operators return new values. Angles
// are in radians.
#pragma once

#include "gegbl.h"

class AcGeMatrix3d;

class ACCORE_PORT AcGeVector3d {
 public:
    AcGeVector3d();
    AcGeVector3d(const AcGeVector3d& src);
    AcGeVector3d(double xx, double yy, double zz);

    GE_DLLDATAEXIMP static const AcGeVector3d kXAxis;

    AcGeVector3d& rotateBy(double ang, const AcGeVector3d& axis);

    AcGeVector3d operator*(double scl) const;
    AcGeVector3d operator/(double scl) const;
    AcGeVector3d operator+(const AcGeVector3d& vec) const;
    AcGeVector3d operator-(const AcGeVector3d& vec) const;

    AcGeVector3d normal(const AcGeTol& tol = AcGeContext::gTol) const;
    double length() const;
    double dotProduct(const AcGeVector3d& vec) const;
    AcGeVector3d crossProduct(const AcGeVector3d& vec) const;

    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);
    AcGeVector3d& operator=(const AcGeVector3d& src) = default;

    double x, y, z;
};

ACCORE_PORT AcGeVector3d operator*(const AcGeMatrix3d& mat, const AcGeVector3d& vec);

inline AcGeVector3d::AcGeVector3d() : x(0.0), y(0.0), z(0.0) {}
inline AcGeVector3d::AcGeVector3d(const AcGeVector3d& src) : x(src.x), y(src.y), z(src.z) {}
inline AcGeVector3d::AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
inline AcGeVector3d AcGeVector3d::operator*(double s) const {
    return AcGeVector3d(x * s, y * s, z * s);
}
inline AcGeVector3d AcGeVector3d::operator/(double s) const {
    return AcGeVector3d(x / s, y / s, z / s);
}
inline AcGeVector3d AcGeVector3d::operator+(const AcGeVector3d& v) const {
    return AcGeVector3d(x + v.x, y + v.y, z + v.z);
}
inline AcGeVector3d AcGeVector3d::operator-(const AcGeVector3d& v) const {
    return AcGeVector3d(x - v.x, y - v.y, z - v.z);
}
inline double AcGeVector3d::dotProduct(const AcGeVector3d& v) const {
    return x * v.x + y * v.y + z * v.z;
}
inline double AcGeVector3d::operator[](unsigned int i) const {
    return *(&x + i);
}
inline double& AcGeVector3d::operator[](unsigned int i) {
    return *(&x + i);
}
