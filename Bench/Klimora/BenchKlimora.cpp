#include "BenchKlimora.h"

#include "AutomationObjects.h"
#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "InsertSilencer.h"
#include "Parts.h"
#include "ProjectFile.h"
#include "Refusal.h"
#include "Server.h"

namespace bench {
namespace klimora {
namespace {

// Erases the entities of parts that the next project does not have and keeps the others.
void EraseLeftEntities(const ProjectTree& next) {
    const UnrecordedScope quiet;
    for (const std::string& handle : TheServer().project.Handles())
        if (!next.FindPart(handle)) EraseEntity(handle);
}

bool Open(const std::string& xml, std::string& error) {
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
    return Open(xml, error);
}

bool OpenProject(const std::string& file, std::string& error) {
    try {
        return Open(ReadFile(file), error);
    } catch (const Refusal& refusal) {
        error = refusal.what();
        return false;
    }
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
