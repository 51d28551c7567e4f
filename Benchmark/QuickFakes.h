// Fakes that respond at once, so that a row measures the module and not the fake. Only one of each may exist at a time.
#pragma once

#include <windows.h>
#include <oleauto.h>
#include <wininet.h>

#include <algorithm>
#include <array>
#include <cwchar>
#include <deque>
#include <string>
#include <vector>

#include "ImportPatch.h"
#include "KLIMCOMSRVLib.h"

// Holds a reference to the interface of Klimora's running server.
class RunningServer {
 public:
    RunningServer() {
        CLSID id;
        IUnknown* object = nullptr;
        CLSIDFromProgID(L"KlimComSrv.Klimora", &id);
        GetActiveObject(id, nullptr, &object);
        object->QueryInterface(KLIMCOMSRVLib::IID_IKlimora200805, reinterpret_cast<void**>(&server_));
        object->Release();
    }
    ~RunningServer() { server_->Release(); }
    RunningServer(const RunningServer&) = delete;
    RunningServer& operator=(const RunningServer&) = delete;

    KLIMCOMSRVLib::IKlimora200805* get() const { return server_; }

 private:
    KLIMCOMSRVLib::IKlimora200805* server_ = nullptr;
};

// Replaces some slots of Klimora's running server: it has silencers with the codes SORV1, SORV2, … and accepts
// attributes, binary variables and products without checks. Other calls go to the Klimora fake and its call log.
class QuickServer {
 public:
    QuickServer() {
        slots_ = *reinterpret_cast<void***>(server_.get());
        std::copy_n(slots_, own_.size(), own_.begin());
        forward_ = reinterpret_cast<decltype(forward_)>(own_[9]);
        own_[9] = reinterpret_cast<void*>(GetPartAtt);
        for (const int slot : {10, 19, 20, 21, 22})  // setPartAtt, binary variables, manageProductData
            own_[slot] = reinterpret_cast<void*>(TakeAnything);
        *reinterpret_cast<void***>(server_.get()) = own_.data();
    }
    ~QuickServer() { *reinterpret_cast<void***>(server_.get()) = slots_; }
    QuickServer(const QuickServer&) = delete;
    QuickServer& operator=(const QuickServer&) = delete;

    static void SetSilencers(int silencers) {
        codeCount_ = std::to_wstring(silencers);
        codes_.clear();
        for (int i = 1; i <= silencers; ++i)
            codes_.push_back(L"SORV" + std::to_wstring(i));
    }
    static inline long long calls = 0;  // handled here so far

    KLIMCOMSRVLib::IKlimora200805* operator->() const { return server_.get(); }

 private:
    using Server = KLIMCOMSRVLib::IKlimora200805;

    static HRESULT GetPartAtt(Server* server, BSTR part, BSTR attribute, BSTR* value, long* result) {
        const bool counts = std::wcsncmp(attribute, L"Count(/Project/KPDClass[", 24) == 0;
        if (!counts && std::wcsncmp(attribute, L"/Project/KPDClass[", 18) != 0)
            return forward_(server, part, attribute, value, result);
        ++calls;
        if (counts || nextCode_ == codes_.size()) nextCode_ = 0;
        const std::wstring& text = counts ? codeCount_ : codes_[nextCode_++];
        *value = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
        *result = 0;
        return S_OK;
    }
    // Replaces methods of any signature, because the caller cleans up the stack. Outputs that they leave alone are 0
    // already.
    static ULONG_PTR TakeAnything() {
        ++calls;
        return S_OK;
    }

    static inline HRESULT (*forward_)(Server*, BSTR, BSTR, BSTR*, long*) = nullptr;
    static inline std::wstring codeCount_;
    static inline std::vector<std::wstring> codes_;
    static inline size_t nextCode_ = 0;
    const RunningServer server_;
    void** slots_ = nullptr;
    std::array<void*, 25> own_ = {};
};

// Fakes of network, record database and process start. An address that ends in "xml" has `result`, any other an empty
// file. The record database accepts everything and stores nothing. The started program is the event in `program`, and
// its exit code is 1.
class QuickRun {
 public:
    explicit QuickRun(const std::string& result) {
        body_ = result;
        for (const char* name :
             {"InternetGetConnectedState", "InternetOpenA", "InternetSetOptionA", "InternetCloseHandle",
              "ddk_opendatabase", "ddk_classsymboltoID", "ddk_releasedatabase", "kbopendatabase", "kbclosedatabase",
              "kbcreaterec", "kbdeleterec", "kbfindrec", "kbsaverec", "kbreleaserec"})
            patches_.emplace_back(
                name, +[]() -> ULONG_PTR { return 1; });
        patches_.emplace_back("InternetOpenUrlA", OpenAddress);
        patches_.emplace_back("InternetReadFile", Read);
        patches_.emplace_back("kbinsertatt", InsertAttribute);
        patches_.emplace_back("CreateProcessA", StartProgram);
        patches_.emplace_back("GetExitCodeProcess", ExitCode);
    }

    static inline HANDLE program = nullptr;
    static inline long long insertions = 0;  // calls of kbinsertatt so far

 private:
    static HINTERNET WINAPI OpenAddress(HINTERNET, LPCSTR url, LPCSTR, DWORD, DWORD, DWORD_PTR) {
        const std::string address = url;
        given_ = address.rfind("xml") + 3 == address.size() ? 0 : body_.size();
        return &body_;
    }
    static BOOL WINAPI Read(HINTERNET, LPVOID buffer, DWORD size, LPDWORD read) {
        *read = static_cast<DWORD>(body_.copy(static_cast<char*>(buffer), size, given_));
        given_ += *read;
        return TRUE;
    }
    static short InsertAttribute() {
        ++insertions;
        return 1;
    }
    static BOOL WINAPI StartProgram(LPCSTR, LPSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID,
                                    LPCSTR, LPSTARTUPINFOA, LPPROCESS_INFORMATION process) {
        process->hProcess = program;
        process->hThread = CreateEventA(nullptr, TRUE, FALSE, nullptr);
        return TRUE;
    }
    static BOOL WINAPI ExitCode(HANDLE, LPDWORD code) {
        *code = 1;
        return TRUE;
    }

    static inline std::string body_;
    static inline size_t given_ = 0;
    std::deque<ImportPatch> patches_;
};
