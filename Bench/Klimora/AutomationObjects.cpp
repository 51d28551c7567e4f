#include "Server.h"

#include <windows.h>
#include <objbase.h>
#include <oleauto.h>

#include <string>
#include <utility>

#include "Attributes.h"
#include "BenchControl.h"
#include "Commands.h"
#include "KLIMCOMSRVLib.h"
#include "Refusal.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr wchar_t kDrawingProgId[] = L"KlimComSrv.Drawing";
constexpr wchar_t kKlimoraProgId[] = L"KlimComSrv.Klimora";
constexpr CLSID kDrawingClass = {0x6d1f0a11, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};
constexpr CLSID kKlimoraClass = {0x6d1f0a12, 0x52c4, 0x4e0b, {0x9a, 0x17, 0x3c, 0x88, 0x5e, 0x21, 0xb0, 0x01}};

// Codes from here up belong to the server; lower ones are failing HRESULTs.
constexpr long kSmallestOwnCode = -65536;

// Set while references belong to the running object table.
bool g_publishing = false;

// Counts the references to one interface pointer. Those of clients are tracked ("interface reference IDrawing"); those
// of the running object table are counted separately.
class References {
 public:
    explicit References(std::string name) : name_(std::move(name)) {}
    const std::string& Name() const { return name_; }

    ULONG Add() {
        ++(g_publishing ? others_ : clients_);
        if (!g_publishing) TrackAcquire("interface reference", name_);
        return clients_ + others_;
    }
    // A release without a reference is a violation and leaves the count unchanged.
    ULONG Release() {
        if (g_publishing && others_ > 0) {
            --others_;
        } else if (clients_ > 0) {
            --clients_;
            TrackRelease("interface reference", name_);
        } else {
            ReportViolation("Interface " + name_ + " was released more often than it was acquired.");
        }
        return clients_ + others_;
    }

 private:
    std::string name_;
    ULONG clients_ = 0;
    ULONG others_ = 0;
};

// The outputs of a call: cleared, corrupted, or set, and formatted for the call log.
void Clear(BSTR* text) {
    *text = ToBstr("");
}
void Clear(double* number) {
    *number = 0;
}
void Corrupt(BSTR* text) {
    *text = ToBstr("corrupt output");
}
void Corrupt(double* number) {
    *number = -1.5e300;
}
std::string Put(const std::string& value, BSTR* text) {
    SysReAllocString(text, FromUtf8(value).c_str());
    return Quoted(value);
}

std::string Address(BSTR part, BSTR attribute) {
    return Quoted(FromBstr(part)) + " " + Quoted(FromBstr(attribute));
}

using QueryFunction = HRESULT (*)(REFIID, void**);
using CommandFunction = std::string (*)(Server&, const std::string&);

// One interface of one object. It counts its own references, forwards QueryInterface to its object and has no names for
// IDispatch, because clients call the slots.
template <class Interface>
class ObjectInterface : public Interface {
 public:
    ObjectInterface(const char* name, QueryFunction query) : references_(name), query_(query) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override { return query_(id, object); }
    ULONG STDMETHODCALLTYPE AddRef() override { return references_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override { return references_.Release(); }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return E_NOTIMPL;
    }

 protected:
    std::string CallName(const char* method) const { return references_.Name() + "::" + method; }

    // Runs one client call: logging, fault injection, refusal. `work` returns the outputs as logged. On a refusal the
    // code goes into `result`, and getLastErrorText returns the sentence. An injected code that is a failing HRESULT is
    // returned as such; the outputs stay unchanged or are corrupted, as the fault says.
    template <class Work, class... Outputs>
    HRESULT Answer(const char* method, const std::string& arguments, Work work, long* result, Outputs*... outputs) {
        const std::string name = CallName(method);
        Call call(name.c_str(), arguments);
        const bool given = result && (outputs && ...);
        const long injected = call.fails() ? call.failureCode(E_FAIL) : 0;
        if (given && call.corruptsOutputs()) *result = 0x0BADF00D, (Corrupt(outputs), ...);
        if (injected < kSmallestOwnCode) return Failed(call, injected);
        if (!TheServer().started) return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
        if (!given) return WithoutPlace(name);
        if (!call.corruptsOutputs()) (Clear(outputs), ...);
        try {
            if (call.fails()) throw Refusal(injected, name + " failed by injection.");
            const std::string shown = work();
            TheServer().lastError.clear();
            *result = 0;
            call.result(shown.empty() ? "0" : shown + " 0");
        } catch (const Refusal& refusal) {
            TheServer().lastError = refusal.what();
            *result = refusal.code();
            call.result(refusal.code());
        }
        return S_OK;
    }

    // For the methods without a result argument: any injected fault becomes an HRESULT.
    template <class Work>
    HRESULT AnswerPlain(const char* method, bool given, Work work) {
        const std::string name = CallName(method);
        Call call(name.c_str(), "");
        const long injected = call.failureCode(E_FAIL);
        if (call.fails()) return Failed(call, FAILED(injected) ? injected : E_FAIL);
        if (!TheServer().started) return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
        if (!given) return WithoutPlace(name);
        call.result(work());
        return S_OK;
    }

    HRESULT Command(const char* method, BSTR command, CommandFunction work, long* result) {
        const std::string text = FromBstr(command);
        return Answer(
            method, text, [&] { return work(TheServer(), text); }, result);
    }
    HRESULT Command(const char* method, BSTR command, CommandFunction work, BSTR* reply, long* result) {
        const std::string text = FromBstr(command);
        return Answer(
            method, text, [&] { return Put(work(TheServer(), text), reply); }, result, reply);
    }

 private:
    static HRESULT Failed(Call& call, long code) {
        call.result("HRESULT " + std::to_string(code));
        return code;
    }
    static HRESULT WithoutPlace(const std::string& name) {
        ReportViolation(name + " was called with a null output pointer.");
        return E_POINTER;
    }

    References references_;
    QueryFunction query_;
};

// The three interfaces inherit from each other like their declarations, so each method exists once.
template <class Interface>
class Klimora200805 : public ObjectInterface<Interface> {
 public:
    using ObjectInterface<Interface>::ObjectInterface;

    HRESULT STDMETHODCALLTYPE getVersion(long* version) override {
        return this->AnswerPlain("getVersion", version,
                                 [&] { return std::to_string(*version = TheServer().settings.version); });
    }
    HRESULT STDMETHODCALLTYPE getLastErrorText(BSTR* text) override {
        return this->AnswerPlain("getLastErrorText", text, [&] {
            *text = ToBstr(TheServer().lastError);
            return Quoted(TheServer().lastError);
        });
    }

    HRESULT STDMETHODCALLTYPE getPartAtt(BSTR part, BSTR attribute, BSTR* value, long* result) override {
        const auto work = [&] { return Put(TheReader().Attribute(FromBstr(part), FromBstr(attribute)), value); };
        return this->Answer("getPartAtt", Address(part, attribute), work, result, value);
    }
    HRESULT STDMETHODCALLTYPE setPartAtt(BSTR part, BSTR attribute, BSTR value, long* result) override {
        return Set("setPartAtt", part, attribute, FromBstr(value), Quoted(FromBstr(value)), result);
    }
    HRESULT STDMETHODCALLTYPE getPartAttDouble(BSTR part, BSTR attribute, double* value, long* result) override {
        const auto work = [&] {
            *value = GetReals(TheServer(), FromBstr(part), FromBstr(attribute), 1)[0];
            return NumberText(*value);
        };
        return this->Answer("getPartAttDouble", Address(part, attribute), work, result, value);
    }
    HRESULT STDMETHODCALLTYPE setPartAttDouble(BSTR part, BSTR attribute, double value, long* result) override {
        return Set("setPartAttDouble", part, attribute, NumberText(value), NumberText(value), result);
    }
    HRESULT STDMETHODCALLTYPE getPartAttPoint(BSTR part, BSTR attribute, double* x, double* y, double* z,
                                              long* result) override {
        const auto work = [&] {
            const auto point = GetReals(TheServer(), FromBstr(part), FromBstr(attribute), 3);
            *x = point[0];
            *y = point[1];
            *z = point[2];
            return PointText(*x, *y, *z);
        };
        return this->Answer("getPartAttPoint", Address(part, attribute), work, result, x, y, z);
    }
    HRESULT STDMETHODCALLTYPE setPartAttPoint(BSTR part, BSTR attribute, double x, double y, double z,
                                              long* result) override {
        return Set("setPartAttPoint", part, attribute, PointText(x, y, z), PointText(x, y, z), result);
    }

    HRESULT STDMETHODCALLTYPE createPart(BSTR command, BSTR* reply, long* result) override {
        return this->Command("createPart", command, CreatePart, reply, result);
    }
    HRESULT STDMETHODCALLTYPE selectPart(BSTR command, BSTR* reply, long* result) override {
        return this->Command("selectPart", command, TakeCommand, reply, result);
    }
    HRESULT STDMETHODCALLTYPE reservedSlot17() override {
        ReportViolation("Slot 17 of " + this->CallName("reservedSlot17") + " was called; its signature is not known.");
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE createConnectionStub(BSTR command, BSTR* reply, long* result) override {
        return this->Command("createConnectionStub", command, CreateConnectionStub, reply, result);
    }

    HRESULT STDMETHODCALLTYPE setBinVariableSize(long variable, long size, long* result) override {
        const auto work = [&] { return TheServer().variables.SetSize(variable, size), std::string(); };
        return this->Answer("setBinVariableSize", std::to_string(variable) + " " + std::to_string(size), work, result);
    }
    HRESULT STDMETHODCALLTYPE setBinVariableData(long variable, long offset, BSTR hexData, long* result) override {
        const std::string data = FromBstr(hexData);
        const auto work = [&] { return TheServer().variables.SetData(variable, offset, data), std::string(); };
        return this->Answer("setBinVariableData",
                            std::to_string(variable) + " " + std::to_string(offset) + " " + Quoted(data), work, result);
    }
    HRESULT STDMETHODCALLTYPE freeBinVariable(long variable, long* result) override {
        const auto work = [&] { return TheServer().variables.Free(variable), std::string(); };
        return this->Answer("freeBinVariable", std::to_string(variable), work, result);
    }

    HRESULT STDMETHODCALLTYPE manageProductData(BSTR command, long* result) override {
        return this->Command("manageProductData", command, ManageProductData, result);
    }
    HRESULT STDMETHODCALLTYPE erasePart(BSTR command, long* result) override {
        return this->Command("erasePart", command, ErasePart, result);
    }
    HRESULT STDMETHODCALLTYPE movePart(BSTR command, long* result) override {
        return this->Command("movePart", command, TakeCommand, result);
    }

 private:
    static const ProjectTree& TheReader() { return TheServer().project; }

    HRESULT Set(const char* method, BSTR part, BSTR attribute, const std::string& value, const std::string& shown,
                long* result) {
        const auto work = [&] {
            SetAttribute(TheServer(), FromBstr(part), FromBstr(attribute), value);
            return std::string();
        };
        return this->Answer(method, Address(part, attribute) + " " + shown, work, result);
    }
};

template <class Interface>
class Klimora201011 : public Klimora200805<Interface> {
 public:
    using Klimora200805<Interface>::Klimora200805;

    HRESULT STDMETHODCALLTYPE manageCalculationDatabase(BSTR command, BSTR* reply, long* result) override {
        return this->Command("manageCalculationDatabase", command, TakeCommand, reply, result);
    }
    HRESULT STDMETHODCALLTYPE selectProduct(BSTR command, long* result) override {
        return this->Command("selectProduct", command, TakeCommand, result);
    }
};

class KlimoraLatest : public Klimora201011<KLIMCOMSRVLib::IKlimoraLatest> {
 public:
    using Klimora201011<KLIMCOMSRVLib::IKlimoraLatest>::Klimora201011;

    HRESULT STDMETHODCALLTYPE calculate(BSTR command, long* result) override {
        return Command("calculate", command, TakeCommand, result);
    }
};

HRESULT QueryDrawing(REFIID id, void** object);
HRESULT QueryKlimora(REFIID id, void** object);

// Never destroyed: clients may keep references until the process ends.
struct Objects {
    ObjectInterface<IDispatch> drawingIdentity{"KlimComSrv.Drawing", QueryDrawing};
    ObjectInterface<KLIMCOMSRVLib::IDrawing> drawing{"IDrawing", QueryDrawing};
    ObjectInterface<IDispatch> klimoraIdentity{"KlimComSrv.Klimora", QueryKlimora};
    Klimora200805<KLIMCOMSRVLib::IKlimora200805> first{"IKlimora200805", QueryKlimora};
    Klimora201011<KLIMCOMSRVLib::IKlimora201011> second{"IKlimora201011", QueryKlimora};
    KlimoraLatest latest{"IKlimoraLatest", QueryKlimora};
    DWORD cookies[2] = {};  // of the running object table; 0 for none
};

Objects& TheObjects() {
    static Objects* const instance = new Objects;
    return *instance;
}

HRESULT AllocateForCaller(IUnknown* pointer, void** object) {
    if (!object) return E_POINTER;
    *object = pointer;
    if (!pointer) return E_NOINTERFACE;
    pointer->AddRef();
    return S_OK;
}

HRESULT QueryDrawing(REFIID id, void** object) {
    IUnknown* pointer = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) pointer = &TheObjects().drawingIdentity;
    if (id == KLIMCOMSRVLib::IID_IDrawing && TheServer().settings.hasDrawing) pointer = &TheObjects().drawing;
    return AllocateForCaller(pointer, object);
}

HRESULT QueryKlimora(REFIID id, void** object) {
    const KlimoraServer& settings = TheServer().settings;
    IUnknown* pointer = nullptr;
    if (id == IID_IUnknown || id == IID_IDispatch) pointer = &TheObjects().klimoraIdentity;
    if (id == KLIMCOMSRVLib::IID_IKlimora200805 && settings.has200805) pointer = &TheObjects().first;
    if (id == KLIMCOMSRVLib::IID_IKlimora201011 && settings.has201011) pointer = &TheObjects().second;
    if (id == KLIMCOMSRVLib::IID_IKlimoraLatest && settings.hasLatest) pointer = &TheObjects().latest;
    return AllocateForCaller(pointer, object);
}

void RegisterProgId(const std::wstring& progId, const CLSID& classId) {
    wchar_t text[40] = {};
    StringFromGUID2(classId, text, static_cast<int>(std::size(text)));
    const DWORD bytes = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    const std::wstring key = progId + L"\\CLSID";
    if (RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text, bytes) != ERROR_SUCCESS)
        ReportViolation("The Klimora fake could not register " + Utf8(progId) + ".");
}

void EnterTable(IUnknown* object, const CLSID& classId, DWORD& cookie) {
    const HRESULT result = RegisterActiveObject(object, classId, ACTIVEOBJECT_STRONG, &cookie);
    if (FAILED(result))
        ReportViolation("The Klimora fake could not enter the running object table (HRESULT " + std::to_string(result) +
                        ").");
}

}  // namespace

void PublishObjects(const KlimoraServer& server) {
    g_publishing = true;
    Objects& objects = TheObjects();
    if (server.drawingInstalled) RegisterProgId(kDrawingProgId, kDrawingClass);
    if (server.klimoraInstalled) RegisterProgId(kKlimoraProgId, kKlimoraClass);
    if (server.drawingRunning) EnterTable(&objects.drawingIdentity, kDrawingClass, objects.cookies[0]);
    if (server.klimoraRunning) EnterTable(&objects.klimoraIdentity, kKlimoraClass, objects.cookies[1]);
    g_publishing = false;
}

void WithdrawObjects() {
    g_publishing = true;
    for (DWORD& cookie : TheObjects().cookies) {
        if (cookie != 0) RevokeActiveObject(cookie, nullptr);
        cookie = 0;
    }
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kDrawingProgId);
    RegDeleteTreeW(HKEY_CLASSES_ROOT, kKlimoraProgId);
    g_publishing = false;
}

}  // namespace bench::klimora
