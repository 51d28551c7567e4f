// A transformation: entry[row][column], with the translation in column 3. The default is the identity. Functions that
// begin with set change and return the object; the others return new values. translation(vector) makes a matrix,
// translation() reads one.
#pragma once

#include "gepnt3d.h"

class ACCORE_PORT AcGeMatrix3d {
 public:
    AcGeMatrix3d();
    AcGeMatrix3d(const AcGeMatrix3d& src);

    GE_DLLDATAEXIMP static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity();

    AcGeMatrix3d operator*(const AcGeMatrix3d& mat) const;
    AcGeMatrix3d inverse() const;

    bool operator==(const AcGeMatrix3d& mat) const;
    bool isEqualTo(const AcGeMatrix3d& mat, const AcGeTol& tol = AcGeContext::gTol) const;

    AcGeMatrix3d& setTranslation(const AcGeVector3d& vec);
    AcGeVector3d translation() const;

    // Stores the axes in columns 0 to 2.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                 const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis, AcGeVector3d& zAxis) const;

    static AcGeMatrix3d translation(const AcGeVector3d& vec);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);

    AcGeMatrix3d& operator=(const AcGeMatrix3d& src) = default;

    double entry[4][4];
};

inline bool AcGeMatrix3d::operator==(const AcGeMatrix3d& mat) const {
    return isEqualTo(mat);
}
