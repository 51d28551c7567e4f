// Everything around the module, in the order in which a user's machine has it: web server, AutoCAD, Klimora with a
// project in a fresh drawing, and the module loaded. The bench host and the tests of whole runs stand on the same one.
#pragma once

#include <string>
#include <vector>

#include "BenchKlimora.h"
#include "WebServer.h"

namespace bench {

class Stage {
 public:
    // Starts the web server and AutoCAD; throws std::runtime_error with a sentence when the catalogue cannot be read.
    explicit Stage(const std::string& catalogue);
    // Closes in any case.
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    WebServer& server() { return server_; }

    // Each gives an empty text on success, otherwise a sentence.
    // A new drawing and a Klimora with this project; what was open before goes.
    std::string OpenProject(const std::string& project, const KlimoraServer& klimora);
    std::string LoadModule(const std::string& module);
    std::string UnloadModule();
    // Takes module, Klimora and AutoCAD down, so that what is then still owed was leaked.
    std::string Close();

 private:
    WebServer server_;
    std::wstring module_;  // empty when none is loaded
    bool autocad_ = false;
};

}  // namespace bench
