// Transformation matrices. Pure arithmetic, not logged.
#include <cmath>

#include "gemat3d.h"

const AcGeMatrix3d AcGeMatrix3d::kIdentity;

AcGeMatrix3d::AcGeMatrix3d() {
    setToIdentity();
}

AcGeMatrix3d::AcGeMatrix3d(const AcGeMatrix3d& src) {
    *this = src;
}

AcGeMatrix3d& AcGeMatrix3d::setToIdentity() {
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            entry[row][column] = row == column ? 1.0 : 0.0;
    return *this;
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& mat) const {
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int k = 0; k < 4; ++k)
                sum += entry[row][k] * mat.entry[k][column];
            product.entry[row][column] = sum;
        }
    return product;
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    getCoordSystem(origin, x, y, z);
    const double determinant = x.crossProduct(y).dotProduct(z);
    const AcGeVector3d rows[3] = {y.crossProduct(z) / determinant, z.crossProduct(x) / determinant,
                                  x.crossProduct(y) / determinant};
    AcGeMatrix3d result;
    for (int row = 0; row < 3; ++row) {
        for (unsigned column = 0; column < 3; ++column)
            result.entry[row][column] = rows[row][column];
        result.entry[row][3] = -rows[row].dotProduct(origin.asVector());
    }
    return result;
}

bool AcGeMatrix3d::isEqualTo(const AcGeMatrix3d& mat, const AcGeTol& tol) const {
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (std::fabs(entry[row][column] - mat.entry[row][column]) > tol.equalPoint()) return false;
    return true;
}

AcGeMatrix3d& AcGeMatrix3d::setTranslation(const AcGeVector3d& vec) {
    for (unsigned row = 0; row < 3; ++row)
        entry[row][3] = vec[row];
    return *this;
}

AcGeVector3d AcGeMatrix3d::translation() const {
    return AcGeVector3d(entry[0][3], entry[1][3], entry[2][3]);
}

AcGeMatrix3d& AcGeMatrix3d::setCoordSystem(const AcGePoint3d& origin, const AcGeVector3d& xAxis,
                                           const AcGeVector3d& yAxis, const AcGeVector3d& zAxis) {
    setToIdentity();
    for (unsigned row = 0; row < 3; ++row) {
        entry[row][0] = xAxis[row];
        entry[row][1] = yAxis[row];
        entry[row][2] = zAxis[row];
        entry[row][3] = origin[row];
    }
    return *this;
}

void AcGeMatrix3d::getCoordSystem(AcGePoint3d& origin, AcGeVector3d& xAxis, AcGeVector3d& yAxis,
                                  AcGeVector3d& zAxis) const {
    for (unsigned row = 0; row < 3; ++row) {
        xAxis[row] = entry[row][0];
        yAxis[row] = entry[row][1];
        zAxis[row] = entry[row][2];
        origin[row] = entry[row][3];
    }
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& vec) {
    return AcGeMatrix3d().setTranslation(vec);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    AcGeVector3d x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
    AcGeMatrix3d matrix;
    matrix.setCoordSystem(AcGePoint3d(), x.rotateBy(angle, axis), y.rotateBy(angle, axis), z.rotateBy(angle, axis));
    return matrix.setTranslation(center.asVector() - matrix * center.asVector());
}

AcGeVector3d operator*(const AcGeMatrix3d& m, const AcGeVector3d& v) {
    const auto row = [&](int i) { return m.entry[i][0] * v.x + m.entry[i][1] * v.y + m.entry[i][2] * v.z; };
    return AcGeVector3d(row(0), row(1), row(2));
}

AcGePoint3d operator*(const AcGeMatrix3d& mat, const AcGePoint3d& pnt) {
    const AcGeVector3d moved = mat * pnt.asVector() + mat.translation();
    return AcGePoint3d(moved.x, moved.y, moved.z);
}
