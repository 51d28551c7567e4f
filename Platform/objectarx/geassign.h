// A geometry object's numbers seen as an array: no copy is made, and a const object gives a pointer that is not.
// Include gepnt3d.h as well; the classes are only announced here.
#pragma once

class AcGePoint3d;
class AcGeVector3d;

inline double* asDblArray(const AcGePoint3d& pnt) {
    return (double*)&pnt;
}
inline double* asDblArray(const AcGeVector3d& vec) {
    return (double*)&vec;
}
