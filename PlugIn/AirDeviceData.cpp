#include "AirDeviceData.h"

#include <cstdlib>
#include <cstring>

#include "Lib/Numbers.h"

namespace {

int ReadInteger(const ticpp::Element& parent, const char* name) {
    return std::atoi(parent.FirstChildElement(name)->GetText().c_str());
}

int16_t ReadInt16(const ticpp::Element& parent, const char* name) {
    return static_cast<int16_t>(ReadInteger(parent, name));
}

float ReadFloat(const ticpp::Element& parent, const char* name) {
    return static_cast<float>(ToReal(parent.FirstChildElement(name)->GetText().c_str()));
}

void ReadBands(const ticpp::Element& parent, uint8_t (&bands)[kOctaveBands]) {
    static const char* const kNames[kOctaveBands] = {"Lw63",   "Lw125",  "Lw250",  "Lw500",
                                                     "Lw1000", "Lw2000", "Lw4000", "Lw8000"};
    for (int band = 0; band < kOctaveBands; ++band)
        bands[band] = static_cast<uint8_t>(ReadInteger(parent, kNames[band]));
}

// Only a minimum of zero with a small maximum may stay near zero; the asymmetry is the database's rule.
float CorrectedMinimum(float minimum, float maximum) {
    const double wide = minimum;
    if (wide < 0.001 && maximum <= 20.0f) return 0.1f;
    return wide < 1.0 ? 1.0f : minimum;
}

}  // namespace

DimensionRecord ReadDimensions(const ticpp::Element& airDeviceDimData) {
    DimensionRecord record = {};
    record.fnc = ReadInt16(airDeviceDimData, "Fnc");
    record.d1 = ReadInt16(airDeviceDimData, "D1");
    record.d2 = ReadInt16(airDeviceDimData, "D2");
    record.qvMin = ReadFloat(airDeviceDimData, "Qvmin");
    record.qvMax = ReadFloat(airDeviceDimData, "Qvmax");
    record.dpMin = ReadFloat(airDeviceDimData, "Dpmin");
    record.dpMax = ReadFloat(airDeviceDimData, "Dpmax");
    record.dpMin = CorrectedMinimum(record.dpMin, record.dpMax);
    return record;
}

PressureDropPoint ReadPressureDropPoint(const ticpp::Element& dpCurve) {
    PressureDropPoint point = {};
    point.qv = ReadFloat(dpCurve, "Qv");
    point.dp = ReadFloat(dpCurve, "Dp");
    return point;
}

PressureDropCurveElement ReadPressureDropCurveElement(const ticpp::Element& aDpCurves) {
    PressureDropCurveElement element = {};
    element.a = ReadFloat(aDpCurves, "A");
    element.dp = ReadFloat(aDpCurves, "Dp");
    element.qv = ReadFloat(aDpCurves, "Qv");
    return element;
}

AirflowSoundPoint ReadAirflowSoundPoint(const ticpp::Element& qvDpLwPoints) {
    AirflowSoundPoint point = {};
    point.qv = ReadFloat(qvDpLwPoints, "Qv");
    point.dp = ReadFloat(qvDpLwPoints, "Dp");
    ReadBands(qvDpLwPoints, point.lw);
    return point;
}

SoundLevelDifference ReadSoundLevelDifference(const ticpp::Element& dLw) {
    SoundLevelDifference difference = {};
    ReadBands(dLw, difference.lw);
    return difference;
}

int16_t ReadShape(const ticpp::Element& shape) {
    return static_cast<int16_t>(std::atoi(shape.GetText().c_str()));
}

int AppendArrayElement(void** array, int* count, int elementSize, const void* element) {
    if (!array || !count || !element || elementSize < 1) return -1;
    const size_t size = static_cast<size_t>(elementSize);
    const size_t used = *array ? static_cast<size_t>(*count) * size : 0;
    void* grown = std::realloc(*array, used + size);
    if (!grown) return -2;
    std::memcpy(static_cast<char*>(grown) + used, element, size);
    *array = grown;
    ++*count;
    return 0;
}
