#include "Util/KlimComSrvImpl.h"

#include <string_view>

#include "Lib/CommandLine.h"
#include "Lib/Numbers.h"
#include "Lib/Text.h"

using namespace KLIMCOMSRVLib;

namespace {

constexpr int kNotConnected = -1;
constexpr int kCallFailed = -2;
constexpr size_t kTraceLimit = 8191;

InterfacePtr<IUnknown> Running(const wchar_t* progId, const char* notInstalled, const char* notRunning) {
    CLSID classId;
    if (FAILED(CLSIDFromProgID(progId, &classId))) throw notInstalled;
    InterfacePtr<IUnknown> object;
    if (FAILED(GetActiveObject(classId, nullptr, object.put()))) throw notRunning;
    return object;
}

void Put(std::string& line, std::string_view text) {
    line += text.substr(0, kTraceLimit - line.size());
}

// Arguments in a trace line: strings in quotes, reals with six decimals.
void PutArgument(std::string& line, const char* text) {
    Put(line, "'");
    Put(line, OrEmpty(text));
    Put(line, "'");
}
void PutArgument(std::string& line, double number) {
    char text[kRealTextSize];
    Put(line, std::string_view(text, WriteReal(text, sizeof text, number)));
}
void PutArgument(std::string& line, long number) {
    Put(line, std::to_string(number));
}

}  // namespace

KlimComSrvImpl::KlimComSrvImpl() {
    if (!drawing_.QueryFrom(Running(L"KlimComSrv.Drawing", "Could not find KlimComSrv.Drawing installed",
                                    "Could not get running instance of KlimComSrv.Drawing")
                                .get(),
                            IID_IDrawing))
        throw "Could not find KLIMCOMSRVLib::IID_IDrawing";

    InterfacePtr<IUnknown> klimora = Running(L"KlimComSrv.Klimora", "Could not find KlimComSrv.Klimora installed",
                                             "Could not get running instance of KlimComSrv.Klimora");
    // On a failure below, only the drawing is released. The running object and its interfaces stay referenced, which
    // keeps the server running until AutoCAD ends.
    if (!app200805_.QueryFrom(klimora.get(), IID_IKlimora200805)) {
        klimora.release();
        throw "Could not find KLIMCOMSRVLib::IID_IKlimora200805";
    }
    if (!app201011_.QueryFrom(klimora.get(), IID_IKlimora201011)) {
        klimora.release();
        app200805_.release();
        throw "Could not find KLIMCOMSRVLib::IID_IKlimora201011";
    }
    // An older server lacks the latest interface; calculate then returns -1.
    appLatest_.QueryFrom(klimora.get(), IID_IKlimoraLatest);
}

long KlimComSrvImpl::getVersion() const {
    long version = 0;
    if (!app200805_ || FAILED(app200805_->getVersion(&version))) return 0;
    return version;
}

std::string KlimComSrvImpl::getLastErrorText() const {
    BStr text;
    if (!app200805_ || FAILED(app200805_->getLastErrorText(text.put()))) return std::string();
    return text.ToNarrow();
}

template <class First, class... Others>
int KlimComSrvImpl::Traced(HRESULT call, long code, TraceFrame frame, First first, Others... others) {
    const int result = FAILED(call) ? kCallFailed : static_cast<int>(code);
    if (!trace_.keep && !trace_.failures && !trace_.all) return result;
    try {
        const std::string error = result != 0 ? getLastErrorText() : std::string();
        lastTrace_ = "KlimComSrvImpl::";
        Put(lastTrace_, frame.name);
        Put(lastTrace_, ":(");
        PutArgument(lastTrace_, first);
        ((Put(lastTrace_, ", "), PutArgument(lastTrace_, others)), ...);
        Put(lastTrace_, ")=");
        Put(lastTrace_, std::to_string(result));
        Put(lastTrace_, " ");
        Put(lastTrace_, error);
        Put(lastTrace_, frame.lineEnd);
        if ((trace_.failures && result != 0) || trace_.all) PrintCommandLine("%s\n", lastTrace_.c_str());
    } catch (...) {
        // The call itself succeeded: a trace line that runs out of memory does not make it fail.
        lastTrace_.clear();
    }
    return result;
}

int KlimComSrvImpl::getPartAtt(const char* part, const char* attribute, std::string& value) {
    if (!app200805_) return kNotConnected;
    BStr answer;
    long code = 0;
    const HRESULT call = app200805_->getPartAtt(BStr(part).get(), BStr(attribute).get(), answer.put(), &code);
    if (SUCCEEDED(call)) value = answer.ToNarrow();
    // Only this line has no line end.
    return Traced(call, code, {"getPartAtt", ""}, part, attribute, SUCCEEDED(call) ? value.c_str() : "");
}

int KlimComSrvImpl::setPartAtt(const char* part, const char* attribute, const char* value) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAtt(BStr(part).get(), BStr(attribute).get(), BStr(value).get(), &code);
    return Traced(call, code, {"setPartAtt"}, part, attribute, value);
}

int KlimComSrvImpl::getPartAttDouble(const char* part, const char* attribute, double& value) {
    if (!app200805_) return kNotConnected;
    double answer = 0;
    long code = 0;
    const HRESULT call = app200805_->getPartAttDouble(BStr(part).get(), BStr(attribute).get(), &answer, &code);
    if (SUCCEEDED(call)) value = answer;
    return Traced(call, code, {"getPartAttDouble"}, part, attribute, SUCCEEDED(call) ? answer : 0.0);
}

int KlimComSrvImpl::setPartAttDouble(const char* part, const char* attribute, double value) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAttDouble(BStr(part).get(), BStr(attribute).get(), value, &code);
    return Traced(call, code, {"setPartAttDouble"}, part, attribute, value);
}

int KlimComSrvImpl::getPartAttPoint(const char* part, const char* attribute, double& x, double& y, double& z) {
    if (!app200805_) return kNotConnected;
    double answer[3] = {};
    long code = 0;
    const HRESULT call =
        app200805_->getPartAttPoint(BStr(part).get(), BStr(attribute).get(), &answer[0], &answer[1], &answer[2], &code);
    if (FAILED(call)) return Traced(call, code, {"getPartAttPoint"}, part, attribute, 0.0, 0.0, 0.0);
    x = answer[0];
    y = answer[1];
    z = answer[2];
    return Traced(call, code, {"getPartAttPoint"}, part, attribute, x, y, z);
}

int KlimComSrvImpl::setPartAttPoint(const char* part, const char* attribute, double x, double y, double z) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAttPoint(BStr(part).get(), BStr(attribute).get(), x, y, z, &code);
    return Traced(call, code, {"setPartAttPoint"}, part, attribute, x, y, z);
}

int KlimComSrvImpl::SendForReply(const char* name, ReplyMethod method, const char* command, std::string& reply) {
    if (!app200805_) return kNotConnected;
    BStr answer;
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(BStr(command).get(), answer.put(), &code);
    if (SUCCEEDED(call)) reply = answer.ToNarrow();
    return Traced(call, code, {name}, command, SUCCEEDED(call) ? reply.c_str() : "");
}

int KlimComSrvImpl::Send(const char* name, CommandMethod method, const char* command) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(BStr(command).get(), &code);
    return Traced(call, code, {name}, command);
}

int KlimComSrvImpl::createPart(const char* command, std::string& reply) {
    return SendForReply("createPart", &Server::createPart, command, reply);
}

int KlimComSrvImpl::selectPart(const char* command, std::string& reply) {
    return SendForReply("selectPart", &Server::selectPart, command, reply);
}

int KlimComSrvImpl::createConnectionStub(const char* command, std::string& reply) {
    return SendForReply("createConnectionStub", &Server::createConnectionStub, command, reply);
}

int KlimComSrvImpl::setBinVariableSize(long variable, long size) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setBinVariableSize(variable, size, &code);
    return Traced(call, code, {"setBinVariableSize"}, variable, size);
}

int KlimComSrvImpl::setBinVariableData(long variable, long offset, const char* hexData) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setBinVariableData(variable, offset, BStr(hexData).get(), &code);
    // Not the data itself, which can be megabytes.
    return Traced(call, code, {"setBinVariableData"}, variable, offset, "hexdata");
}

int KlimComSrvImpl::freeBinVariable(long variable) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->freeBinVariable(variable, &code);
    return Traced(call, code, {"freeBinVariable"}, variable);
}

int KlimComSrvImpl::manageProductData(const char* command) {
    return Send("manageProductData", &Server::manageProductData, command);
}

int KlimComSrvImpl::erasePart(const char* command) {
    return Send("erasePart", &Server::erasePart, command);
}

int KlimComSrvImpl::movePart(const char* command) {
    return Send("movePart", &Server::movePart, command);
}

int KlimComSrvImpl::manageCalculationDatabase(const char* command, std::string& reply) {
    if (!app201011_) return kNotConnected;
    BStr answer;
    long code = 0;
    const HRESULT call = app201011_->manageCalculationDatabase(BStr(command).get(), answer.put(), &code);
    if (FAILED(call)) return Traced(call, code, {"manageCalculationDatabase"}, command);
    reply = answer.ToNarrow();
    return static_cast<int>(code);
}

int KlimComSrvImpl::selectProduct(const char* command) {
    if (!app201011_) return kNotConnected;
    long code = 0;
    const HRESULT call = app201011_->selectProduct(BStr(command).get(), &code);
    return FAILED(call) ? Traced(call, code, {"selectProduct"}, command) : static_cast<int>(code);
}

int KlimComSrvImpl::calculate(const char* command) {
    if (!appLatest_) return kNotConnected;
    long code = 0;
    const HRESULT call = appLatest_->calculate(BStr(command).get(), &code);
    return FAILED(call) ? Traced(call, code, {"calculate"}, command) : static_cast<int>(code);
}
