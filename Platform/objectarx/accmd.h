// The command stack. The host copies names. A group is created with its first command; a second command of the same
// name in a group is refused. The stack calls the function, which must not throw. acedRegCmds is a macro that looks up
// the stack at each use.
#pragma once

#include "acadstrc.h"
#include "accmd-defs.h"
#include "rxdict.h"
#include "rxresource.h"

#define ACRX_COMMAND_DOCK ACRX_T("ACAD_REGISTERED_COMMANDS")
#define ACRX_MAX_CMDNAME_LEN 64

class AcEdCommand;
class AcEdUIContext;

typedef void (*AcRxFunctionPtr)();

class ACCORE_PORT AcEdCommandStack : public AcRxObject {
 public:
    ACRX_DECLARE_MEMBERS(AcEdCommandStack)
    // With fcode -1 the stack calls FunctionAddr.
    virtual Acad::ErrorStatus addCommand(const ACHAR* cmdGroupName, const ACHAR* cmdGlobalName,
                                         const ACHAR* cmdLocalName, Adesk::Int32 commandFlags,
                                         AcRxFunctionPtr FunctionAddr, AcEdUIContext* UIContext = NULL, int fcode = -1,
                                         const AcRxResourceInstance& resourceInstance = AcRxResourceInstance::empty(),
                                         AcEdCommand** cmdPtrRet = NULL) = 0;
    // Returns eKeyNotFound when there is no such group.
    virtual Acad::ErrorStatus removeGroup(const ACHAR* groupName) = 0;
};

#define acedRegCmds AcEdCommandStack::cast(acrxSysRegistry()->at(ACRX_COMMAND_DOCK))
