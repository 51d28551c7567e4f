#include "Geometry.h"

#include <cmath>

#include "AttributePath.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {

double Distance(const Point& a, const Point& b) {
    return std::sqrt((b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y) + (b.z - a.z) * (b.z - a.z));
}

Point Along(const Point& from, const Point& unitDirection, double length) {
    return {from.x + unitDirection.x * length, from.y + unitDirection.y * length, from.z + unitDirection.z * length};
}

Point Unit(const Point& vector) {
    const double length = Distance({}, vector);
    if (length < kSmallestLength) throw Refusal(kBadValue, "A direction has no length.");
    return {vector.x / length, vector.y / length, vector.z / length};
}

Point Towards(const Point& from, const Point& to) {
    return Unit({to.x - from.x, to.y - from.y, to.z - from.z});
}

Point PointAt(const TiXmlElement* from, const std::string& path) {
    std::vector<double> values;
    if (!ReadReals(ValueAt(from, path), 3, values)) throw Refusal(kBadValue, "There is no point at " + path + ".");
    return {values[0], values[1], values[2]};
}

double RealAt(const TiXmlElement* from, const std::string& path) {
    double value = 0;
    if (!ReadNumber(ValueAt(from, path), value)) throw Refusal(kBadValue, "There is no number at " + path + ".");
    return value;
}

void SetPointAt(TiXmlElement* from, const std::string& path, const Point& point) {
    SetValueAt(from, path, PointText(point.x, point.y, point.z));
}

void SetRealAt(TiXmlElement* from, const std::string& path, double value) {
    SetValueAt(from, path, NumberText(value));
}

}  // namespace bench::klimora
