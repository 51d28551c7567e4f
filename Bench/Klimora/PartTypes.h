// Part types of the server: the number and the define of each, in one table. Only 68 (duct) and the numbers 69 and 82
// (parts that stand for the duct they are connected to) are known; the other numbers are this stand-in's own.
// Contract: rows A9.
#pragma once

#include <string>

namespace bench::klimora {

inline constexpr long kDuctTypeId = 68;
inline constexpr char kDuctDefine[] = "EWAPART_DUCT";
inline constexpr char kSilencerDefine[] = "EWAPART_SILENCER";
inline constexpr char kStubDefine[] = "EWAPART_STUB";

// Zero for a define that is in no table.
long TypeIdOfDefine(const std::string& define);
// Class under which a part of that type stands in the drawing.
const char* EntityClass(long typeId);

}  // namespace bench::klimora
