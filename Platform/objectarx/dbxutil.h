// Points and vectors between the user's and the world's coordinates; false when no drawing is open.
#pragma once

#include "adsdef.h"

bool acdbUcs2Wcs(ads_point p, ads_point q, bool vec);
bool acdbWcs2Ucs(ads_point p, ads_point q, bool vec);
