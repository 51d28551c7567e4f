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

// The COM objects of the server, one for each ProgID. Each returns one pointer per interface, so references are counted
// by interface. The objects live as long as the process, so that a late or repeated release is reported instead of
// crashing. PublishObjects registers ProgIDs and running objects as the settings say; WithdrawObjects removes them. A
// failed registration is reported as a violation. Contract: rows C1 to C10 and K1 to K6.
void PublishObjects(const KlimoraServer& server);
void WithdrawObjects();

}  // namespace bench::klimora
