// Neighbours that answer at once, so that a figure is the module's and not a stand-in's. One of each at a time.
#pragma once

#include <windows.h>

#include <array>
#include <deque>
#include <string>

#include "ImportPatch.h"
#include "KLIMCOMSRVLib.h"

// Klimora's running server with some slots of its own: it has silencers with the codes SORV1, SORV2, … and takes
// attributes, binary variables and products without a look. Other questions go on to the stand-in and its journal.
class QuickServer {
 public:
    QuickServer();
    ~QuickServer();
    QuickServer(const QuickServer&) = delete;
    QuickServer& operator=(const QuickServer&) = delete;

    static void Have(int silencers);
    static long long calls;  // answered here so far

    KLIMCOMSRVLib::IKlimora200805* operator->() const { return server_; }

 private:
    KLIMCOMSRVLib::IKlimora200805* server_ = nullptr;
    void** slots_ = nullptr;
    std::array<void*, 25> own_ = {};
};

// The network has `result` where an address ends in "xml", and else empty files; the record database knows everything
// and keeps nothing; the program that is started is the event that was put into `program`, and ends with code 1.
class QuickRun {
 public:
    explicit QuickRun(const std::string& result);

    static HANDLE program;
    static long long insertions;  // calls of kbinsertatt so far

 private:
    std::deque<ImportPatch> patches_;
};

// Calls of `operator new` by this program so far.
extern long long allocations;
