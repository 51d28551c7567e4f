#include "Stage.h"

#include "acedads.h"
#include "adscodes.h"

#include "BenchAutoCAD.h"
#include "BenchTexts.h"

namespace bench {

Stage::Stage(const std::string& catalogue) : server_(catalogue) {
    server_.UseAsProxy();
    StartAutoCAD();
    autocad_ = true;
}

Stage::~Stage() {
    Close();
}

std::string Stage::OpenProject(const std::string& project, const KlimoraServer& klimora) {
    StopKlimora();
    NewDrawing("Office.dwg");
    StartKlimora(klimora);
    std::string reason;
    if (bench::OpenProject(project, reason)) return {};
    return "The project " + project + " was not opened: " + reason;
}

std::string Stage::LoadModule(const std::string& module) {
    const std::wstring name = FromAnsi(module);
    if (acedArxLoad(name.c_str()) != RTNORM) return "AutoCAD did not load the module " + module + ".";
    module_ = name;
    return {};
}

std::string Stage::UnloadModule() {
    if (module_.empty()) return {};
    const bool unloaded = acedArxUnload(module_.c_str()) == RTNORM;
    module_.clear();
    return unloaded ? std::string() : "AutoCAD could not unload the module.";
}

std::string Stage::Close() {
    const std::string problem = UnloadModule();
    StopKlimora();
    if (autocad_) StopAutoCAD();
    autocad_ = false;
    return problem;
}

}  // namespace bench
