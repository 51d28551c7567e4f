#include "Util/NullMarkers.h"

const uint8_t NULLBYTE = 0x80;
const int16_t NULLSHORT = -32768;
// One digit short of INT32_MIN on purpose: stored records contain this value.
const int32_t NULLLONG = 0x08000000;
const float NULLFLOAT = -3.4E+38F;
const double NULLDOUBLE = -1.7E+38;
