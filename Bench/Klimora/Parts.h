// What a part is: its type, where it lies (mm, world coordinates, texts of three reals), the parts that it is connected
// to, and its entity in the drawing, whose handle is the part's. Part and entity are made and taken away together.
// Contract: rows A9 and A13.
#pragma once

#include <tinyxml.h>

#include <string>
#include <vector>

#include "ProjectTree.h"

namespace bench::klimora {

// Types. Only 68 (duct) and the numbers 69 and 82 (parts that stand for the duct they are connected to) are known; the
// other numbers are this stand-in's own.
inline constexpr long kDuctTypeId = 68;
inline constexpr char kDuctDefine[] = "EWAPART_DUCT";
inline constexpr char kSilencerDefine[] = "EWAPART_SILENCER";
inline constexpr char kStubDefine[] = "EWAPART_STUB";
void SetType(TiXmlElement* part, const std::string& define);  // an unknown type is refused

// Places.
struct Point {
    double x = 0;
    double y = 0;
    double z = 0;
};
double Distance(const Point& a, const Point& b);
Point Along(const Point& from, const Point& unitDirection, double length);
Point Unit(const Point& vector);  // the zero vector is refused
// Refused where there is no point or number.
Point PointAt(const TiXmlElement* from, const std::string& path);
double RealAt(const TiXmlElement* from, const std::string& path);
void SetPointAt(TiXmlElement* from, const std::string& path, const Point& point);
void SetRealAt(TiXmlElement* from, const std::string& path, double value);

// Connections are kept on both sides: each part lists the handles of its neighbours, "0" where nothing is connected.
std::vector<TiXmlElement*> ConnectionsOf(const TiXmlElement* part);
bool IsConnectedHandle(const std::string& handle);  // neither empty nor "0"
// The part's connection to `oldHandle` leads to `newHandle` from now on; false when it has none.
bool Rewire(TiXmlElement* part, const std::string& oldHandle, const std::string& newHandle);
// Takes the part's first free connection, or a further one, for `handle`.
void ConnectTo(TiXmlElement* part, const std::string& handle);

// Puts an entity for the part into the drawing, on the layer of its geometry, else of its system, else "KLIMORA"; under
// the part's handle or, when it has none, under the next free one, which the part then carries. Refuses when the
// drawing does not take it.
std::string AddPartEntity(ProjectTree& project, TiXmlElement* part);
// Sees to an entity for every part: one that stands there as a part under its handle serves, a missing one is added.
// Refuses, with none added, when a handle is something else's or cannot be had.
void AddMissingEntities(ProjectTree& project);

}  // namespace bench::klimora
