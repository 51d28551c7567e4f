// Bench interface of the AutoCAD fake (accore.dll): what the user, the test or host program and the other fakes do with
// it. The module sees only the ObjectARX declarations. Call every function on the thread that called StartAutoCAD.
// Strings are in the system's code page; handles are hexadecimal strings as AutoCAD prints them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#ifdef BENCH_AUTOCAD_BUILD
#define BENCH_AUTOCAD_API __declspec(dllexport)
#else
#define BENCH_AUTOCAD_API __declspec(dllimport)
#endif

namespace bench {

// ---- Application -------------------------------------------------------------------------------------------------

// Opens the main window, initialises OLE and creates the system registry with command stack, service dictionary and
// dynamic linker. No drawing is open yet.
BENCH_AUTOCAD_API void StartAutoCAD();
// Unloads remaining modules, closes the drawing and the window. Resources that are outstanding afterwards are leaks.
BENCH_AUTOCAD_API void StopAutoCAD();

// Sets what the host application services return; the defaults are "AutoCAD", 24 and 1.
BENCH_AUTOCAD_API void SetProduct(const std::string& product, int releaseMajor, int releaseMinor);

// ---- Drawing -----------------------------------------------------------------------------------------------------

// Opens a new document with an empty drawing and default system variables and makes it current. Closes the previous
// one.
BENCH_AUTOCAD_API void NewDrawing(const std::string& fileName);
// Closes the drawing; no document is current afterwards.
BENCH_AUTOCAD_API void CloseDrawing();

struct EntityInfo {
    std::string handle;
    std::string className;  // "AcDbBlockReference", "EwaDuct", ...
    std::string layer;
};

struct BlockReferenceInfo {
    std::string handle;  // empty: next free handle
    std::string block;   // added to the block table if missing
    std::string layer;
    double position[3];
    double rotation;  // radians about the normal
    double normal[3];
    std::vector<std::pair<std::string, std::string>> attributes;  // tag and text, in order; tags may repeat
};

// Adds an entity of another application's class to model space and returns its handle. An empty handle takes the next
// free one. Returns an empty string when the handle is taken.
BENCH_AUTOCAD_API std::string AddEntity(const EntityInfo& entity);
BENCH_AUTOCAD_API std::string AddBlockReference(const BlockReferenceInfo& reference);
BENCH_AUTOCAD_API bool EraseEntity(const std::string& handle);
BENCH_AUTOCAD_API std::vector<EntityInfo> Entities();
BENCH_AUTOCAD_API void LockLayer(const std::string& layer, bool locked);
// Returns the whole drawing as readable text in a fixed order (layers, blocks, entities with handles, attributes and
// xdata, registered applications), so that a test can compare two states.
BENCH_AUTOCAD_API std::string DrawingState();

// Returns an integer, string or point as text; empty for an unknown name.
BENCH_AUTOCAD_API std::string SystemVariable(const std::string& name);
// Sets an integer. Throws std::out_of_range for an unknown name.
BENCH_AUTOCAD_API void SetSystemVariable(const std::string& name, const std::string& value);
// Sets the user coordinate system. UCSORG, UCSXDIR, UCSYDIR and acedTrans follow it.
BENCH_AUTOCAD_API void SetUcs(const double origin[3], const double xAxis[3], const double yAxis[3]);

// ---- User --------------------------------------------------------------------------------------------------------

struct Answer {
    enum Kind { kPick, kMiss, kEnter, kEscape, kText } kind;
    std::string value;  // kPick: the entity's handle; kText: the text
};

// Queues an answer for the next prompt. A prompt for text first consumes the rest of a queued command string ("KLIMSILX
// A
// B
// ").
BENCH_AUTOCAD_API void QueueAnswer(const Answer& answer);
BENCH_AUTOCAD_API size_t AnswersLeft();
BENCH_AUTOCAD_API void ClearAnswers();
// Sets the function that answers a prompt when no answer is queued; interactive mode reads the keyboard in it. Without
// one, an unanswered prompt is a violation and counts as Escape.
BENCH_AUTOCAD_API void SetUser(std::function<Answer(const std::string& prompt)> user);
// Returns the handle of the entity picked last in this drawing; empty if none was.
BENCH_AUTOCAD_API std::string LastPick();

// Runs one command as if it were typed, then every string queued meanwhile, until the command line is idle. Returns
// false when the command is unknown; the transcript reports it as AutoCAD does.
BENCH_AUTOCAD_API bool RunCommand(const std::string& command);
// Returns everything that was printed on the command line.
BENCH_AUTOCAD_API std::string Transcript();
BENCH_AUTOCAD_API void ClearTranscript();
// Sets a function that receives command line output as it is printed; interactive mode shows it.
BENCH_AUTOCAD_API void SetEcho(std::function<void(const std::string& text)> echo);

BENCH_AUTOCAD_API HWND MainWindow();

// ---- Other applications inside AutoCAD ---------------------------------------------------------------------------

// Modal commands of other applications (the Klimora fake's own), without a module.
BENCH_AUTOCAD_API void AddForeignCommand(const std::string& name, std::function<void()> run);
BENCH_AUTOCAD_API void RemoveForeignCommand(const std::string& name);
BENCH_AUTOCAD_API bool CommandExists(const std::string& group, const std::string& name);
BENCH_AUTOCAD_API bool ServiceExists(const std::string& name);
BENCH_AUTOCAD_API void PrintText(const std::string& text);

}  // namespace bench
