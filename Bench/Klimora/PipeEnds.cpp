#include "PipeEnds.h"

#include "Connections.h"
#include "Geometry.h"
#include "Refusal.h"

namespace bench::klimora {
namespace {

Point EndPoint(const ProjectTree& project, TiXmlElement* connection) {
    const std::string neighbour = ValueAt(connection, "ConnectedTo");
    const std::string place = ValueAt(connection, "Position/WCS");
    if (neighbour.empty() == place.empty())
        throw Refusal(kBadCommand, "CreatePart: an end is either a connected part or a position.");
    if (!neighbour.empty()) return PointAt(project.Part(neighbour), "Position/WCS");
    const Point point = PointAt(connection, "Position/WCS");
    SetValueAt(connection, "ConnectedTo", "0");
    return point;
}

}  // namespace

void PlacePipe(const ProjectTree& project, TiXmlElement* pipe) {
    const std::vector<TiXmlElement*> ends = ConnectionsOf(pipe);
    if (ends.size() != 2) throw Refusal(kBadCommand, "CreatePart: a pipe has two ends.");
    const Point start = EndPoint(project, ends[0]);
    const Point end = EndPoint(project, ends[1]);
    const double length = Distance(start, end);
    if (length < kSmallestLength) throw Refusal(kBadValue, "CreatePart: the ends of the pipe fall together.");
    SetPointAt(pipe, "Position/WCS", start);
    SetPointAt(pipe, "Direction/WCS", Towards(start, end));
    SetRealAt(pipe, "Length", length);
}

}  // namespace bench::klimora
