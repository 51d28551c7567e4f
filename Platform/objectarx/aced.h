// The editor's current coordinate system.
#pragma once

#include "acadstrc.h"
#include "gemat3d.h"

// From the user's to the world's coordinates.
Acad::ErrorStatus acedGetCurrentUCS(AcGeMatrix3d& mat);
