// Everything around the module, set up in the order of a user's machine: web server, AutoCAD, Klimora with a project in
// a new drawing, and the loaded module. Used by benchcad and by the tests of whole runs.
#pragma once

#include <string>
#include <vector>

#include "BenchKlimora.h"
#include "WebServer.h"

namespace bench {

class Stage {
 public:
    // Starts the web server and AutoCAD. Throws std::runtime_error with a sentence when the catalogue cannot be read.
    explicit Stage(const std::string& catalogue);
    // Closes the stage if it is open.
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    WebServer& server() { return server_; }

    // Each returns an empty string on success, otherwise a sentence.
    // Opens a new drawing and this project in a new Klimora; closes the previous ones.
    std::string OpenProject(const std::string& project, const KlimoraServer& klimora);
    std::string LoadModule(const std::string& module);
    std::string UnloadModule();
    // Unloads the module and stops Klimora and AutoCAD; resources outstanding afterwards are leaks.
    std::string Close();

 private:
    WebServer server_;
    std::wstring module_;  // empty when none is loaded
    bool autocad_ = false;
};

}  // namespace bench
