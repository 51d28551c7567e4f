#include "PartEntities.h"

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "PartTypes.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

std::string ClassOf(const TiXmlElement* part) {
    long type = 0;
    ReadNumber(ValueAt(part, "Type/ID"), type);
    return EntityClass(type);
}

// Empty when nothing stands in the drawing under this handle.
std::string ClassInDrawing(const std::string& handle) {
    for (const EntityInfo& entity : Entities())
        if (SameName(entity.handle, handle)) return entity.className;
    return {};
}

}  // namespace

std::string LayerOf(const ProjectTree& project, const TiXmlElement* part) {
    const std::string own = ValueAt(part, "Geometry/Layer/Name");
    if (!own.empty()) return own;
    const TiXmlElement* system = project.System(ValueAt(part, "System/ID"));
    const std::string layer = system ? ValueAt(system, "Layer") : "";
    return layer.empty() ? "KLIMORA" : layer;
}

std::string AddPartEntity(const ProjectTree& project, TiXmlElement* part) {
    const Quiet quiet;
    const std::string wanted = ProjectTree::Handle(part);
    const std::string handle = AddEntity({wanted, ClassOf(part), LayerOf(project, part)});
    if (handle.empty()) throw Refusal(kDrawing, "The drawing takes no entity with the handle '" + wanted + "'.");
    part->SetAttribute(std::string("handle"), handle);
    return handle;
}

void AddMissingEntities(const ProjectTree& project) {
    const Quiet quiet;
    std::vector<std::string> added;
    try {
        for (TiXmlElement* part : project.AllParts()) {
            const std::string handle = ProjectTree::Handle(part);
            const std::string present = ClassInDrawing(handle);
            if (present.empty())
                added.push_back(AddPartEntity(project, part));
            else if (present != ClassOf(part))
                throw Refusal(kDrawing, "Handle " + handle + " stands in the drawing already, as " + present + ".");
        }
    } catch (const Refusal&) {
        for (const std::string& handle : added)
            EraseEntity(handle);
        throw;
    }
}

}  // namespace bench::klimora
