// Bench interface of the Klimora fake (KlimComSrv.dll): which server runs, and which project it has open. The module
// sees only the interfaces of KLIMCOMSRVLib, through the running object table. Call every function on AutoCAD's thread,
// after StartAutoCAD. docs/contracts/klimora.md states what is known and what is assumed about the real server;
// comments cite its rows as C4, A3, P2.
//
// An injected fault (BenchControl.h) whose code is a failing HRESULT is returned as such; any other code, and those
// from -65536 to -1, goes into the result argument. The default code is E_FAIL. Calls are named after the interface
// used, "IKlimora201011::selectProduct".
#pragma once

#include <string>
#include <vector>

#ifdef BENCH_KLIMORA_BUILD
#define BENCH_KLIMORA_API __declspec(dllexport)
#else
#define BENCH_KLIMORA_API __declspec(dllimport)
#endif

namespace bench {

// The Klimora installation of a machine: switch features off for an old, incomplete or closed Klimora.
struct KlimoraServer {
    long version = 20120600;
    bool drawingInstalled = true;  // ProgID "KlimComSrv.Drawing" registered
    bool klimoraInstalled = true;  // ProgID "KlimComSrv.Klimora" registered
    bool drawingRunning = true;    // in the running object table
    bool klimoraRunning = true;
    bool hasDrawing = true;  // interfaces of the running objects
    bool has200805 = true;
    bool has201011 = true;
    bool hasLatest = true;
};

// Registers ProgIDs, running objects and the command KLIMSILX. StopKlimora removes them; interface references still
// held stay outstanding.
BENCH_KLIMORA_API void StartKlimora(const KlimoraServer& server);
BENCH_KLIMORA_API void StopKlimora();

// Reads a project file and ensures that the current drawing has an entity for every part; reuses one left by an earlier
// project. Returns false with the reason in `error` and changes nothing when the file is not a valid project or another
// object has a part's handle. Closing leaves the drawing unchanged.
BENCH_KLIMORA_API bool OpenProject(const std::string& file, std::string& error);
BENCH_KLIMORA_API bool OpenProjectText(const std::string& xml, std::string& error);
BENCH_KLIMORA_API void CloseProject();
// Returns the current project in its file format.
BENCH_KLIMORA_API std::string ProjectXml();

// PartAttribute returns one attribute as a client reads it, empty when there is none. PartHandles returns the handles
// of all parts in file order.
BENCH_KLIMORA_API std::string PartAttribute(const std::string& handle, const std::string& path);
BENCH_KLIMORA_API std::vector<std::string> PartHandles();
// Returns the contents of a binary variable; empty when it does not exist.
BENCH_KLIMORA_API std::string BinaryVariable(long number);

}  // namespace bench
