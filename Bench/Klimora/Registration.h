// What makes a Klimora visible on a machine: its ProgIDs in the registry (of the Wine prefix) and its running objects.
// Everything that was registered is taken away again; what cannot be registered is an accusation.
// Contract: rows C1 and C2.
#pragma once

#include <windows.h>
#include <objbase.h>

#include <string>

namespace bench::klimora {

// An object in the running object table; revoked by Revoke or at the end.
class RunningObject {
 public:
    RunningObject() = default;
    ~RunningObject() { Revoke(); }
    RunningObject(const RunningObject&) = delete;
    RunningObject& operator=(const RunningObject&) = delete;
    void Register(IUnknown* object, const CLSID& classId);
    void Revoke();

 private:
    bool registered_ = false;
    DWORD cookie_ = 0;
};

void RegisterProgId(const std::wstring& progId, const CLSID& classId);
void RemoveProgId(const std::wstring& progId);

}  // namespace bench::klimora
