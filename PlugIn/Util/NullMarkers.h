// Exported for other modules.
// Values that mean "no value" in numeric fields of records and lists. The module exports them undecorated, so that
// other modules compare with the same bits.
#pragma once

#include <cstdint>

extern "C" {
extern const uint8_t NULLBYTE;
extern const int16_t NULLSHORT;
extern const int32_t NULLLONG;
extern const float NULLFLOAT;
extern const double NULLDOUBLE;
}
