// The bench's side of the AutoCAD stand-in (accore.dll): what the user, the operating bench and the other stand-ins do
// with it. The module itself sees only the ObjectARX declarations. Call everything from the thread that called
// StartAutoCAD, except where said otherwise; texts are narrow, handles are hexadecimal texts as AutoCAD prints them.
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

// Opens the main window, initialises OLE and makes the system registry with command stack, service dictionary and
// dynamic linker. No drawing is open yet.
BENCH_AUTOCAD_API void StartAutoCAD();
// Unloads what is still loaded, closes drawing and window. What the balance still names afterwards was leaked.
BENCH_AUTOCAD_API void StopAutoCAD();

// What host application services answer; defaults "AutoCAD", 24 and 1.
BENCH_AUTOCAD_API void SetProduct(const std::string& product, int releaseMajor, int releaseMinor);

// ---- Drawing -----------------------------------------------------------------------------------------------------

// A fresh document with an empty drawing, current, with default system variables. Replaces the one that is open.
BENCH_AUTOCAD_API void NewDrawing(const std::string& fileName);
// No document is current afterwards.
BENCH_AUTOCAD_API void CloseDrawing();

struct EntityInfo {
    std::string handle;
    std::string className;  // "AcDbBlockReference", "EwaDuct", ...
    std::string layer;
};

struct BlockReferenceInfo {
    std::string handle;  // empty: the next free one
    std::string block;   // made in the block table when missing
    std::string layer;
    double position[3];
    double rotation;  // radians about the normal
    double normal[3];
    std::vector<std::pair<std::string, std::string>> attributes;  // tag and text, in order; tags may repeat
};

// Puts an entity of another application's class into model space. An empty handle takes the next free one; the handle
// is returned. Empty result: the handle is taken.
BENCH_AUTOCAD_API std::string AddEntity(const EntityInfo& entity);
BENCH_AUTOCAD_API std::string AddBlockReference(const BlockReferenceInfo& reference);
BENCH_AUTOCAD_API bool EraseEntity(const std::string& handle);
BENCH_AUTOCAD_API std::vector<EntityInfo> Entities();
BENCH_AUTOCAD_API void LockLayer(const std::string& layer, bool locked);
// The whole drawing as a readable text in a fixed order (layers, blocks, entities with handles, attributes and xdata,
// registered applications), so that a test can hold "before" against "after".
BENCH_AUTOCAD_API std::string DrawingState();

// System variables: integers, reals, texts and points, as AutoCAD types them.
BENCH_AUTOCAD_API std::string SystemVariable(const std::string& name);
BENCH_AUTOCAD_API void SetSystemVariable(const std::string& name, const std::string& value);
// Coordinate system of the user; also answers UCSORG, UCSXDIR, UCSYDIR and acedTrans.
BENCH_AUTOCAD_API void SetUcs(const double origin[3], const double xAxis[3], const double yAxis[3]);

// ---- User --------------------------------------------------------------------------------------------------------

struct Answer {
    enum Kind { kPick, kMiss, kEnter, kEscape, kText } kind;
    std::string value;  // kPick: the entity's handle; kText: the words
};

// Answers of the script, taken by the prompts in order. A prompt for a text takes what is left of a queued string
// ("KLIMSILX\nA\nB\n") before any of them.
BENCH_AUTOCAD_API void QueueAnswer(const Answer& answer);
BENCH_AUTOCAD_API size_t AnswersLeft();
BENCH_AUTOCAD_API void ClearAnswers();
// Asked when no answer is queued (an interactive host reads the keyboard here). Without one, a prompt nobody answers is
// an accusation and counts as Escape.
BENCH_AUTOCAD_API void SetUser(std::function<Answer(const std::string& prompt)> user);
// Handle of the entity picked last in this drawing, empty when none was.
BENCH_AUTOCAD_API std::string LastPick();

// Types one command at the command line and runs it, then every string that was queued for execution meanwhile, until
// the command line is idle. False when the command is unknown (the transcript says so as AutoCAD does).
BENCH_AUTOCAD_API bool RunCommand(const std::string& command);
// What the command line has shown.
BENCH_AUTOCAD_API std::string Transcript();
BENCH_AUTOCAD_API void ClearTranscript();
// Every text that reaches the command line, as it comes (an interactive host prints it).
BENCH_AUTOCAD_API void SetEcho(std::function<void(const std::string& text)> echo);

BENCH_AUTOCAD_API HWND MainWindow();

// ---- Other applications inside AutoCAD ---------------------------------------------------------------------------

// Modal commands of other applications (the Klimora stand-in's own), without going through a module.
BENCH_AUTOCAD_API void AddForeignCommand(const std::string& name, std::function<void()> run);
BENCH_AUTOCAD_API void RemoveForeignCommand(const std::string& name);
BENCH_AUTOCAD_API bool CommandExists(const std::string& group, const std::string& name);
BENCH_AUTOCAD_API bool ServiceExists(const std::string& name);
BENCH_AUTOCAD_API void PrintText(const std::string& text);

}  // namespace bench
