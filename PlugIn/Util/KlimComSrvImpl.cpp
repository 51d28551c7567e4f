#include "Util/KlimComSrvImpl.h"

#include <cstdio>

#include "Lib/CommandLine.h"

using namespace KLIMCOMSRVLib;

namespace {

constexpr int kNotConnected = -1;
constexpr int kCallFailed = -2;

constexpr wchar_t kDrawingProgId[] = L"KlimComSrv.Drawing";
constexpr wchar_t kKlimoraProgId[] = L"KlimComSrv.Klimora";

int Outcome(HRESULT call, long result) {
    return FAILED(call) ? kCallFailed : static_cast<int>(result);
}

constexpr char kCommandFormat[] = "%s:('%s')=%d %s\n";

const char* Shown(const char* text) {
    return text ? text : "";
}

bool GetRunning(const CLSID& classId, InterfacePtr<IUnknown>& object) {
    return SUCCEEDED(GetActiveObject(classId, nullptr, object.put()));
}

}  // namespace

KlimComSrvImpl::KlimComSrvImpl() {
    CLSID classId;
    if (FAILED(CLSIDFromProgID(kDrawingProgId, &classId))) throw "Could not find KlimComSrv.Drawing installed";
    InterfacePtr<IUnknown> running;
    if (!GetRunning(classId, running)) throw "Could not get running instance of KlimComSrv.Drawing";
    const bool hasDrawing = drawing_.QueryFrom(running.get(), IID_IDrawing);
    running.reset();
    if (!hasDrawing) throw "Could not find KLIMCOMSRVLib::IID_IDrawing";

    if (FAILED(CLSIDFromProgID(kKlimoraProgId, &classId))) throw "Could not find KlimComSrv.Klimora installed";
    if (!GetRunning(classId, running)) throw "Could not get running instance of KlimComSrv.Klimora";
    // From here on a failure gives back the drawing alone: the running object, and an interface that was already had,
    // stay referenced, and the server keeps running until AutoCAD ends.
    if (!app200805_.QueryFrom(running.get(), IID_IKlimora200805)) {
        running.release();
        throw "Could not find KLIMCOMSRVLib::IID_IKlimora200805";
    }
    if (!app201011_.QueryFrom(running.get(), IID_IKlimora201011)) {
        running.release();
        app200805_.release();
        throw "Could not find KLIMCOMSRVLib::IID_IKlimora201011";
    }
    // An older server has no latest interface; calculate answers -1 then.
    appLatest_.QueryFrom(running.get(), IID_IKlimoraLatest);
}

KlimComSrvImpl::~KlimComSrvImpl() {
    drawing_.reset();
    app200805_.reset();
    app201011_.reset();
    appLatest_.reset();
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

template <class... Arguments>
int KlimComSrvImpl::Traced(int result, const char* format, const Arguments&... arguments) {
    if (!Tracing()) return result;
    const std::string error = result != 0 ? getLastErrorText() : std::string();
    std::snprintf(lastTrace_, sizeof lastTrace_, format, arguments..., result, error.c_str());
    Echo(result);
    return result;
}

void KlimComSrvImpl::Echo(int result) const {
    if ((trace_.failures && result != 0) || trace_.all) PrintCommandLine("%s\n", lastTrace_);
}

int KlimComSrvImpl::getPartAtt(const char* part, const char* attribute, std::string& value) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute);
    BStr answer;
    long code = 0;
    const HRESULT call = app200805_->getPartAtt(partText.get(), attributeText.get(), answer.put(), &code);
    if (SUCCEEDED(call)) value = answer.ToNarrow();
    // The one format without a line end.
    return Traced(Outcome(call, code), "%s:('%s', '%s', '%s')=%d %s", "KlimComSrvImpl::getPartAtt", Shown(part),
                  Shown(attribute), value.c_str());
}

int KlimComSrvImpl::setPartAtt(const char* part, const char* attribute, const char* value) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute), valueText(value);
    long code = 0;
    const HRESULT call = app200805_->setPartAtt(partText.get(), attributeText.get(), valueText.get(), &code);
    return Traced(Outcome(call, code), "%s:('%s', '%s', '%s')=%d %s\n", "KlimComSrvImpl::setPartAtt", Shown(part),
                  Shown(attribute), Shown(value));
}

int KlimComSrvImpl::getPartAttDouble(const char* part, const char* attribute, double& value) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute);
    double answer = 0;
    long code = 0;
    const HRESULT call = app200805_->getPartAttDouble(partText.get(), attributeText.get(), &answer, &code);
    if (SUCCEEDED(call)) value = answer;
    return Traced(Outcome(call, code), "%s:('%s', '%s', %f)=%d %s\n", "KlimComSrvImpl::getPartAttDouble", Shown(part),
                  Shown(attribute), value);
}

int KlimComSrvImpl::setPartAttDouble(const char* part, const char* attribute, double value) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute);
    long code = 0;
    const HRESULT call = app200805_->setPartAttDouble(partText.get(), attributeText.get(), value, &code);
    return Traced(Outcome(call, code), "%s:('%s', '%s', %f)=%d %s\n", "KlimComSrvImpl::setPartAttDouble", Shown(part),
                  Shown(attribute), value);
}

int KlimComSrvImpl::getPartAttPoint(const char* part, const char* attribute, double& x, double& y, double& z) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute);
    double answer[3] = {};
    long code = 0;
    const HRESULT call =
        app200805_->getPartAttPoint(partText.get(), attributeText.get(), &answer[0], &answer[1], &answer[2], &code);
    if (SUCCEEDED(call)) {
        x = answer[0];
        y = answer[1];
        z = answer[2];
    }
    return Traced(Outcome(call, code), "%s:('%s', '%s', %f, %f, %f)=%d %s\n", "KlimComSrvImpl::getPartAttPoint",
                  Shown(part), Shown(attribute), x, y, z);
}

int KlimComSrvImpl::setPartAttPoint(const char* part, const char* attribute, double x, double y, double z) {
    if (!app200805_) return kNotConnected;
    const BStr partText(part), attributeText(attribute);
    long code = 0;
    const HRESULT call = app200805_->setPartAttPoint(partText.get(), attributeText.get(), x, y, z, &code);
    return Traced(Outcome(call, code), "%s:('%s', '%s', %f, %f, %f)=%d %s\n", "KlimComSrvImpl::setPartAttPoint",
                  Shown(part), Shown(attribute), x, y, z);
}

int KlimComSrvImpl::SendForReply(const char* name, ReplyMethod method, const char* command, std::string& reply) {
    if (!app200805_) return kNotConnected;
    const BStr commandText(command);
    BStr answer;
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(commandText.get(), answer.put(), &code);
    if (SUCCEEDED(call)) reply = answer.ToNarrow();
    return Traced(Outcome(call, code), "%s:('%s', '%s')=%d %s\n", name, Shown(command), reply.c_str());
}

int KlimComSrvImpl::Send(const char* name, CommandMethod method, const char* command) {
    if (!app200805_) return kNotConnected;
    const BStr commandText(command);
    long code = 0;
    const HRESULT call = (app200805_.get()->*method)(commandText.get(), &code);
    return Traced(Outcome(call, code), kCommandFormat, name, Shown(command));
}

int KlimComSrvImpl::createPart(const char* command, std::string& reply) {
    return SendForReply("KlimComSrvImpl::createPart", &Server::createPart, command, reply);
}

int KlimComSrvImpl::selectPart(const char* command, std::string& reply) {
    return SendForReply("KlimComSrvImpl::selectPart", &Server::selectPart, command, reply);
}

int KlimComSrvImpl::createConnectionStub(const char* command, std::string& reply) {
    return SendForReply("KlimComSrvImpl::createConnectionStub", &Server::createConnectionStub, command, reply);
}

int KlimComSrvImpl::setBinVariableSize(long variable, long size) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->setBinVariableSize(variable, size, &code);
    return Traced(Outcome(call, code), "%s:(%d, %d)=%d %s\n", "KlimComSrvImpl::setBinVariableSize",
                  static_cast<int>(variable), static_cast<int>(size));
}

int KlimComSrvImpl::setBinVariableData(long variable, long offset, const char* hexData) {
    if (!app200805_) return kNotConnected;
    const BStr dataText(hexData);
    long code = 0;
    const HRESULT call = app200805_->setBinVariableData(variable, offset, dataText.get(), &code);
    // Never the data itself: a megabyte of it has no place in a trace.
    return Traced(Outcome(call, code), "%s:(%d, %d, '%s')=%d %s\n", "KlimComSrvImpl::setBinVariableData",
                  static_cast<int>(variable), static_cast<int>(offset), "hexdata");
}

int KlimComSrvImpl::freeBinVariable(long variable) {
    if (!app200805_) return kNotConnected;
    long code = 0;
    const HRESULT call = app200805_->freeBinVariable(variable, &code);
    return Traced(Outcome(call, code), "%s:(%d)=%d %s\n", "KlimComSrvImpl::freeBinVariable",
                  static_cast<int>(variable));
}

int KlimComSrvImpl::manageProductData(const char* command) {
    return Send("KlimComSrvImpl::manageProductData", &Server::manageProductData, command);
}

int KlimComSrvImpl::erasePart(const char* command) {
    return Send("KlimComSrvImpl::erasePart", &Server::erasePart, command);
}

int KlimComSrvImpl::movePart(const char* command) {
    return Send("KlimComSrvImpl::movePart", &Server::movePart, command);
}

int KlimComSrvImpl::manageCalculationDatabase(const char* command, std::string& reply) {
    if (!app201011_) return kNotConnected;
    const BStr commandText(command);
    BStr answer;
    long code = 0;
    if (FAILED(app201011_->manageCalculationDatabase(commandText.get(), answer.put(), &code)))
        return Traced(kCallFailed, kCommandFormat, "KlimComSrvImpl::manageCalculationDatabase", Shown(command));
    reply = answer.ToNarrow();
    return static_cast<int>(code);
}

int KlimComSrvImpl::selectProduct(const char* command) {
    if (!app201011_) return kNotConnected;
    const BStr commandText(command);
    long code = 0;
    if (FAILED(app201011_->selectProduct(commandText.get(), &code)))
        return Traced(kCallFailed, kCommandFormat, "KlimComSrvImpl::selectProduct", Shown(command));
    return static_cast<int>(code);
}

int KlimComSrvImpl::calculate(const char* command) {
    if (!appLatest_) return kNotConnected;
    const BStr commandText(command);
    long code = 0;
    if (FAILED(appLatest_->calculate(commandText.get(), &code)))
        return Traced(kCallFailed, kCommandFormat, "KlimComSrvImpl::calculate", Shown(command));
    return static_cast<int>(code);
}
