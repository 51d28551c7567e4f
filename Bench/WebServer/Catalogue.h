// The maker's catalogue as its file has it (see Bench/Sample/catalogue.xml). Values that only travel on into a result
// stay the texts that they are in the file; the reader is the one place that knows the file's form. Lengths in mm,
// airflows in l/s, pressures in Pa, levels in dB for the octave bands 63, 125, 250, 500, 1000, 2000, 4000, 8000 Hz.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench {

constexpr int kOctaveBands = 8;

// One point of a pressure drop or flow noise curve; levels are empty where the curve has none.
struct CurvePoint {
    std::string a;  // setting of the curve, pressure drop curves only
    std::string qv;
    std::string dp;
    std::vector<std::string> levels;
};

struct Series {
    std::string shape;  // "0" round, "1" rectangular
    std::string model;
    std::string marketArea;
    // Language or country and text, in file order; the empty country is the page for all.
    std::vector<std::pair<std::string, std::string>> descriptions;
    std::vector<std::pair<std::string, std::string>> webLinks;
};

struct Silencer {
    Series series;
    std::string id, code, fnc, d1, d2, length;
    std::string qvMin, qvMax, dpMin, dpMax;
    std::vector<CurvePoint> dpPoints;
    std::vector<CurvePoint> dpCurve;
    std::vector<CurvePoint> flowNoise;
    std::vector<std::vector<std::string>> insertionLosses;
    std::vector<std::pair<std::string, std::string>> modelParameters;
};

struct ServedFile {
    std::string file;  // full path
    std::string path;  // on the server
};

struct Catalogue {
    ServedFile dictionary;
    ServedFile database;
    std::vector<Silencer> silencers;

    // Null when there is none of that id.
    const Silencer* Find(const std::string& id) const;
};

// Throws std::runtime_error with the reason when the file is no catalogue.
Catalogue ReadCatalogue(const std::string& path);

}  // namespace bench
