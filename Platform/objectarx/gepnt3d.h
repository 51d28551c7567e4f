// A point. transformBy and set change the object and return it; the operators without "=" give new values.
#pragma once

#include "gevec3d.h"

class AcGePoint3d {
 public:
    AcGePoint3d();
    AcGePoint3d(const AcGePoint3d& src);
    AcGePoint3d(double xx, double yy, double zz);

    GE_DLLDATAEXIMP static const AcGePoint3d kOrigin;

    friend AcGePoint3d operator*(const AcGeMatrix3d& mat, const AcGePoint3d& pnt);

    AcGePoint3d& transformBy(const AcGeMatrix3d& leftSide);

    AcGePoint3d operator+(const AcGeVector3d& vec) const;
    AcGePoint3d& operator+=(const AcGeVector3d& vec);
    AcGePoint3d operator-(const AcGeVector3d& vec) const;
    AcGePoint3d& operator-=(const AcGeVector3d& vec);
    AcGeVector3d operator-(const AcGePoint3d& pnt) const;
    AcGeVector3d asVector() const;
    double distanceTo(const AcGePoint3d& pnt) const;

    bool operator==(const AcGePoint3d& pnt) const;
    bool operator!=(const AcGePoint3d& pnt) const;
    bool isEqualTo(const AcGePoint3d& pnt, const AcGeTol& tol = AcGeContext::gTol) const;

    double operator[](unsigned int i) const;
    double& operator[](unsigned int i);
    AcGePoint3d& set(double xx, double yy, double zz);
    AcGePoint3d& operator=(const AcGePoint3d& src) = default;

    double x, y, z;
};

AcGePoint3d operator*(const AcGeMatrix3d& mat, const AcGePoint3d& pnt);

inline AcGePoint3d::AcGePoint3d() : x(0.0), y(0.0), z(0.0) {}
inline AcGePoint3d::AcGePoint3d(const AcGePoint3d& src) : x(src.x), y(src.y), z(src.z) {}
inline AcGePoint3d::AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}
inline AcGePoint3d AcGePoint3d::operator+(const AcGeVector3d& v) const {
    return AcGePoint3d(x + v.x, y + v.y, z + v.z);
}
inline AcGePoint3d& AcGePoint3d::operator+=(const AcGeVector3d& v) {
    return set(x + v.x, y + v.y, z + v.z);
}
inline AcGePoint3d AcGePoint3d::operator-(const AcGeVector3d& v) const {
    return AcGePoint3d(x - v.x, y - v.y, z - v.z);
}
inline AcGePoint3d& AcGePoint3d::operator-=(const AcGeVector3d& v) {
    return set(x - v.x, y - v.y, z - v.z);
}
inline AcGeVector3d AcGePoint3d::operator-(const AcGePoint3d& p) const {
    return AcGeVector3d(x - p.x, y - p.y, z - p.z);
}
inline AcGeVector3d AcGePoint3d::asVector() const {
    return AcGeVector3d(x, y, z);
}
inline bool AcGePoint3d::operator==(const AcGePoint3d& p) const {
    return isEqualTo(p);
}
inline bool AcGePoint3d::operator!=(const AcGePoint3d& p) const {
    return !isEqualTo(p);
}
inline double AcGePoint3d::operator[](unsigned int i) const {
    return *(&x + i);
}
inline double& AcGePoint3d::operator[](unsigned int i) {
    return *(&x + i);
}
inline AcGePoint3d& AcGePoint3d::set(double xx, double yy, double zz) {
    x = xx;
    y = yy;
    z = zz;
    return *this;
}
