// The common tolerance of the geometry classes. Their static data is imported; it can not serve in another static
// initialiser. The library that defines it sets GE_DLLDATAEXIMP to nothing.
#pragma once

#include "getol.h"

struct ACCORE_PORT AcGeContext {
    GE_DLLDATAEXIMP static AcGeTol gTol;
};
