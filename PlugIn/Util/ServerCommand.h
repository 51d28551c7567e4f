// An XML command to the Klimora server: one text without line breaks, appended element by element. Every function
// returns the object. A name may be a path: "System/ID" is an ID in a new System. Integers are written in decimal,
// reals with six decimals, strings escaped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "gevec3d.h"

#include "Util/PartArguments.h"
#include "Util/XmlTextBuilder.h"

class ServerCommand {
 public:
    ServerCommand() = default;
    explicit ServerCommand(std::string_view path) { Open(path); }

    ServerCommand& Open(std::string_view path);
    ServerCommand& Close(std::string_view path);

    ServerCommand& Element(std::string_view path, const std::string& value);
    ServerCommand& Element(std::string_view path, int value);
    ServerCommand& Element(std::string_view path, double value) { return Reals(path, &value, 1); }
    ServerCommand& Element(std::string_view path, const SoundBands& bands);
    ServerCommand& Element(std::string_view path, const AcGePoint3d& point);
    ServerCommand& Element(std::string_view path, const AcGeVector3d& vector);
    // Append a text without escaping it.
    ServerCommand& Verbatim(std::string_view path, const std::string& text);
    ServerCommand& Verbatim(const std::string& xml);

    // Appends position, direction and normal, in this order.
    ServerCommand& Placement(const PartPlacement& placement);

    const std::string& Text() const { return text_.Text(); }

 private:
    // Separates the values by single blanks.
    ServerCommand& Reals(std::string_view path, const double* values, size_t count);

    XmlTextBuilder text_;
};

// Truncates a number and clamps it to the range of int. Returns 0 for NaN.
int ToWholeNumber(double value);
