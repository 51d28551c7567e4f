// Tolerances of geometric comparison: points closer than equalPoint, directions closer than equalVector, are equal.
#pragma once

#include "adesk.h"

#ifndef GE_DLLDATAEXIMP
#define GE_DLLDATAEXIMP __declspec(dllimport)
#endif

class AcGeTol {
 public:
    AcGeTol();

    double equalPoint() const;
    double equalVector() const;
    void setEqualPoint(double val);
    void setEqualVector(double val);

 private:
    double mTolArr[2];
};

inline double AcGeTol::equalPoint() const {
    return mTolArr[0];
}
inline double AcGeTol::equalVector() const {
    return mTolArr[1];
}
inline void AcGeTol::setEqualPoint(double val) {
    mTolArr[0] = val;
}
inline void AcGeTol::setEqualVector(double val) {
    mTolArr[1] = val;
}
