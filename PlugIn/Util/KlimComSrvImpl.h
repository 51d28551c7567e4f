// The connection to Klimora's automation server, which runs inside the same AutoCAD session. Owns the server's
// interfaces, converts strings, maps each call's outcome to one result and keeps a one-line trace of the last call.
// Operations return 0, -1 when their interface is missing (nothing is sent), -2 when the COM call failed, or the
// server's own code. They write outputs only when the COM call succeeded. AutoCAD's main thread only.
#pragma once

#include <string>
#include <string_view>

#include "KLIMCOMSRVLib.h"

#include "Util/ComTypes.h"

struct TraceSwitches {
    bool keep = false;      // keep every call's trace line
    bool failures = false;  // also print the line of a failed call
    bool all = false;       // print every call's line
};
inline constexpr TraceSwitches kNoTrace{};

class KlimComSrvImpl {
 public:
    // Connects to the running server. Throws a const char* that names what is missing.
    KlimComSrvImpl();

    // Returns a number such as 20090300, or 0 when it is unavailable. Not traced.
    long getVersion() const;
    // Returns the server's text on its last failure, or an empty text.
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
    // `hexData`: two hexadecimal digits for each byte from `offset` on.
    int setBinVariableData(long variable, long offset, const char* hexData);
    int freeBinVariable(long variable);
    int manageProductData(const char* command);
    int erasePart(const char* command);
    int movePart(const char* command);
    // These three write a trace line only when the COM call failed.
    int manageCalculationDatabase(const char* command, std::string& reply);
    int selectProduct(const char* command);
    int calculate(const char* command);

    void setTrace(const TraceSwitches& switches) { trace_ = switches; }
    TraceSwitches getTrace() const { return trace_; }
    // Returns the last trace line, at most 8191 characters.
    std::string lastTrace() const { return lastTrace_; }

 private:
    using Server = KLIMCOMSRVLib::IKlimora200805;
    using CommandMethod = HRESULT (STDMETHODCALLTYPE Server::*)(BSTR command, long* result);
    using ReplyMethod = HRESULT (STDMETHODCALLTYPE Server::*)(BSTR command, BSTR* reply, long* result);

    // The start and the end of a trace line.
    struct TraceFrame {
        std::string_view name;
        std::string_view lineEnd = "\n";
    };

    int Send(const char* name, CommandMethod method, const char* command);
    int SendForReply(const char* name, ReplyMethod method, const char* command, std::string& reply);
    // Writes the call's trace line as the switches demand. Returns the operation's result.
    template <class First, class... Others>
    int Trace(HRESULT call, long code, TraceFrame frame, First first, Others... others);

    // Members are released last to first: the drawing first, the latest interface last.
    InterfacePtr<KLIMCOMSRVLib::IKlimoraLatest> appLatest_;  // null with an older server
    InterfacePtr<KLIMCOMSRVLib::IKlimora201011> app201011_;
    InterfacePtr<Server> app200805_;
    InterfacePtr<KLIMCOMSRVLib::IDrawing> drawing_;
    TraceSwitches trace_;
    std::string lastTrace_;
};
