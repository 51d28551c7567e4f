#include "Registration.h"

#include <oleauto.h>

#include "BenchControl.h"
#include "Texts.h"

namespace bench::klimora {

void RunningObject::Register(IUnknown* object, const CLSID& classId) {
    const HRESULT result = RegisterActiveObject(object, classId, ACTIVEOBJECT_STRONG, &cookie_);
    registered_ = SUCCEEDED(result);
    if (!registered_)
        Accuse("The Klimora stand-in could not enter the running object table (HRESULT " + std::to_string(result) +
               ").");
}

void RunningObject::Revoke() {
    if (registered_) RevokeActiveObject(cookie_, nullptr);
    registered_ = false;
}

void RegisterProgId(const std::wstring& progId, const CLSID& classId) {
    wchar_t text[40] = {};
    StringFromGUID2(classId, text, static_cast<int>(std::size(text)));
    const DWORD bytes = static_cast<DWORD>((std::wcslen(text) + 1) * sizeof(wchar_t));
    const std::wstring key = progId + L"\\CLSID";
    if (RegSetKeyValueW(HKEY_CLASSES_ROOT, key.c_str(), nullptr, REG_SZ, text, bytes) != ERROR_SUCCESS)
        Accuse("The Klimora stand-in could not register " + Utf8(progId) + ".");
}

void RemoveProgId(const std::wstring& progId) {
    RegDeleteTreeW(HKEY_CLASSES_ROOT, progId.c_str());
}

}  // namespace bench::klimora
