// The connection to Klimora's automation server, which runs inside the same AutoCAD session: owns the server's
// interfaces, converts texts, turns every call's outcome into one number and keeps a one-line trace of the last call.
// Each operation gives 0 (done), -1 (the interface it needs is missing; nothing was sent), -2 (the call itself failed)
// or the server's own code; outputs are written only when the call itself succeeded. AutoCAD's main thread only.
#pragma once

#include <string>
#include <string_view>

#include "KLIMCOMSRVLib.h"

#include "Util/ComTypes.h"

struct TraceSwitches {
    bool keep = false;      // keep every call's trace line
    bool failures = false;  // also print the line of a call that failed
    bool all = false;       // print every call's line
};

class KlimComSrvImpl {
 public:
    // Connects to the running server; throws a const char* that says what is missing.
    KlimComSrvImpl();

    // Date-like number such as 20090300; 0 when it cannot be had. Never traced.
    long getVersion() const;
    // The server's words about its last failure, empty when it has none.
    std::string getLastErrorText() const;

    int getPartAtt(const char* part, const char* attribute, std::string& value);
    int setPartAtt(const char* part, const char* attribute, const char* value);
    int getPartAttDouble(const char* part, const char* attribute, double& value);
    int setPartAttDouble(const char* part, const char* attribute, double value);
    int getPartAttPoint(const char* part, const char* attribute, double& x, double& y, double& z);
    int setPartAttPoint(const char* part, const char* attribute, double x, double y, double z);
    int createPart(const char* command, std::string& reply);
    int selectPart(const char* command, std::string& reply);
    int createConnectionStub(const char* command, std::string& reply);
    int setBinVariableSize(long variable, long size);
    // `hexData`: two hexadecimal digits a byte, for the bytes from `offset` on.
    int setBinVariableData(long variable, long offset, const char* hexData);
    int freeBinVariable(long variable);
    int manageProductData(const char* command);
    int erasePart(const char* command);
    int movePart(const char* command);
    // These three leave a trace line only when the call itself failed.
    int manageCalculationDatabase(const char* command, std::string& reply);
    int selectProduct(const char* command);
    int calculate(const char* command);

    void setTrace(const TraceSwitches& switches) { trace_ = switches; }
    TraceSwitches getTrace() const { return trace_; }
    // The most recent trace line, at most 8191 characters.
    std::string lastTrace() const { return lastTrace_; }

 private:
    using Server = KLIMCOMSRVLib::IKlimora200805;
    using CommandMethod = HRESULT (STDMETHODCALLTYPE Server::*)(BSTR command, long* result);
    using ReplyMethod = HRESULT (STDMETHODCALLTYPE Server::*)(BSTR command, BSTR* reply, long* result);

    // What a trace line says of a call before its arguments and behind its outcome.
    struct TraceFrame {
        std::string_view name;
        std::string_view lineEnd = "\n";
    };

    int Send(const char* name, CommandMethod method, const char* command);
    int SendForReply(const char* name, ReplyMethod method, const char* command, std::string& reply);
    // Gives the result of a call, after its line was traced as the switches say.
    template <class First, class... Others>
    int Traced(HRESULT call, long code, TraceFrame frame, First first, Others... others);

    // Given back from the last one to the first.
    InterfacePtr<KLIMCOMSRVLib::IKlimoraLatest> appLatest_;  // null with an older server
    InterfacePtr<KLIMCOMSRVLib::IKlimora201011> app201011_;
    InterfacePtr<Server> app200805_;
    InterfacePtr<KLIMCOMSRVLib::IDrawing> drawing_;
    TraceSwitches trace_;
    std::string lastTrace_;
};
