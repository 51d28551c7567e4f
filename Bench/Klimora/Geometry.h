// Points and lengths of parts, in mm and world coordinates, as the project keeps them: texts of three reals.
#pragma once

#include <tinyxml.h>

#include <string>

namespace bench::klimora {

inline constexpr double kSmallestLength = 1e-6;

struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};

double Distance(const Point& a, const Point& b);
Point Along(const Point& from, const Point& unitDirection, double length);
Point Unit(const Point& vector);  // the zero vector is refused
Point Towards(const Point& from, const Point& to);

// Refused where there is no point or number.
Point PointAt(const TiXmlElement* from, const std::string& path);
double RealAt(const TiXmlElement* from, const std::string& path);
void SetPointAt(TiXmlElement* from, const std::string& path, const Point& point);
void SetRealAt(TiXmlElement* from, const std::string& path, double value);

}  // namespace bench::klimora
