#include "Connections.h"

#include "Texts.h"

namespace bench::klimora {

std::vector<TiXmlElement*> ConnectionsOf(const TiXmlElement* part) {
    return Matches(part, PathStep{"Connection", -1, ""});
}

bool IsConnectedHandle(const std::string& handle) {
    return !handle.empty() && handle != "0";
}

bool Rewire(TiXmlElement* part, const std::string& oldHandle, const std::string& newHandle) {
    for (TiXmlElement* connection : ConnectionsOf(part)) {
        if (!SameName(ValueAt(connection, "ConnectedTo"), oldHandle)) continue;
        SetValueAt(connection, "ConnectedTo", newHandle);
        return true;
    }
    return false;
}

void ConnectTo(TiXmlElement* part, const std::string& handle) {
    if (Rewire(part, "0", handle) || Rewire(part, "", handle)) return;
    TiXmlElement* connection = new TiXmlElement("Connection");
    part->LinkEndChild(connection);
    SetValueAt(connection, "ConnectedTo", handle);
}

void DisconnectAll(const ProjectTree& project, const std::string& handle) {
    for (TiXmlElement* part : project.AllParts())
        while (Rewire(part, handle, "0")) {
        }
}

}  // namespace bench::klimora
