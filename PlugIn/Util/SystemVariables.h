// AutoCAD's system variables: 16-bit values, and a guard that restores one. Results are true when AutoCAD returned
// success.
#pragma once

namespace KLUtils {

bool SetSysVarShort(const wchar_t* name, short value);
// Sets the value to 0 on failure.
bool GetSysVarShort(const wchar_t* name, short& value);
bool CmdEchoOff();
bool CmdEchoOn();
short GetCurrentViewport();

}  // namespace KLUtils

// Sets a 16-bit system variable and restores it in the destructor. Changes nothing when the old value cannot be read.
class SystemVariableGuard {
 public:
    SystemVariableGuard(const wchar_t* name, short value);
    SystemVariableGuard(const SystemVariableGuard&) = delete;
    SystemVariableGuard& operator=(const SystemVariableGuard&) = delete;
    ~SystemVariableGuard();

 private:
    const wchar_t* name_;
    short saved_ = 0;
    bool changed_ = false;
};
