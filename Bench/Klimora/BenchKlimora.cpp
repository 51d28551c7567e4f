#include "BenchKlimora.h"

#include <fstream>
#include <iterator>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Commands.h"
#include "Parts.h"
#include "Refusal.h"

namespace bench {
namespace klimora {
namespace {

// Erases the entities of parts that the next project does not have and keeps the others.
void EraseLeftEntities(const ProjectTree& next) {
    const UnrecordedScope quiet;
    for (const std::string& handle : TheServer().project.Handles())
        if (!next.FindPart(handle)) EraseEntity(handle);
}

}  // namespace

Server& TheServer() {
    static Server* const instance = new Server;
    return *instance;
}

}  // namespace klimora

using namespace klimora;

void StartKlimora(const KlimoraServer& settings) {
    StopKlimora();
    const UnrecordedScope quiet;
    TheServer().settings = settings;
    TheServer().started = true;
    PublishObjects(settings);
    AddForeignCommand(kInsertCommand, RunInsertCommand);
}

void StopKlimora() {
    const UnrecordedScope quiet;
    WithdrawObjects();
    Server& server = TheServer();
    if (server.started) RemoveForeignCommand(kInsertCommand);
    CloseProject();
    server.variables.Forget();
    server.lastError.clear();
    server.started = false;
}

bool OpenProjectText(const std::string& xml, std::string& error) {
    try {
        ProjectTree project = ReadProject(xml);
        AddMissingEntities(project);
        EraseLeftEntities(project);
        TheServer().project = std::move(project);
        return true;
    } catch (const Refusal& refusal) {
        error = refusal.what();
        return false;
    }
}

bool OpenProject(const std::string& file, std::string& error) {
    std::ifstream stream(file, std::ios::binary);
    if (stream) return OpenProjectText({std::istreambuf_iterator<char>(stream), {}}, error);
    error = "Cannot open " + file + ".";
    return false;
}

void CloseProject() {
    TheServer().project = ProjectTree();
}

std::string ProjectXml() {
    return TheServer().project.Xml();
}

std::string PartAttribute(const std::string& handle, const std::string& path) {
    try {
        return TheServer().project.Attribute(handle, path);
    } catch (const Refusal&) {
        return {};
    }
}

std::vector<std::string> PartHandles() {
    return TheServer().project.Handles();
}

std::string BinaryVariable(long number) {
    return TheServer().variables.Contents(number);
}

}  // namespace bench
