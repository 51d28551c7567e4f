// Everything around the module, set up in the order in which a user's machine has it: web server, AutoCAD with an empty
// drawing, Klimora with the project, and the module loaded. Close takes it all down again in reverse, so that what is
// then still owed was leaked. Failure to set up is a sentence; the stage is closed by the destructor in any case.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Options.h"

namespace bench {

class WebServer;

class BenchStage {
 public:
    BenchStage();
    ~BenchStage();
    BenchStage(const BenchStage&) = delete;
    BenchStage& operator=(const BenchStage&) = delete;

    // `echo` receives every text of the command line.
    std::string Open(const HostOptions& options, void (*echo)(const std::string& text));
    std::vector<std::string> Requests() const;
    // An empty text, or why the module did not unload.
    std::string Close();

 private:
    std::unique_ptr<WebServer> server_;
    std::wstring module_;
    bool started_ = false;
    bool klimora_ = false;
    bool loaded_ = false;
};

}  // namespace bench
