#include "QuickNeighbours.h"

#include <oleauto.h>
#include <wininet.h>

#include <algorithm>
#include <cstdlib>
#include <cwchar>
#include <new>
#include <vector>

using KLIMCOMSRVLib::IKlimora200805;

HANDLE QuickRun::program = nullptr;
long long QuickRun::insertions = 0;
long long QuickServer::calls = 0;
long long allocations = 0;

namespace {

HRESULT (*askStandIn)(IKlimora200805*, BSTR, BSTR, BSTR*, long*) = nullptr;
std::wstring codeCount;
std::vector<std::wstring> codes;
size_t nextCode = 0;

HRESULT GetPartAtt(IKlimora200805* server, BSTR part, BSTR attribute, BSTR* value, long* result) {
    const bool counts = std::wcsncmp(attribute, L"Count(/Project/KPDClass[", 24) == 0;
    if (!counts && std::wcsncmp(attribute, L"/Project/KPDClass[", 18) != 0)
        return askStandIn(server, part, attribute, value, result);
    ++QuickServer::calls;
    if (counts || nextCode == codes.size()) nextCode = 0;
    const std::wstring& text = counts ? codeCount : codes[nextCode++];
    *value = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    *result = 0;
    return S_OK;
}

// In the place of functions of any signature, since the caller cleans the stack: what they leave alone is 0 already.
ULONG_PTR TakeAnything() {
    ++QuickServer::calls;
    return S_OK;
}
ULONG_PTR One() {
    return 1;
}

std::string body;
size_t given = 0;

HINTERNET WINAPI OpenAddress(HINTERNET, LPCSTR url, LPCSTR, DWORD, DWORD, DWORD_PTR) {
    const std::string address = url;
    given = address.rfind("xml") + 3 == address.size() ? 0 : body.size();
    return &body;
}
BOOL WINAPI Read(HINTERNET, LPVOID buffer, DWORD size, LPDWORD read) {
    *read = static_cast<DWORD>(body.copy(static_cast<char*>(buffer), size, given));
    given += *read;
    return TRUE;
}
short InsertAttribute() {
    ++QuickRun::insertions;
    return 1;
}
BOOL WINAPI StartProgram(LPCSTR, LPSTR, LPSECURITY_ATTRIBUTES, LPSECURITY_ATTRIBUTES, BOOL, DWORD, LPVOID, LPCSTR,
                         LPSTARTUPINFOA, LPPROCESS_INFORMATION process) {
    process->hProcess = QuickRun::program;
    process->hThread = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    return TRUE;
}
BOOL WINAPI ExitCode(HANDLE, LPDWORD code) {
    *code = 1;
    return TRUE;
}

}  // namespace

QuickServer::QuickServer() {
    CLSID id;
    IUnknown* object = nullptr;
    CLSIDFromProgID(L"KlimComSrv.Klimora", &id);
    GetActiveObject(id, nullptr, &object);
    object->QueryInterface(KLIMCOMSRVLib::IID_IKlimora200805, reinterpret_cast<void**>(&server_));
    object->Release();
    slots_ = *reinterpret_cast<void***>(server_);
    std::copy_n(slots_, own_.size(), own_.begin());
    askStandIn = reinterpret_cast<decltype(askStandIn)>(own_[9]);
    own_[9] = reinterpret_cast<void*>(GetPartAtt);
    for (const int slot : {10, 19, 20, 21, 22})  // setPartAtt, binary variables, manageProductData
        own_[slot] = reinterpret_cast<void*>(TakeAnything);
    *reinterpret_cast<void***>(server_) = own_.data();
}

QuickServer::~QuickServer() {
    *reinterpret_cast<void***>(server_) = slots_;
    server_->Release();
}

void QuickServer::Have(int silencers) {
    codeCount = std::to_wstring(silencers);
    codes.clear();
    for (int i = 1; i <= silencers; ++i)
        codes.push_back(L"SORV" + std::to_wstring(i));
}

QuickRun::QuickRun(const std::string& result) {
    body = result;
    for (const char* name : {"InternetGetConnectedState", "InternetOpenA", "InternetSetOptionA", "InternetCloseHandle",
                             "ddk_opendatabase", "ddk_classsymboltoID", "ddk_releasedatabase", "kbopendatabase",
                             "kbclosedatabase", "kbcreaterec", "kbdeleterec", "kbfindrec", "kbsaverec", "kbreleaserec"})
        patches_.emplace_back(name, One);
    patches_.emplace_back("InternetOpenUrlA", OpenAddress);
    patches_.emplace_back("InternetReadFile", Read);
    patches_.emplace_back("kbinsertatt", InsertAttribute);
    patches_.emplace_back("CreateProcessA", StartProgram);
    patches_.emplace_back("GetExitCodeProcess", ExitCode);
}

// The program's other forms of allocation end in these.
void* operator new(std::size_t size) {
    ++allocations;
    if (void* const block = std::malloc(size)) return block;
    throw std::bad_alloc();
}
void operator delete(void* block) noexcept {
    std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
