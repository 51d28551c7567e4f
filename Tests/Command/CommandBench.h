// Fixture of the whole-command tests: the real module in the fake AutoCAD, an office project open in Klimora, and the
// manufacturer's web server on the loopback. A case says what the user does, runs the command, and checks what the
// fakes received. The destructor unloads the module. An outstanding resource, a contract violation or a complaint of
// the robot fails the case.
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
    static std::string TemporaryFolders();  // working folders in the temporary folder, one line each

 protected:
    CommandBench();
    ~CommandBench() override;

    // ---- Components, before the command ----------------------------------------------------------------------------
    void UseServer(const bench::KlimoraServer& server);

    // ---- The user -------------------------------------------------------------------------------------------------
    void Picks(const std::string& handle);
    void PressesEscape();
    // What the configurator does: "choose first", "choose SRC-250-900", "cancel".
    void InTheConfigurator(const std::string& script);
    // Expects a message box of the plug-in and answers it.
    void MeetsBox(const std::string& text, bench::BoxIcon icon, const std::vector<std::string>& buttons,
                  const std::string& answer);
    // The usual way to a product: picks the duct 2A3, chooses SRC-250-900, confirms SORV2.
    void ChoosesASilencer();
    void ConfirmsInsertion();  // answers Klimora's own prompt with the duct picked last

    // Runs the command and the commands that it queued.
    void Run();
    // Call before another run in one case: clears the call log, the injected faults, the command line and the
    // statistics, and checks that there was no contract violation.
    void StartOver();

    // ---- Results ---------------------------------------------------------------------------------------------------
    // What the command printed, without AutoCAD's own lines ("Command: …").
    std::string Printed() const;
    // Lines of the call log that begin with `start`, without it.
    std::vector<std::string> Calls(const std::string& start) const;
    size_t CountOf(const std::string& start) const { return Calls(start).size(); }
    std::string ConfiguratorRecord() const;
    static std::string SessionId();  // from the configurator's request; empty without one

    // The outstanding resources without those that the module releases when it is unloaded.
    static std::vector<std::string> Outstanding();
    static void ForgetOutstanding();

    void ExpectCommitted();
    // Checks that the transaction was aborted, no statistics were sent, and the surroundings are as before.
    void ExpectNothingChanged();
    void ExpectNoProductExported() { MeetsBox("No product exported.\n", bench::BoxIcon::kError, {"OK"}, "OK"); }

    bench::Robot& robot() { return robot_; }

    // Everything that a failed command must not change: drawing, project, CMDECHO, temporary folder, data folder, and
    // whether the main window is enabled.
    std::string Surroundings() const;
    // The call log as lines. Placeholders replace what differs between runs: session identifier, working folder, number
    // of the selection set.
    std::string MaskedCallLog() const;

 private:
    bench::Robot robot_;
    std::string before_;
};
