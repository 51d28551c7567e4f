// The common tolerance of the geometry classes. Their static data is imported, so another static initialiser cannot use
// it. The library that defines it sets GE_DLLDATAEXIMP to nothing.
#pragma once

#include "getol.h"

struct ACCORE_PORT AcGeContext {
    GE_DLLDATAEXIMP static AcGeTol gTol;
};
