// The properties of a part: type, placement (mm, world coordinates, strings of three reals), connections, and its
// entity in the drawing, which has the part's handle. Part and entity are created and erased together.
// Contract: rows A9 and A13.
#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

#include "ProjectTree.h"

namespace bench::klimora {

// Types. Only 68 (duct) and the numbers 69 and 82 (parts that stand for their connected duct) are known; the others are
// this fake's own.
inline constexpr long kDuctTypeId = 68;
inline constexpr char kDuctDefine[] = "EWAPART_DUCT";
inline constexpr char kSilencerDefine[] = "EWAPART_SILENCER";
inline constexpr char kStubDefine[] = "EWAPART_STUB";
void SetType(TiXmlElement* part, const std::string& define);  // refuses an unknown type

// Placement.
struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};
double Distance(const Point& a, const Point& b);
Point Along(const Point& from, const Point& unitDirection, double length);
Point Unit(const Point& vector);  // refuses the zero vector
// Refuse a missing point or number.
Point PointAt(const TiXmlElement* from, const std::string& path);
double RealAt(const TiXmlElement* from, const std::string& path);
void SetPointAt(TiXmlElement* from, const std::string& path, const Point& point);
void SetRealAt(TiXmlElement* from, const std::string& path, double value);

// Connections are stored on both sides: each part lists the handles of its connected parts, "0" for a free end.
std::vector<TiXmlElement*> ConnectionsOf(const TiXmlElement* part);
bool IsConnectedHandle(const std::string& handle);  // neither empty nor "0"
// Changes the part's connection from `oldHandle` to `newHandle`. Returns false when it has none.
bool Rewire(TiXmlElement* part, const std::string& oldHandle, const std::string& newHandle);
// Uses the part's first free connection, or adds one, for `handle`.
void ConnectTo(TiXmlElement* part, const std::string& handle);

// Adds an entity for the part to the drawing and returns its handle. The layer is that of its geometry, else of its
// system, else "KLIMORA". A part without a handle gets the next free one. Refuses when the drawing does not accept it.
std::string AddPartEntity(ProjectTree& project, TiXmlElement* part);
// Ensures that every part has an entity: reuses existing ones and adds missing ones. Refuses and adds none when another
// object has a part's handle or a handle is invalid.
void AddMissingEntities(ProjectTree& project);

}  // namespace bench::klimora
