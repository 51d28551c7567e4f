// System variables: a table of names with their type, as AutoCAD types them. The coordinate system's variables and the
// drawing's name are answered from the drawing itself.
#include <cstdlib>
#include <map>

#include "HostCall.h"
#include "HostSession.h"
#include "HostStrings.h"
#include "acedads.h"
#include "adscodes.h"

namespace bench {
namespace {

struct Variable {
    short type;  // RTSHORT, RTREAL, RTSTR or RT3DPOINT
    bool readOnly;
    short integer;
    double real;
    std::wstring text;
    AcGePoint3d point;
};

struct CaseBlind {
    bool operator()(const std::wstring& a, const std::wstring& b) const { return UpperCase(a) < UpperCase(b); }
};

using Table = std::map<std::wstring, Variable, CaseBlind>;

Variable Short(short value, bool readOnly = false) {
    return Variable{RTSHORT, readOnly, value, 0, L"", {}};
}
Variable Real(double value) {
    return Variable{RTREAL, false, 0, value, L"", {}};
}
Variable Text(const wchar_t* value, bool readOnly = false) {
    return Variable{RTSTR, readOnly, 0, 0, value, {}};
}
Variable Point() {
    return Variable{RT3DPOINT, true, 0, 0, L"", {}};
}

Table& Variables() {
    static Table table;
    return table;
}

// The variables that are a view of something else.
void Refresh() {
    Table& table = Variables();
    table[L"CMDNAMES"].text = UpperCase(Wide(TheSession().runningCommand));
    table[L"DWGNAME"].text = TheSession().fileName;
    const Drawing* drawing = CurrentDrawing();
    const Ucs ucs = drawing == nullptr ? Ucs() : drawing->ucs;
    table[L"UCSORG"].point = ucs.origin;
    table[L"UCSXDIR"].point = AcGePoint3d() + ucs.xAxis;
    table[L"UCSYDIR"].point = AcGePoint3d() + ucs.yAxis;
    table[L"WORLDUCS"].integer = ucs.toWorld().isEqualTo(AcGeMatrix3d()) ? 1 : 0;
}

Variable* Find(const std::wstring& name) {
    if (Variables().empty()) ResetSystemVariables();
    Refresh();
    const auto found = Variables().find(name);
    return found == Variables().end() ? nullptr : &found->second;
}

std::string Shown(const Variable& variable) {
    if (variable.type == RTSHORT) return std::to_string(variable.integer);
    if (variable.type == RTREAL) return NumberText(variable.real);
    if (variable.type == RTSTR) return Narrow(variable.text);
    return PointText(&variable.point.x);
}

std::string Shown(const resbuf* value) {
    if (value == nullptr) return "(null)";
    if (value->restype == RTSHORT) return std::to_string(value->resval.rint);
    if (value->restype == RTREAL) return NumberText(value->resval.rreal);
    if (value->restype == RTSTR) return Narrow(value->resval.rstring);
    return "of type " + std::to_string(value->restype);
}

bool Store(Variable& variable, const resbuf& value) {
    if (variable.readOnly || value.restype != variable.type) return false;
    if (value.restype == RTSHORT) variable.integer = value.resval.rint;
    if (value.restype == RTREAL) variable.real = value.resval.rreal;
    if (value.restype == RTSTR) {
        if (value.resval.rstring == nullptr) return false;
        variable.text = value.resval.rstring;
    }
    return true;
}

}  // namespace

void ResetSystemVariables() {
    Variables() = Table{
        {L"ACADVER", Text(L"24.1s (LMS Tech)", true)},
        {L"ATTDIA", Short(0)},
        {L"ATTREQ", Short(1)},
        {L"CLAYER", Text(L"0")},
        {L"CMDDIA", Short(1)},
        {L"CMDECHO", Short(1)},
        {L"CMDNAMES", Text(L"", true)},
        {L"CVPORT", Short(2)},
        {L"DWGNAME", Text(L"", true)},
        {L"ERRNO", Short(0)},
        {L"EXPERT", Short(0)},
        {L"FILEDIA", Short(1)},
        {L"INSUNITS", Short(4)},
        {L"LTSCALE", Real(1)},
        {L"NOMUTT", Short(0)},
        {L"OSMODE", Short(4133)},
        {L"PICKADD", Short(2)},
        {L"PICKFIRST", Short(1)},
        {L"TILEMODE", Short(1)},
        {L"UCSORG", Point()},
        {L"UCSXDIR", Point()},
        {L"UCSYDIR", Point()},
        {L"USERI1", Short(0)},
        {L"USERR1", Real(0)},
        {L"USERS1", Text(L"")},
        {L"WORLDUCS", Short(1, true)},
    };
}

std::string SystemVariable(const std::string& name) {
    const Variable* variable = Find(Wide(name));
    return variable == nullptr ? "" : Shown(*variable);
}

void SetSystemVariable(const std::string& name, const std::string& value) {
    Variable* variable = Find(Wide(name));
    if (variable == nullptr) {
        Accuse("The bench set " + name + ", which is no system variable.");
        return;
    }
    if (variable->type == RTSHORT) variable->integer = static_cast<short>(std::atoi(value.c_str()));
    if (variable->type == RTREAL) variable->real = std::atof(value.c_str());
    if (variable->type == RTSTR) variable->text = Wide(value);
}

}  // namespace bench

using bench::HostCall;

int acedGetVar(const ACHAR* sym, struct resbuf* result) {
    HostCall call("acedGetVar", bench::Narrow(sym));
    if (call.fails()) return call.failed(RTERROR);
    const bench::Variable* variable = sym == nullptr ? nullptr : bench::Find(sym);
    if (variable == nullptr || result == nullptr || !bench::LivingNode(result, "acedGetVar")) return call.done(RTERROR);
    result->restype = variable->type;
    if (variable->type == RTSHORT) result->resval.rint = variable->integer;
    if (variable->type == RTREAL) result->resval.rreal = variable->real;
    if (variable->type == RTSTR)
        result->resval.rstring = bench::HandOut(variable->text, "value of " + bench::Narrow(bench::UpperCase(sym)));
    if (variable->type == RT3DPOINT)
        for (unsigned i = 0; i < 3; ++i)
            result->resval.rpoint[i] = variable->point[i];
    call.result(bench::Shown(*variable));
    return RTNORM;
}

int acedSetVar(const ACHAR* sym, const struct resbuf* val) {
    HostCall call("acedSetVar", bench::Narrow(sym) + " " + bench::Shown(val));
    if (call.fails()) return call.failed(RTERROR);
    bench::Variable* variable = sym == nullptr ? nullptr : bench::Find(sym);
    if (variable == nullptr || val == nullptr || !bench::LivingNode(val, "acedSetVar")) return call.done(RTERROR);
    return call.done(bench::Store(*variable, *val) ? RTNORM : RTERROR);
}
