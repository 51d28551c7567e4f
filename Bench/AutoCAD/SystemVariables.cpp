// System variables: a table of names and types. The coordinate system's variables and the drawing's name are computed
// from the drawing.
#include "Application.h"

#include <cstdlib>
#include <cstring>
#include <map>

#include "ArxCall.h"
#include "Memory.h"
#include "ProcessState.h"
#include "Texts.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

struct Variable {
    short type;  // RTSHORT, RTSTR or RT3DPOINT
    bool readOnly = false;
    short integer = 0;
    std::wstring text = {};
    AcGePoint3d point = {};
};

std::map<std::wstring, Variable> variables;

// The variables computed from other state.
void Refresh() {
    variables[L"DWGNAME"].text = TheProcess().fileName;
    const Drawing* drawing = CurrentDrawing();
    const Ucs ucs = drawing == nullptr ? Ucs() : drawing->ucs;
    variables[L"UCSORG"].point = ucs.origin;
    variables[L"UCSXDIR"].point = AcGePoint3d(ucs.xAxis.x, ucs.xAxis.y, ucs.xAxis.z);
    variables[L"UCSYDIR"].point = AcGePoint3d(ucs.yAxis.x, ucs.yAxis.y, ucs.yAxis.z);
}

Variable* Find(const std::wstring& name) {
    Refresh();
    const auto found = variables.find(UpperCase(name));
    return found == variables.end() ? nullptr : &found->second;
}

std::string ValueText(const Variable& variable) {
    if (variable.type == RTSHORT) return std::to_string(variable.integer);
    if (variable.type == RTSTR) return Ansi(variable.text);
    return PointText(&variable.point.x);
}

std::string ValueText(const resbuf* value) {
    if (value == nullptr) return "(null)";
    if (value->restype == RTSHORT) return std::to_string(value->resval.rint);
    return "of type " + std::to_string(value->restype);
}

}  // namespace

void ResetSystemVariables() {
    variables = {{L"CMDECHO", {RTSHORT, false, 1}}, {L"CVPORT", {RTSHORT, false, 2}},   {L"DWGNAME", {RTSTR, true}},
                 {L"ERRNO", {RTSHORT, false, 0}},   {L"TILEMODE", {RTSHORT, false, 1}}, {L"UCSORG", {RT3DPOINT, true}},
                 {L"UCSXDIR", {RT3DPOINT, true}},   {L"UCSYDIR", {RT3DPOINT, true}}};
}

std::string SystemVariable(const std::string& name) {
    const Variable* variable = Find(FromAnsi(name));
    return variable == nullptr ? "" : ValueText(*variable);
}

void SetSystemVariable(const std::string& name, const std::string& value) {
    variables.at(FromAnsi(name)).integer = static_cast<short>(std::atoi(value.c_str()));
}

}  // namespace bench

using bench::ArxCall;

int acedGetVar(const ACHAR* sym, struct resbuf* result) {
    ArxCall call("acedGetVar", bench::LogText(sym));
    if (call.fails()) return call.failed(RTERROR);
    const bench::Variable* variable = sym == nullptr ? nullptr : bench::Find(sym);
    if (variable == nullptr || result == nullptr || !bench::CheckNode(result, "acedGetVar")) return call.done(RTERROR);
    std::memset(&result->resval, bench::kSentinel, sizeof result->resval);
    result->restype = variable->type;
    if (variable->type == RTSHORT) result->resval.rint = variable->integer;
    if (variable->type == RTSTR)
        result->resval.rstring =
            bench::AllocateForCaller(variable->text, "value of " + bench::Ansi(bench::UpperCase(sym)));
    if (variable->type == RT3DPOINT)
        for (unsigned i = 0; i < 3; ++i)
            result->resval.rpoint[i] = variable->point[i];
    call.result(bench::ValueText(*variable));
    return RTNORM;
}

int acedSetVar(const ACHAR* sym, const struct resbuf* val) {
    ArxCall call("acedSetVar", bench::LogText(sym) + " " + bench::ValueText(val));
    if (call.fails()) return call.failed(RTERROR);
    bench::Variable* variable = sym == nullptr ? nullptr : bench::Find(sym);
    if (variable == nullptr || val == nullptr || !bench::CheckNode(val, "acedSetVar") || variable->readOnly ||
        val->restype != variable->type)
        return call.done(RTERROR);
    variable->integer = val->resval.rint;
    return call.done(RTNORM);
}
