// A transformation: entry[row][column], the translation in column 3; a new one is the identity. setTo...(), preMultBy,
// postMultBy and invert change the object and return it, the static factories and the other functions give new values.
// translation(vector) makes a matrix, translation() reads one.
#pragma once

#include "gepnt3d.h"

class AcGeMatrix3d {
 public:
    AcGeMatrix3d();
    AcGeMatrix3d(const AcGeMatrix3d& src);

    GE_DLLDATAEXIMP static const AcGeMatrix3d kIdentity;

    AcGeMatrix3d& setToIdentity();

    AcGeMatrix3d operator*(const AcGeMatrix3d& mat) const;
    AcGeMatrix3d& operator*=(const AcGeMatrix3d& mat);
    AcGeMatrix3d& preMultBy(const AcGeMatrix3d& leftSide);
    AcGeMatrix3d& postMultBy(const AcGeMatrix3d& rightSide);

    AcGeMatrix3d& invert();
    AcGeMatrix3d inverse() const;

    bool operator==(const AcGeMatrix3d& mat) const;
    bool operator!=(const AcGeMatrix3d& mat) const;
    bool isEqualTo(const AcGeMatrix3d& mat, const AcGeTol& tol = AcGeContext::gTol) const;
    double det() const;

    AcGeMatrix3d& setTranslation(const AcGeVector3d& vec);
    AcGeVector3d translation() const;

    // The axes become columns 0 to 2.
    AcGeMatrix3d& setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis, const AcGeVector3d& yAxis,
                                 const AcGeVector3d& zAxis);
    void getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis, AcGeVector3d& zAxis) const;

    AcGeMatrix3d& setToTranslation(const AcGeVector3d& vec);
    AcGeMatrix3d& setToRotation(double angle, const AcGeVector3d& axis,
                                const AcGePoint3d& center = AcGePoint3d::kOrigin);
    AcGeMatrix3d& setToScaling(double scaleAll, const AcGePoint3d& center = AcGePoint3d::kOrigin);

    static AcGeMatrix3d translation(const AcGeVector3d& vec);
    static AcGeMatrix3d rotation(double angle, const AcGeVector3d& axis,
                                 const AcGePoint3d& center = AcGePoint3d::kOrigin);
    static AcGeMatrix3d scaling(double scaleAll, const AcGePoint3d& center = AcGePoint3d::kOrigin);

    double operator()(unsigned int row, unsigned int column) const;
    double& operator()(unsigned int row, unsigned int column);
    AcGeMatrix3d& operator=(const AcGeMatrix3d& src) = default;

    double entry[4][4];
};

inline bool AcGeMatrix3d::operator==(const AcGeMatrix3d& mat) const {
    return isEqualTo(mat);
}
inline bool AcGeMatrix3d::operator!=(const AcGeMatrix3d& mat) const {
    return !isEqualTo(mat);
}
inline double AcGeMatrix3d::operator()(unsigned int row, unsigned int column) const {
    return entry[row][column];
}
inline double& AcGeMatrix3d::operator()(unsigned int row, unsigned int column) {
    return entry[row][column];
}
