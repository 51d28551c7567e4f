// Required library; this module calls only PickEntity. AutoCAD utilities: coordinate systems, single pick, model space,
// block attributes, host release. A bool result is true when AutoCAD returned success. Only MoveEntity throws. Points
// and vectors are in drawing units. KLUtils_Text.h has number lists and matrices as text, SystemVariables.h system
// variables, WaitCursor.h the wait cursor.
#pragma once

#include <windows.h>

#include <acadstrc.h>
#include <dbid.h>
#include <gemat3d.h>
#include <gepnt3d.h>
#include <gevec3d.h>

#include "Util/KLUtils_Text.h"
#include "Util/SystemVariables.h"
#include "Util/WaitCursor.h"

class AcDbBlockReference;
class AcDbEntity;

namespace KLUtils {

// Reads the matrix of the user coordinate system. Returns false and the identity when its origin or an axis cannot be
// read.
bool GetUcsMatrix(AcGeMatrix3d& matrix);
bool WcsToUcsPoint(const AcGePoint3d& point, AcGePoint3d& result);
bool UcsToWcsPoint(const AcGePoint3d& point, AcGePoint3d& result);
bool UcsToWcsVector(const AcGeVector3d& vector, AcGeVector3d& result);
bool WcsToUcsVector(const AcGeVector3d& vector, AcGeVector3d& result);
// Returns the x direction of the drawing's user coordinate system, or the world's x axis without a drawing.
AcGeVector3d GetUcsXDir();
// Computes the transformation between two coordinate systems. `offset` is the difference of their translation columns,
// `angles` the rotation in radians as yaw, pitch and roll, about z, the new y and the new x:
// R(second) = R(first) * Rz(angles[0]) * Ry(angles[1]) * Rx(angles[2]). The axes must be perpendicular and may have any
// length. At a pitch of +-90 degrees the roll is 0.
void GetTransformDifference(const AcGeMatrix3d& first, const AcGeMatrix3d& second, AcGeVector3d& offset,
                            double angles[3]);

// Lets the user pick one entity. Returns false when nothing was picked. Does not open the entity.
bool PickEntity(const wchar_t* prompt, AcDbObjectId& id);
// With eOk the database owns the entity, otherwise the caller; it stays open in both cases.
Acad::ErrorStatus AppendToModelSpace(AcDbEntity* entity, AcDbObjectId& id);
// Sets every attribute whose tag equals `tag` in its first 32 characters. Returns 0; -1 for a null reference, or after
// reporting a failure.
int UpdateAttribute(AcDbBlockReference* reference, const char* tag, const char* value);
// Throws std::runtime_error when the entity cannot be opened for writing.
void MoveEntity(AcDbObjectId id, const AcGeVector3d& displacement);

// Returns true when the model tab is active, false without a drawing.
bool IsTileModeOn();

// A release as "major.minor" text, such as "24.1".
using HostRelease = char[20];
// Returns true when the release of the running AutoCAD is one of the `count` entries.
bool IsHostReleaseListed(const HostRelease* releases, int count);

}  // namespace KLUtils
