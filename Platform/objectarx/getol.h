// Tolerance of geometric comparison: numbers closer than equalPoint are equal, a vector shorter than equalVector has no
// direction.
#pragma once

#include "adesk.h"

#ifndef GE_DLLDATAEXIMP
#define GE_DLLDATAEXIMP __declspec(dllimport)
#endif

class ACCORE_PORT AcGeTol {
 public:
    AcGeTol();
    double equalPoint() const;
    double equalVector() const;

 private:
    double mTolArr[2];
};

inline double AcGeTol::equalPoint() const {
    return mTolArr[0];
}
inline double AcGeTol::equalVector() const {
    return mTolArr[1];
}
