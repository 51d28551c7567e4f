#include "BenchStage.h"

#include <windows.h>

#include "acedads.h"
#include "adscodes.h"

#include <exception>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "CrashReport.h"
#include "WebServer.h"

namespace bench {
namespace {

std::wstring WideOf(const std::string& text) {
    std::wstring wide(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    wide.resize(wide.size() - 1);
    return wide;
}

}  // namespace

BenchStage::BenchStage() = default;
BenchStage::~BenchStage() {
    Close();
}

std::string BenchStage::Open(const HostOptions& options, void (*echo)(const std::string& text)) {
    try {
        server_ = std::make_unique<WebServer>(options.catalogue);
    } catch (const std::exception& problem) {
        return std::string("The web server did not start: ") + problem.what();
    }
    server_->UseAsProxy();
    StartAutoCAD();
    started_ = true;
    ReportCrashes();  // last, so that no stand-in's own report comes before
    SetEcho(echo);
    NewDrawing("office.dwg");
    StartKlimora({});
    klimora_ = true;
    std::string reason;
    if (!OpenProject(options.project, reason)) return "The project " + options.project + " was not opened: " + reason;
    Note("-- load module");
    module_ = WideOf(options.module);
    if (acedArxLoad(module_.c_str()) != RTNORM) return "AutoCAD did not load the module " + options.module + ".";
    loaded_ = true;
    return {};
}

std::vector<std::string> BenchStage::Requests() const {
    return server_ ? server_->requests() : std::vector<std::string>();
}

std::string BenchStage::Close() {
    std::string problem;
    if (loaded_) {
        Note("-- unload module");
        if (acedArxUnload(module_.c_str()) != RTNORM) problem = "AutoCAD could not unload the module.";
        loaded_ = false;
    }
    if (klimora_) StopKlimora();
    klimora_ = false;
    if (started_) StopAutoCAD();
    started_ = false;
    server_.reset();
    return problem;
}

}  // namespace bench
