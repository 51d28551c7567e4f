#include "ServerCall.h"

#include "Refusal.h"
#include "Server.h"
#include "Texts.h"

namespace bench::klimora {
namespace {

constexpr long kSmallestOwnCode = -65536;

bool IsHresult(long code) {
    return code < kSmallestOwnCode;
}

HRESULT ServerGone() {
    return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
}

void Refuse(Call& call, long* result, long code, const std::string& text) {
    TheServer().lastError = text;
    *result = code;
    call.result(code);
}

}  // namespace

HRESULT AnswerCall(const std::string& name, const std::string& arguments, long* result,
                   const std::function<void()>& clearOutputs, const std::function<std::string()>& work) {
    Call call(name.c_str(), arguments);
    const long planned = call.fails() ? call.failureCode(E_FAIL) : 0;
    if (IsHresult(planned)) {
        call.result("HRESULT " + std::to_string(planned));
        return planned;
    }
    if (!TheServer().started) return ServerGone();
    if (!result) {
        Accuse(name + " was called without a place for its result.");
        return E_POINTER;
    }
    clearOutputs();
    if (call.fails()) {
        Refuse(call, result, planned, name + " was planned to fail.");
        return S_OK;
    }
    try {
        const std::string outputs = work();
        *result = 0;
        TheServer().lastError.clear();
        call.result(outputs.empty() ? "0" : outputs + " 0");
    } catch (const Refusal& refusal) {
        Refuse(call, result, refusal.code(), refusal.what());
    }
    return S_OK;
}

HRESULT AnswerPlainCall(const std::string& name, bool outputsGiven, const std::function<std::string()>& work) {
    Call call(name.c_str(), "");
    if (call.fails()) {
        const long planned = call.failureCode(E_FAIL);
        const HRESULT failure = FAILED(planned) ? planned : E_FAIL;
        call.result("HRESULT " + std::to_string(failure));
        return failure;
    }
    if (!TheServer().started) return ServerGone();
    if (!outputsGiven) {
        Accuse(name + " was called without a place for its output.");
        return E_POINTER;
    }
    call.result(work());
    return S_OK;
}

std::string Quoted(BSTR text) {
    return Quoted(FromBstr(text));
}

}  // namespace bench::klimora
