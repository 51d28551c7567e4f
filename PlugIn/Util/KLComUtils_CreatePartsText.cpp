#include "Util/KLComUtils_CreatePartsText.h"

PartCommandText& PartCommandText::Literal(const char* text) {
    text_.Append(text);
    return *this;
}

PartCommandText& PartCommandText::Integer(const char* format, int value) {
    text_.AppendFormat(format, value);
    return *this;
}

PartCommandText& PartCommandText::Real(const char* format, double value) {
    text_.AppendFormat(format, value);
    return *this;
}

PartCommandText& PartCommandText::Escaped(const char* format, const std::string& value) {
    return Verbatim(format, XmlTextBuilder::Escape(value));
}

PartCommandText& PartCommandText::Verbatim(const char* format, const std::string& value) {
    text_.AppendFormat(format, value.c_str());
    return *this;
}

PartCommandText& PartCommandText::Position(const AcGePoint3d& point) {
    text_.AppendFormat("<Position><WCS>%f %f %f</WCS></Position>", point.x, point.y, point.z);
    return *this;
}

PartCommandText& PartCommandText::Direction(const AcGeVector3d& vector) {
    text_.AppendFormat("<Direction><WCS>%f %f %f</WCS></Direction>", vector.x, vector.y, vector.z);
    return *this;
}

PartCommandText& PartCommandText::Normal(const AcGeVector3d& vector) {
    text_.AppendFormat("<Normal><WCS>%f %f %f</WCS></Normal>", vector.x, vector.y, vector.z);
    return *this;
}

PartCommandText& PartCommandText::Placement(const PartPlacement& placement) {
    return Position(placement.position).Direction(placement.direction).Normal(placement.normal);
}

PartCommandText& PartCommandText::Bands(const char* format, const SoundBands& bands) {
    text_.AppendFormat(format, bands[0], bands[1], bands[2], bands[3], bands[4], bands[5], bands[6], bands[7]);
    return *this;
}
