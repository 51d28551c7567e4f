// Entity names as values: macros over the two numbers of an ads_name, which is an array and can not be assigned.
#pragma once

#include "adsdef.h"

#define acdbNameClear(name) (name)[0] = (name)[1] = 0
#define acdbNameNil(name) (((name)[0] | (name)[1]) == 0)
#define acdbNameEqual(one, other) ((one)[0] == (other)[0] && (one)[1] == (other)[1])
#define acdbNameSet(from, to) (*(to) = *(from), (to)[1] = (from)[1])
#define acdbPointSet(from, to) (*(to) = *(from), (to)[1] = (from)[1], (to)[2] = (from)[2])
