// Scale factors along the three axes; a single number is the same factor for all.
#pragma once

#include "gegbl.h"

class AcGeScale3d {
 public:
    AcGeScale3d();
    AcGeScale3d(const AcGeScale3d& src);
    AcGeScale3d(double factor);
    AcGeScale3d(double xFact, double yFact, double zFact);

    AcGeScale3d& operator=(const AcGeScale3d& src) = default;

    double sx, sy, sz;
};
