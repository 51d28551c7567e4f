// Text of a part creation command, one call an element in the order of the command: every call adds its format, filled,
// and gives the object back. Reals have six decimals.
#pragma once

#include <string>

#include "gepnt3d.h"
#include "gevec3d.h"

#include "Util/KLComUtils_CreateParts.h"
#include "Util/XmlTextBuilder.h"

class PartCommandText {
 public:
    PartCommandText& Literal(const char* text);
    PartCommandText& Integer(const char* format, int value);
    PartCommandText& Real(const char* format, double value);
    // `format` with %s: the value escaped for XML, or as it stands.
    PartCommandText& Escaped(const char* format, const std::string& value);
    PartCommandText& Verbatim(const char* format, const std::string& value);

    PartCommandText& Position(const AcGePoint3d& point);
    PartCommandText& Direction(const AcGeVector3d& vector);
    PartCommandText& Normal(const AcGeVector3d& vector);
    // Position, direction and normal, in this order.
    PartCommandText& Placement(const PartPlacement& placement);
    // `format` with eight reals.
    PartCommandText& Bands(const char* format, const SoundBands& bands);

    const std::string& Text() const { return text_.Text(); }

 private:
    XmlTextBuilder text_;
};
