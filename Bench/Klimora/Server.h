// The state of the process's only server: what is installed and running, the open project, the binary variables and the
// text of the last refusal. Used on AutoCAD's thread only.
#pragma once

#include <string>

#include "BenchKlimora.h"
#include "BinaryVariables.h"
#include "ProjectTree.h"

namespace bench::klimora {

struct Server {
    KlimoraServer settings;
    bool started = false;
    ProjectTree project;
    BinaryVariables variables;
    std::string lastError;
};

Server& TheServer();

}  // namespace bench::klimora
