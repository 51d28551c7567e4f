// Marker values that stand for "no value" in numeric fields of records and lists. The module exports them undecorated,
// so that its users compare with the very same bits.
#pragma once

#include <cstdint>

extern "C" {
extern const uint8_t NULLBYTE;
extern const int16_t NULLSHORT;
extern const int32_t NULLLONG;
extern const float NULLFLOAT;
extern const double NULLDOUBLE;
}
