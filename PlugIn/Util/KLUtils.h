// Helpers at AutoCAD's side: coordinate systems, single pick, model space, block attributes, system variables, host
// release. Results are bool (AutoCAD answered normally) or a status; MoveEntity alone throws. Points and vectors are in
// drawing units. Number lists and matrices as text are in KLUtils_Text.h, the wait cursor in WaitCursor.h.
#pragma once

#include <windows.h>

#include <acadstrc.h>
#include <dbid.h>
#include <gemat3d.h>
#include <gepnt3d.h>
#include <gevec3d.h>

#include "Util/KLUtils_Text.h"
#include "Util/WaitCursor.h"

class AcDbBlockReference;
class AcDbEntity;

namespace KLUtils {

// Matrix of the user's coordinate system. False, with the identity, when AutoCAD does not give its origin or an axis.
bool GetUcsMatrix(AcGeMatrix3d& matrix);
bool WcsToUcsPoint(const AcGePoint3d& point, AcGePoint3d& result);
bool UcsToWcsPoint(const AcGePoint3d& point, AcGePoint3d& result);
bool UcsToWcsVector(const AcGeVector3d& vector, AcGeVector3d& result);
bool WcsToUcsVector(const AcGeVector3d& vector, AcGeVector3d& result);
// x direction of the working database's user coordinate system; the world's x axis without a drawing.
AcGeVector3d GetUcsXDir();
// What leads from one coordinate system to the other: `offset` is the difference of their translation columns, `angles`
// the rotation in radians as yaw, pitch and roll, about z, then the new y, then the new x:
// R(second) = R(first) * Rz(angles[0]) * Ry(angles[1]) * Rx(angles[2]), each by atan2. Axes of any length will do, but
// must be perpendicular. At a pitch of +-90 degrees the roll is 0.
void GetTransformDifference(const AcGeMatrix3d& first, const AcGeMatrix3d& second, AcGeVector3d& offset,
                            double angles[3]);

// Lets the user pick one entity under the prompt. False when nothing was picked; the entity is not opened.
bool PickEntity(const wchar_t* prompt, AcDbObjectId& id);
// The database owns the entity only with eOk; it stays open either way.
Acad::ErrorStatus AppendToModelSpace(AcDbEntity* entity, AcDbObjectId& id);
// Sets every attribute whose tag (its first 32 characters) is `tag`. 0, or -1 for a null reference or a failure, which
// is told on the command line.
int UpdateAttribute(AcDbBlockReference* reference, const char* tag, const char* value);
// Throws std::runtime_error when the entity cannot be opened for writing.
void MoveEntity(AcDbObjectId id, const AcGeVector3d& displacement);

bool SetSysVarShort(const wchar_t* name, short value);
// On failure the value is 0.
bool GetSysVarShort(const wchar_t* name, short& value);
bool CmdEchoOff();
bool CmdEchoOn();
// The model layout is active; false without a drawing.
bool IsTileModeOn();
short GetCurrentViewport();

// An entry of a list of host releases: "24.1", at most 19 characters.
using HostRelease = char[20];
// The running AutoCAD's "major.minor" is exactly one of the `count` entries.
bool IsHostReleaseListed(const HostRelease* releases, int count);

}  // namespace KLUtils
