// Port macro of the geometry classes' static data, and the common tolerance. The data is imported; it can not serve in
// another static initialiser. The library that defines it sets GE_DLLDATAEXIMP to nothing.
#pragma once

#include "getol.h"

struct AcGeContext {
    GE_DLLDATAEXIMP static AcGeTol gTol;
};
