// A point. The operators return new values.
#pragma once

#include "gevec3d.h"

class ACCORE_PORT AcGePoint3d {
 public:
    AcGePoint3d();
    AcGePoint3d(const AcGePoint3d& src);
    AcGePoint3d(double xx, double yy, double zz);

    GE_DLLDATAEXIMP static const AcGePoint3d kOrigin;

    AcGeVector3d operator-(const AcGePoint3d& pnt) const;
    AcGeVector3d asVector() const;

    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);
    AcGePoint3d& operator=(const AcGePoint3d& src) = default;

    double x, y, z;
};

ACCORE_PORT AcGePoint3d operator*(const AcGeMatrix3d& mat, const AcGePoint3d& pnt);

inline AcGePoint3d::AcGePoint3d() : x(0.0), y(0.0), z(0.0) {}
inline AcGePoint3d::AcGePoint3d(const AcGePoint3d& src) : x(src.x), y(src.y), z(src.z) {}
inline AcGePoint3d::AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
inline AcGeVector3d AcGePoint3d::operator-(const AcGePoint3d& p) const {
    return AcGeVector3d(x - p.x, y - p.y, z - p.z);
}
inline AcGeVector3d AcGePoint3d::asVector() const {
    return AcGeVector3d(x, y, z);
}
inline double AcGePoint3d::operator[](unsigned int i) const {
    return *(&x + i);
}
inline double& AcGePoint3d::operator[](unsigned int i) {
    return *(&x + i);
}
