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

InterfacePtr<IUnknown> GetRunningObject(const wchar_t* progId, const char* notInstalled, const char* notRunning) {
    CLSID classId;
    if (FAILED(CLSIDFromProgID(progId, &classId))) throw notInstalled;
    InterfacePtr<IUnknown> object;
    if (FAILED(GetActiveObject(classId, nullptr, object.put()))) throw notRunning;
    return object;
}

void AppendLimited(std::string& line, std::string_view text) {
    line += text.substr(0, kTraceLimit - line.size());
}

// Arguments in a trace line: strings in quotes, reals with six decimals.
void AppendArgument(std::string& line, const char* text) {
    AppendLimited(line, "'");
    AppendLimited(line, OrEmpty(text));
    AppendLimited(line, "'");
}
void AppendArgument(std::string& line, double number) {
    char text[kRealTextSize];
    AppendLimited(line, std::string_view(text, WriteReal(text, sizeof text, number)));
}
void AppendArgument(std::string& line, long number) {
    AppendLimited(line, std::to_string(number));
}

}  // namespace

KlimComSrvImpl::KlimComSrvImpl() {
    if (!drawing_.QueryFrom(GetRunningObject(L"KlimComSrv.Drawing", "Could not find KlimComSrv.Drawing installed",
                                             "Could not get running instance of KlimComSrv.Drawing")
                                .get(),
                            IID_IDrawing))
        throw "Could not find KLIMCOMSRVLib::IID_IDrawing";

    InterfacePtr<IUnknown> klimora =
        GetRunningObject(L"KlimComSrv.Klimora", "Could not find KlimComSrv.Klimora installed",
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
int KlimComSrvImpl::Trace(HRESULT call, long code, TraceFrame frame, First first, Others... others) {
    const int result = FAILED(call) ? kCallFailed : static_cast<int>(code);
    if (!trace_.keep && !trace_.failures && !trace_.all) return result;
    try {
        const std::string error = result != 0 ? getLastErrorText() : std::string();
        lastTrace_ = "KlimComSrvImpl::";
        AppendLimited(lastTrace_, frame.name);
        AppendLimited(lastTrace_, ":(");
        AppendArgument(lastTrace_, first);
        ((AppendLimited(lastTrace_, ", "), AppendArgument(lastTrace_, others)), ...);
        AppendLimited(lastTrace_, ")=");
        AppendLimited(lastTrace_, std::to_string(result));
        AppendLimited(lastTrace_, " ");
        AppendLimited(lastTrace_, error);
        AppendLimited(lastTrace_, frame.lineEnd);
        if ((trace_.failures && result != 0) || trace_.all) PrintCommandLine("%s\n", lastTrace_.c_str());
    } catch (...) {
        // The call itself succeeded: a trace line that runs out of memory does not make it fail.
        lastTrace_.clear();
    }
    return result;
}

int KlimComSrvImpl::getPartAtt(const char* part, const char* attribute, std::string& value) {
    if (!app200805_) return kNotConnected;
    BStr output;
    long code = 0;
    const HRESULT call = app200805_->getPartAtt(BStr(part).get(), BStr(attribute).get(), output.put(), &code);
    if (SUCCEEDED(call)) value = output.ToNarrow();
    // Only this line has no line end.
    return Trace(call, code, {"getPartAtt", ""}, part, attribute, SUCCEEDED(call) ? value.c_str() : "");
}

int KlimComSrvImpl::setPartAtt(const char* part, const char* attribute, const char* value) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAtt(BStr(part).get(), BStr(attribute).get(), BStr(value).get(), &code);
    return Trace(call, code, {"setPartAtt"}, part, attribute, value);
}

int KlimComSrvImpl::getPartAttDouble(const char* part, const char* attribute, double& value) {
    if (!app200805_) return kNotConnected;
    double output = 0;
    long code = 0;
    const HRESULT call = app200805_->getPartAttDouble(BStr(part).get(), BStr(attribute).get(), &output, &code);
    if (SUCCEEDED(call)) value = output;
    return Trace(call, code, {"getPartAttDouble"}, part, attribute, SUCCEEDED(call) ? output : 0.0);
}

int KlimComSrvImpl::setPartAttDouble(const char* part, const char* attribute, double value) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAttDouble(BStr(part).get(), BStr(attribute).get(), value, &code);
    return Trace(call, code, {"setPartAttDouble"}, part, attribute, value);
}

int KlimComSrvImpl::getPartAttPoint(const char* part, const char* attribute, double& x, double& y, double& z) {
    if (!app200805_) return kNotConnected;
    double output[3] = {};
    long code = 0;
    const HRESULT call =
        app200805_->getPartAttPoint(BStr(part).get(), BStr(attribute).get(), &output[0], &output[1], &output[2], &code);
    if (FAILED(call)) return Trace(call, code, {"getPartAttPoint"}, part, attribute, 0.0, 0.0, 0.0);
    x = output[0];
    y = output[1];
    z = output[2];
    return Trace(call, code, {"getPartAttPoint"}, part, attribute, x, y, z);
}

int KlimComSrvImpl::setPartAttPoint(const char* part, const char* attribute, double x, double y, double z) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setPartAttPoint(BStr(part).get(), BStr(attribute).get(), x, y, z, &code);
    return Trace(call, code, {"setPartAttPoint"}, part, attribute, x, y, z);
}

int KlimComSrvImpl::SendForReply(const char* name, ReplyMethod method, const char* command, std::string& reply) {
    if (!app200805_) return kNotConnected;
    BStr output;
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(BStr(command).get(), output.put(), &code);
    if (SUCCEEDED(call)) reply = output.ToNarrow();
    return Trace(call, code, {name}, command, SUCCEEDED(call) ? reply.c_str() : "");
}

int KlimComSrvImpl::Send(const char* name, CommandMethod method, const char* command) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(BStr(command).get(), &code);
    return Trace(call, code, {name}, command);
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
    return Trace(call, code, {"setBinVariableSize"}, variable, size);
}

int KlimComSrvImpl::setBinVariableData(long variable, long offset, const char* hexData) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setBinVariableData(variable, offset, BStr(hexData).get(), &code);
    // Not the data itself, which can be megabytes.
    return Trace(call, code, {"setBinVariableData"}, variable, offset, "hexdata");
}

int KlimComSrvImpl::freeBinVariable(long variable) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->freeBinVariable(variable, &code);
    return Trace(call, code, {"freeBinVariable"}, variable);
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
    BStr output;
    long code = 0;
    const HRESULT call = app201011_->manageCalculationDatabase(BStr(command).get(), output.put(), &code);
    if (FAILED(call)) return Trace(call, code, {"manageCalculationDatabase"}, command);
    reply = output.ToNarrow();
    return static_cast<int>(code);
}

int KlimComSrvImpl::selectProduct(const char* command) {
    if (!app201011_) return kNotConnected;
    long code = 0;
    const HRESULT call = app201011_->selectProduct(BStr(command).get(), &code);
    return FAILED(call) ? Trace(call, code, {"selectProduct"}, command) : static_cast<int>(code);
}

int KlimComSrvImpl::calculate(const char* command) {
    if (!appLatest_) return kNotConnected;
    long code = 0;
    const HRESULT call = appLatest_->calculate(BStr(command).get(), &code);
    return FAILED(call) ? Trace(call, code, {"calculate"}, command) : static_cast<int>(code);
}
