// Interface pointers of the server objects. A Face is one interface of one object: it counts its own references,
// answers QueryInterface through its object and offers no names to IDispatch (clients call the slots). The three
// Klimora interfaces are built on each other as the declarations are, so each method exists once.
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <string>

#include "Attributes.h"
#include "InterfaceCount.h"
#include "KLIMCOMSRVLib.h"
#include "PartCommands.h"
#include "ProductCommands.h"
#include "Server.h"
#include "ServerCall.h"
#include "Texts.h"

namespace bench::klimora {

using QueryFunction = HRESULT (*)(REFIID, void**);

template <class Interface>
class Face : public Interface {
 public:
    Face(const char* name, QueryFunction query) : count_(name), query_(query) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override { return query_(id, object); }
    ULONG STDMETHODCALLTYPE AddRef() override { return count_.Add(); }
    ULONG STDMETHODCALLTYPE Release() override { return count_.Release(); }

    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return DISP_E_BADINDEX; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }

 protected:
    std::string CallName(const char* method) const { return count_.Name() + "::" + method; }

    template <class Work>
    HRESULT Command(const char* method, BSTR command, long* result, Work work) {
        return AnswerCall(
            CallName(method), FromBstr(command), result, [] {},
            [&] {
                work(TheServer(), FromBstr(command));
                return std::string();
            });
    }
    template <class Work>
    HRESULT CommandWithReply(const char* method, BSTR command, BSTR* reply, long* result, Work work) {
        return AnswerCall(
            CallName(method), FromBstr(command), reply ? result : nullptr, [&] { *reply = ToBstr(""); },
            [&] {
                const std::string text = work(TheServer(), FromBstr(command));
                SysReAllocString(reply, FromUtf8(text).c_str());
                return Quoted(text);
            });
    }

 private:
    InterfaceCount count_;
    QueryFunction query_;
};

template <class Interface>
class Face200805 : public Face<Interface> {
 public:
    using Face<Interface>::Face;

    HRESULT STDMETHODCALLTYPE getVersion(long* version) override {
        return AnswerPlainCall(this->CallName("getVersion"), version, [&] {
            *version = TheServer().settings.version;
            return std::to_string(*version);
        });
    }
    HRESULT STDMETHODCALLTYPE getLastErrorText(BSTR* text) override {
        return AnswerPlainCall(this->CallName("getLastErrorText"), text, [&] {
            *text = ToBstr(TheServer().lastError);
            return Quoted(TheServer().lastError);
        });
    }

    HRESULT STDMETHODCALLTYPE getPartAtt(BSTR part, BSTR attribute, BSTR* value, long* result) override {
        return AnswerCall(
            this->CallName("getPartAtt"), Address(part, attribute), value ? result : nullptr,
            [&] { *value = ToBstr(""); },
            [&] {
                const std::string text = GetAttribute(TheServer(), FromBstr(part), FromBstr(attribute));
                SysReAllocString(value, FromUtf8(text).c_str());
                return Quoted(text);
            });
    }
    HRESULT STDMETHODCALLTYPE setPartAtt(BSTR part, BSTR attribute, BSTR value, long* result) override {
        return Set("setPartAtt", part, attribute, FromBstr(value), Quoted(value), result);
    }
    HRESULT STDMETHODCALLTYPE getPartAttDouble(BSTR part, BSTR attribute, double* value, long* result) override {
        return AnswerCall(
            this->CallName("getPartAttDouble"), Address(part, attribute), value ? result : nullptr, [&] { *value = 0; },
            [&] {
                *value = GetReals(TheServer(), FromBstr(part), FromBstr(attribute), 1)[0];
                return NumberText(*value);
            });
    }
    HRESULT STDMETHODCALLTYPE setPartAttDouble(BSTR part, BSTR attribute, double value, long* result) override {
        return Set("setPartAttDouble", part, attribute, NumberText(value), NumberText(value), result);
    }
    HRESULT STDMETHODCALLTYPE getPartAttPoint(BSTR part, BSTR attribute, double* x, double* y, double* z,
                                              long* result) override {
        return AnswerCall(
            this->CallName("getPartAttPoint"), Address(part, attribute), x && y && z ? result : nullptr,
            [&] { *x = *y = *z = 0; },
            [&] {
                const auto point = GetReals(TheServer(), FromBstr(part), FromBstr(attribute), 3);
                *x = point[0];
                *y = point[1];
                *z = point[2];
                return PointText(*x, *y, *z);
            });
    }
    HRESULT STDMETHODCALLTYPE setPartAttPoint(BSTR part, BSTR attribute, double x, double y, double z,
                                              long* result) override {
        return Set("setPartAttPoint", part, attribute, PointText(x, y, z), PointText(x, y, z), result);
    }

    HRESULT STDMETHODCALLTYPE createPart(BSTR command, BSTR* reply, long* result) override {
        return this->CommandWithReply("createPart", command, reply, result, CreatePart);
    }
    HRESULT STDMETHODCALLTYPE selectPart(BSTR command, BSTR* reply, long* result) override {
        return this->CommandWithReply("selectPart", command, reply, result, SelectPart);
    }
    HRESULT STDMETHODCALLTYPE reservedSlot17() override {
        Accuse("Slot 17 of " + this->CallName("reservedSlot17") + " was called; its signature is not known.");
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE createConnectionStub(BSTR command, BSTR* reply, long* result) override {
        return this->CommandWithReply("createConnectionStub", command, reply, result, CreateConnectionStub);
    }

    HRESULT STDMETHODCALLTYPE setBinVariableSize(long variable, long size, long* result) override {
        return AnswerCall(
            this->CallName("setBinVariableSize"), std::to_string(variable) + " " + std::to_string(size), result, [] {},
            [&] {
                TheServer().variables.SetSize(variable, size);
                return std::string();
            });
    }
    HRESULT STDMETHODCALLTYPE setBinVariableData(long variable, long offset, BSTR hexData, long* result) override {
        const std::string data = FromBstr(hexData);
        return AnswerCall(
            this->CallName("setBinVariableData"),
            std::to_string(variable) + " " + std::to_string(offset) + " " + Quoted(data), result, [] {},
            [&] {
                TheServer().variables.SetData(variable, offset, data);
                return std::string();
            });
    }
    HRESULT STDMETHODCALLTYPE freeBinVariable(long variable, long* result) override {
        return AnswerCall(
            this->CallName("freeBinVariable"), std::to_string(variable), result, [] {},
            [&] {
                TheServer().variables.Free(variable);
                return std::string();
            });
    }

    HRESULT STDMETHODCALLTYPE manageProductData(BSTR command, long* result) override {
        return this->Command("manageProductData", command, result, ManageProductData);
    }
    HRESULT STDMETHODCALLTYPE erasePart(BSTR command, long* result) override {
        return this->Command("erasePart", command, result, ErasePart);
    }
    HRESULT STDMETHODCALLTYPE movePart(BSTR command, long* result) override {
        return Keep("movePart", command, result);
    }

 protected:
    HRESULT Keep(const char* method, BSTR command, long* result) {
        return this->Command(method, command, result,
                             [&](Server& server, const std::string& text) { KeepRequest(server, method, text); });
    }

 private:
    static std::string Address(BSTR part, BSTR attribute) { return Quoted(part) + " " + Quoted(attribute); }

    HRESULT Set(const char* method, BSTR part, BSTR attribute, const std::string& value, const std::string& shown,
                long* result) {
        return AnswerCall(
            this->CallName(method), Address(part, attribute) + " " + shown, result, [] {},
            [&] {
                SetAttribute(TheServer(), FromBstr(part), FromBstr(attribute), value);
                return std::string();
            });
    }
};

template <class Interface>
class Face201011 : public Face200805<Interface> {
 public:
    using Face200805<Interface>::Face200805;

    HRESULT STDMETHODCALLTYPE manageCalculationDatabase(BSTR command, BSTR* reply, long* result) override {
        return this->CommandWithReply("manageCalculationDatabase", command, reply, result,
                                      [](Server& server, const std::string& text) {
                                          KeepRequest(server, "manageCalculationDatabase", text);
                                          return std::string("<ManageCalculationDatabase/>");
                                      });
    }
    HRESULT STDMETHODCALLTYPE selectProduct(BSTR command, long* result) override {
        return this->Keep("selectProduct", command, result);
    }
};

class FaceLatest : public Face201011<KLIMCOMSRVLib::IKlimoraLatest> {
 public:
    using Face201011<KLIMCOMSRVLib::IKlimoraLatest>::Face201011;

    HRESULT STDMETHODCALLTYPE calculate(BSTR command, long* result) override {
        return Keep("calculate", command, result);
    }
};

}  // namespace bench::klimora
