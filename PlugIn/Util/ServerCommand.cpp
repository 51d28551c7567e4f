#include "Util/ServerCommand.h"

#include <limits>

#include "Lib/Numbers.h"

ServerCommand& ServerCommand::Open(std::string_view path) {
    text_.Append("<");
    for (size_t slash; (slash = path.find('/')) != path.npos; path.remove_prefix(slash + 1)) {
        text_.Append(path.substr(0, slash));
        text_.Append("><");
    }
    text_.Append(path);
    text_.Append(">");
    return *this;
}

ServerCommand& ServerCommand::Close(std::string_view path) {
    for (size_t slash; (slash = path.rfind('/')) != path.npos; path = path.substr(0, slash)) {
        text_.Append("<");
        text_.Append(path.substr(slash));
        text_.Append(">");
    }
    text_.Append("</");
    text_.Append(path);
    text_.Append(">");
    return *this;
}

ServerCommand& ServerCommand::Element(std::string_view path, const std::string& value) {
    return Verbatim(path, XmlTextBuilder::Escape(value));
}

ServerCommand& ServerCommand::Element(std::string_view path, int value) {
    return Verbatim(path, std::to_string(value));
}

ServerCommand& ServerCommand::Element(std::string_view path, const SoundBands& bands) {
    return Reals(path, bands.data(), bands.size());
}

ServerCommand& ServerCommand::Element(std::string_view path, const AcGePoint3d& point) {
    const double values[] = {point.x, point.y, point.z};
    return Reals(path, values, 3);
}

ServerCommand& ServerCommand::Element(std::string_view path, const AcGeVector3d& vector) {
    const double values[] = {vector.x, vector.y, vector.z};
    return Reals(path, values, 3);
}

ServerCommand& ServerCommand::Verbatim(std::string_view path, const std::string& text) {
    return Open(path).Verbatim(text).Close(path);
}

ServerCommand& ServerCommand::Verbatim(const std::string& xml) {
    text_.Append(xml);
    return *this;
}

ServerCommand& ServerCommand::Placement(const PartPlacement& placement) {
    return Element("Position/WCS", placement.position)
        .Element("Direction/WCS", placement.direction)
        .Element("Normal/WCS", placement.normal);
}

ServerCommand& ServerCommand::Reals(std::string_view path, const double* values, size_t count) {
    Open(path);
    for (size_t i = 0; i < count; ++i) {
        if (i > 0) text_.Append(" ");
        char text[kRealTextSize];
        text_.Append(std::string_view(text, WriteReal(text, sizeof text, values[i])));
    }
    return Close(path);
}

int ToWholeNumber(double value) {
    using Limits = std::numeric_limits<int>;
    if (value >= Limits::max()) return Limits::max();
    if (value <= Limits::min()) return Limits::min();
    return value == value ? static_cast<int>(value) : 0;
}
