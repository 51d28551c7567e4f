// The bench's side of the Klimora stand-in (KlimComSrv.dll): which server runs, and which project is open in it. The
// module sees only the interfaces of KLIMCOMSRVLib through the running object table. Call everything on the thread of
// the AutoCAD stand-in, after StartAutoCAD. What of this is known of the real server, and what is assumed, stands in
// docs/contracts/klimora.md; rows are quoted as C4, A3, P2.
//
// A planned failure (BenchControl.h) that is a failing HRESULT is returned as such; any other code, also one from
// -65536 to -1, comes back in the result argument. Without a code it is E_FAIL. Calls are named after the interface
// that was used, "IKlimora201011::selectProduct".
#pragma once

#include <string>
#include <vector>

#ifdef BENCH_KLIMORA_BUILD
#define BENCH_KLIMORA_API __declspec(dllexport)
#else
#define BENCH_KLIMORA_API __declspec(dllimport)
#endif

namespace bench {

// What a machine has: an old, a half-installed or a closed Klimora is a server with some of these switched off.
struct KlimoraServer {
    long version = 20120600;
    bool drawingInstalled = true;  // ProgID "KlimComSrv.Drawing" registered
    bool klimoraInstalled = true;  // ProgID "KlimComSrv.Klimora" registered
    bool drawingRunning = true;    // in the running object table
    bool klimoraRunning = true;
    bool hasDrawing = true;  // interfaces that the running objects answer
    bool has200805 = true;
    bool has201011 = true;
    bool hasLatest = true;
};

// Registers ProgIDs and running objects and the command KLIMSILX. StopKlimora takes all of it away again; interface
// references that are still held then are in the balance.
BENCH_KLIMORA_API void StartKlimora(const KlimoraServer& server);
BENCH_KLIMORA_API void StopKlimora();

// Reads a project file and sees to an entity in the current drawing for every part: one that an earlier project left
// under the part's handle serves again. False with the reason in `error`, and nothing changed, when the file cannot be
// read as a project or a handle is something else's. Closing leaves the drawing as it is.
BENCH_KLIMORA_API bool OpenProject(const std::string& file, std::string& error);
BENCH_KLIMORA_API bool OpenProjectText(const std::string& xml, std::string& error);
BENCH_KLIMORA_API void CloseProject();
// The project as it is now, in the form of its file.
BENCH_KLIMORA_API std::string ProjectXml();

// One attribute as a client would read it, empty when there is none; and the handles of all parts in file order.
BENCH_KLIMORA_API std::string PartAttribute(const std::string& handle, const std::string& path);
BENCH_KLIMORA_API std::vector<std::string> PartHandles();
// Contents of a server's binary variable, empty when it has none.
BENCH_KLIMORA_API std::string BinaryVariable(long number);

}  // namespace bench
