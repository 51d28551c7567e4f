#include "Util/SystemVariables.h"

#include <windows.h>

#include <acedads.h>
#include <adscodes.h>
#include <adsdef.h>

#include "Util/ArxHandles.h"

namespace KLUtils {

bool SetSysVarShort(const wchar_t* name, short value) {
    resbuf buffer = {};
    buffer.restype = RTSHORT;
    buffer.resval.rint = value;
    return acedSetVar(name, &buffer) == RTNORM;
}

bool GetSysVarShort(const wchar_t* name, short& value) {
    resbuf buffer = {};
    const bool read = acedGetVar(name, &buffer) == RTNORM;
    // AutoCAD allocated the string of a text variable.
    const ArxString text(read && buffer.restype == RTSTR ? buffer.resval.rstring : nullptr);
    const bool isShort = read && buffer.restype == RTSHORT;
    value = isShort ? buffer.resval.rint : static_cast<short>(0);
    return isShort;
}

bool CmdEchoOff() {
    return SetSysVarShort(L"CMDECHO", 0);
}

bool CmdEchoOn() {
    return SetSysVarShort(L"CMDECHO", 1);
}

short GetCurrentViewport() {
    short number = 0;
    GetSysVarShort(L"CVPORT", number);
    return number;
}

}  // namespace KLUtils

SystemVariableGuard::SystemVariableGuard(const wchar_t* name, short value) : name_(name) {
    changed_ = KLUtils::GetSysVarShort(name_, saved_) && KLUtils::SetSysVarShort(name_, value);
}

SystemVariableGuard::~SystemVariableGuard() {
    if (changed_) KLUtils::SetSysVarShort(name_, saved_);
}
