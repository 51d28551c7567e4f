// Returns a geometry object's numbers as an array without copying. A const object returns a non-const pointer. Include
// gepnt3d.h as well; this file only declares the classes.
#pragma once

class AcGePoint3d;
class AcGeVector3d;

inline double* asDblArray(const AcGePoint3d& pnt) {
    return (double*)&pnt;
}
inline double* asDblArray(const AcGeVector3d& vec) {
    return (double*)&vec;
}
