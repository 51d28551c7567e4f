// Binary attributes of a product record, as the record database stores them: little-endian, packed, one element after
// the other. The readers take them from the configurator's XML and throw the XML library's exception when an element or
// its text is missing; a number that does not fit keeps the low bits of its field. Units are those of the
// manufacturer's data (mm, l/s, Pa, dB) and stay unchanged.
#pragma once

#include <cstdint>

#include "ticpp.h"

// One byte an octave band: 63, 125, 250, 500, 1000, 2000, 4000 and 8000 Hz.
inline constexpr int kOctaveBands = 8;

#pragma pack(push, 1)
struct DimensionRecord {
    int16_t fnc;  // which form of pressure-drop data the product has
    int16_t d1;
    int16_t d2;
    float qvMin;
    float qvMax;
    float dpMin;
    float dpMax;
};

struct PressureDropPoint {
    float qv;
    float dp;
};

struct PressureDropCurveElement {
    float a;
    float qv;
    float dp;
};

struct AirflowSoundPoint {
    float qv;
    float dp;
    uint8_t lw[kOctaveBands];  // sound power levels
};

struct SoundLevelDifference {
    uint8_t lw[kOctaveBands];
};
#pragma pack(pop)

static_assert(sizeof(DimensionRecord) == 22 && sizeof(PressureDropPoint) == 8 &&
              sizeof(PressureDropCurveElement) == 12 && sizeof(AirflowSoundPoint) == 16 &&
              sizeof(SoundLevelDifference) == 8);

// Corrects the minimum pressure drop: 0 becomes 0.1 for products whose maximum is at most 20; any other minimum below 1
// becomes 1.
DimensionRecord ReadDimensions(const ticpp::Element& airDeviceDimData);
PressureDropPoint ReadPressureDropPoint(const ticpp::Element& dpCurve);
PressureDropCurveElement ReadPressureDropCurveElement(const ticpp::Element& aDpCurves);
AirflowSoundPoint ReadAirflowSoundPoint(const ticpp::Element& qvDpLwPoints);
SoundLevelDifference ReadSoundLevelDifference(const ticpp::Element& dLw);
int16_t ReadShape(const ticpp::Element& shape);

// Appends one element of `elementSize` bytes to a growing array: allocates a null `*array` for one element, reallocates
// any other for one more, and adds 1 to `*count`. Returns 0; -1 for a null argument or a size below 1; -2 when memory
// is exhausted, and then the array is unchanged. The caller frees `*array` with std::free.
int AppendArrayElement(void** array, int* count, int elementSize, const void* element);
