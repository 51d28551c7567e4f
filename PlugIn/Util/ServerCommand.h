// An XML command to the Klimora server: one text without line breaks, written element by element in the order of the
// command; every call gives the object back. A name may be a path: "System/ID" is an ID in a System of its own. The
// type of a value decides how it is written: whole numbers in decimal, reals with six decimals, texts escaped.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "gepnt3d.h"
#include "gevec3d.h"

#include "Util/KLComUtils_CreateParts.h"
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
    // A text as it stands.
    ServerCommand& Verbatim(std::string_view path, const std::string& text);
    ServerCommand& Verbatim(const std::string& xml);

    // Position, direction and normal, in this order.
    ServerCommand& Placement(const PartPlacement& placement);

    const std::string& Text() const { return text_.Text(); }

 private:
    // With single blanks between.
    ServerCommand& Reals(std::string_view path, const double* values, size_t count);

    XmlTextBuilder text_;
};

// Without its decimals, brought into the range of int; 0 for what is no number.
int ToWholeNumber(double value);
