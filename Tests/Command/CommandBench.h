// Vocabulary of the whole-command tests: the real module in the AutoCAD stand-in, an office project open in Klimora,
// the maker's web server on the loopback. A case says what the user does, runs the command, and looks at what the
// neighbours saw. At its end nothing may be owed, no stand-in may accuse, the robot may have no complaint, and the
// module unloads.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "BenchKlimora.h"
#include "BenchStatistics.h"
#include "Robot.h"
#include "Stage.h"
#include "gtest/gtest.h"

inline constexpr char kName[] = "Sorvik Klimora Cloud Plugin";

// One web server and one AutoCAD for the whole program, started by main.
bench::Stage& TheStage();
inline bench::WebServer& TheWebServer() {
    return TheStage().server();
}

class CommandBench : public testing::Test {
 public:
    static std::string TemporaryFolders();  // working folders that lie in the temporary folder, a line each

 protected:
    CommandBench();
    ~CommandBench() override;

    // ---- Neighbours other than usual, before the command ----------------------------------------------------------
    void UseServer(const bench::KlimoraServer& server);

    // ---- The user -------------------------------------------------------------------------------------------------
    void Picks(const std::string& handle);
    void PressesEscape();
    // What the configurator does: "choose first", "choose SRC-250-900", "cancel".
    void InTheConfigurator(const std::string& script);
    // A message box of the plug-in comes and is answered.
    void MeetsBox(const std::string& text, bench::BoxIcon icon, const std::vector<std::string>& buttons,
                  const std::string& answer);
    // The usual way to a product: picks the duct 2A3, chooses SRC-250-900, confirms SORV2.
    void ChoosesASilencer();
    void ConfirmsInsertion();  // answers Klimora's own prompt with the duct picked last

    // Runs the command and whatever it queued.
    void Run();
    // Before another run in one case: journal, failure plan, command line and statistics as at the start, nothing
    // accused.
    void StartOver();

    // ---- What came of it -------------------------------------------------------------------------------------------
    // What the command printed, without AutoCAD's own lines ("Command: …").
    std::string Printed() const;
    std::vector<std::string> Calls(
        const std::string& start) const;  // journal lines that begin so, without the beginning
    size_t CountOf(const std::string& start) const { return Calls(start).size(); }
    std::string ConfiguratorRecord() const;
    static std::string SessionId();  // from the configurator's request, empty when there was none

    // The balance without what the loaded module rightly owes until it is unloaded.
    static std::vector<std::string> Outstanding();
    static void ForgetOutstanding();

    void ExpectCommitted();
    // Transaction aborted; drawing, project and data folder as before, nothing left in the temporary folder, no
    // statistics, main window enabled, CMDECHO as before.
    void ExpectNothingChanged();
    void ExpectNoProductExported() { MeetsBox("No product exported.\n", bench::BoxIcon::kError, {"OK"}, "OK"); }

    bench::Robot& robot() { return robot_; }

    std::string Surroundings() const;  // everything that a failed command must leave as it was
    // The journal as lines, with what differs from run to run (session identifier, working folder, number of the
    // selection set) under a name of its own.
    std::string MaskedCallLog() const;

 private:
    bench::Robot robot_;
    std::string before_;
};
