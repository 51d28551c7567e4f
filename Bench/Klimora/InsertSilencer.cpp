#include "Commands.h"

#include <windows.h>

#include "acedads.h"
#include "adscodes.h"

#include <string>

#include "BenchAutoCAD.h"
#include "BenchControl.h"
#include "Parts.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr char kEnterPressed[] = "52";  // ERRNO after Enter at a pick prompt
constexpr double kUsualSilencerLength = 900;
// The attributes that a silencer takes from its duct.
constexpr const char* kSharedElements[] = {"System", "Shape",         "Diameter",  "Width",
                                           "Height", "qv_sizingflow", "Direction", "Normal"};

void CheckDuct(const TiXmlElement* duct, double length, double needed) {
    const std::string name = "part " + ProjectTree::Handle(duct);
    if (ValueAt(duct, "Type/ID") != std::to_string(kDuctTypeId)) throw Refusal(kBadValue, name + " is not a duct");
    if (ConnectionsOf(duct).size() != 2) throw Refusal(kBadValue, name + " has not two ends");
    if (length <= needed)
        throw Refusal(kBadValue, name + " is " + NumberText(length) + " mm long, too short for a silencer of " +
                                     NumberText(needed) + " mm");
}

TiXmlElement MakeSilencer(const TiXmlElement* duct, const TiXmlElement* product, double length) {
    TiXmlElement silencer("Part");
    SetType(&silencer, kSilencerDefine);
    for (const char* name : kSharedElements)
        if (const TiXmlElement* shared = Child(duct, name)) silencer.InsertEndChild(*shared);
    for (const char* name : {"UserCode", "ProductCode", "ProductFamilyKey"})
        SetValueAt(&silencer, name, ValueAt(product, name));
    SetRealAt(&silencer, "Length", length);
    return silencer;
}

// Adds both entities or none.
void AddEntities(ProjectTree& project, TiXmlElement* silencer, TiXmlElement* secondDuct) {
    const std::string handle = AddPartEntity(project, silencer);
    try {
        AddPartEntity(project, secondDuct);
    } catch (const Refusal&) {
        const UnrecordedScope quiet;
        EraseEntity(handle);
        throw;
    }
}

struct InsertedSilencer {
    std::string silencer;  // handles
    std::string secondDuct;
    double fromStart = 0;  // mm from the start of the duct to the silencer
};

// Returns the silencer's length in mm from its product, or else the default.
double SilencerLength(const TiXmlElement* product) {
    double length = 0;
    return ReadNumber(ValueAt(product, "Length"), length) && length > 0 ? length : kUsualSilencerLength;
}

InsertedSilencer InsertIntoDuct(ProjectTree& project, TiXmlElement* duct, const TiXmlElement* product) {
    const double needed = SilencerLength(product);
    const double length = ValueAt(duct, "Length").empty() ? 0 : RealAt(duct, "Length");
    CheckDuct(duct, length, needed);
    const Point start = PointAt(duct, "Position/WCS");
    const Point direction = Unit(PointAt(duct, "Direction/WCS"));
    const double piece = (length - needed) / 2;

    TiXmlElement silencer = MakeSilencer(duct, product, needed);
    TiXmlElement second(*duct);
    second.RemoveAttribute("handle");
    AddEntities(project, &silencer, &second);
    const std::string first = ProjectTree::Handle(duct);
    const InsertedSilencer result = {ProjectTree::Handle(&silencer), ProjectTree::Handle(&second), piece};

    SetPointAt(&silencer, "Position/WCS", Along(start, direction, piece));
    SetPointAt(&second, "Position/WCS", Along(start, direction, piece + needed));
    SetRealAt(&second, "Length", piece);
    SetRealAt(duct, "Length", piece);

    // Connection 0 of a duct is at its start, connection 1 at its end.
    const std::string partAtEnd = ValueAt(ConnectionsOf(duct)[1], "ConnectedTo");
    SetValueAt(ConnectionsOf(duct)[1], "ConnectedTo", result.silencer);
    ConnectTo(&silencer, first);
    ConnectTo(&silencer, result.secondDuct);
    SetValueAt(ConnectionsOf(&second)[0], "ConnectedTo", result.silencer);
    if (IsConnectedHandle(partAtEnd)) Rewire(project.Part(partAtEnd), first, result.secondDuct);
    project.Parts()->InsertAfterChild(duct, second);
    project.Parts()->InsertAfterChild(duct, silencer);
    return result;
}

void Say(const std::string& sentence) {
    PrintText("\n" + sentence + "\n");
}

bool ReadLine(const wchar_t* prompt, std::string& line) {
    wchar_t buffer[256] = {};
    if (acedGetString(1, prompt, buffer, std::size(buffer)) != RTNORM) return false;
    line = Utf8(buffer);
    return true;
}

// Returns the handle of the duct that the user picks, or of the last pick after Enter; empty on cancel.
std::string AskForDuct(const std::string& userCode) {
    const std::wstring prompt =
        L"\nKlimora: Select the duct for silencer " + FromUtf8(userCode) + L" or press Enter for the duct picked last:";
    for (;;) {
        ads_name picked = {};
        ads_point at = {};
        const int answer = acedEntSel(prompt.c_str(), picked, at);
        if (answer == RTNORM) return LastPick();
        if (answer != RTERROR) return {};
        if (SystemVariable("ERRNO") == kEnterPressed) return LastPick();
    }
}

void Insert(const std::string& familyKey, const std::string& userCode) {
    ProjectTree& project = TheServer().project;
    const TiXmlElement* product = project.Product(kSilencerClass, userCode);
    if (!product || ValueAt(product, "ProductFamilyKey") != familyKey) {
        Say("KLIMSILX: product " + familyKey + " with user code " + userCode + " is not in the project.");
        return;
    }
    const std::string handle = AskForDuct(userCode);
    if (handle.empty()) {
        Say("KLIMSILX: no duct was selected.");
        return;
    }
    const InsertedSilencer inserted = InsertIntoDuct(project, project.Part(handle), product);
    Say("Klimora: Silencer " + userCode + " was inserted as part " + inserted.silencer + " between ducts " + handle +
        " and " + inserted.secondDuct + ", " + NumberText(inserted.fromStart) + " mm from the start of the duct.");
}

}  // namespace

void RunInsertCommand() {
    const UnrecordedScope quiet;
    std::string familyKey;
    std::string userCode;
    if (!ReadLine(L"\nProduct family key: ", familyKey) || !ReadLine(L"\nUser code: ", userCode)) {
        Say("KLIMSILX: cancelled.");
        return;
    }
    try {
        Insert(familyKey, userCode);
    } catch (const Refusal& refusal) {
        Say(std::string("KLIMSILX: ") + refusal.what());
    }
}

}  // namespace bench::klimora
