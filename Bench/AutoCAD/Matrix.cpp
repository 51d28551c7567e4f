// Transformation matrices, and the rules of AutoCAD that are built on them: object coordinate systems and the placement
// of block references.
#include <cmath>

#include "HostDrawing.h"

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

AcGeMatrix3d& AcGeMatrix3d::operator*=(const AcGeMatrix3d& mat) {
    return postMultBy(mat);
}
AcGeMatrix3d& AcGeMatrix3d::preMultBy(const AcGeMatrix3d& leftSide) {
    return *this = leftSide * *this;
}
AcGeMatrix3d& AcGeMatrix3d::postMultBy(const AcGeMatrix3d& rightSide) {
    return *this = *this * rightSide;
}
AcGeMatrix3d& AcGeMatrix3d::invert() {
    return *this = inverse();
}

AcGeMatrix3d AcGeMatrix3d::inverse() const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    getCoordSystem(origin, x, y, z);
    const double determinant = det();
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

double AcGeMatrix3d::det() const {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    getCoordSystem(origin, x, y, z);
    return x.crossProduct(y).dotProduct(z);
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

AcGeMatrix3d& AcGeMatrix3d::setToTranslation(const AcGeVector3d& vec) {
    return setToIdentity().setTranslation(vec);
}

AcGeMatrix3d& AcGeMatrix3d::setToRotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    const AcGeVector3d a = axis.normal();
    const double c = std::cos(angle), s = std::sin(angle);
    const auto turned = [&](const AcGeVector3d& v) {
        return v * c + a.crossProduct(v) * s + a * (a.dotProduct(v) * (1 - c));
    };
    setCoordSystem(AcGePoint3d(), turned(AcGeVector3d(1, 0, 0)), turned(AcGeVector3d(0, 1, 0)),
                   turned(AcGeVector3d(0, 0, 1)));
    return setTranslation(center.asVector() - *this * center.asVector());
}

AcGeMatrix3d& AcGeMatrix3d::setToScaling(double scaleAll, const AcGePoint3d& center) {
    setToIdentity();
    for (int i = 0; i < 3; ++i)
        entry[i][i] = scaleAll;
    return setTranslation(center.asVector() * (1 - scaleAll));
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& vec) {
    return AcGeMatrix3d().setToTranslation(vec);
}

AcGeMatrix3d AcGeMatrix3d::rotation(double angle, const AcGeVector3d& axis, const AcGePoint3d& center) {
    return AcGeMatrix3d().setToRotation(angle, axis, center);
}

AcGeMatrix3d AcGeMatrix3d::scaling(double scaleAll, const AcGePoint3d& center) {
    return AcGeMatrix3d().setToScaling(scaleAll, center);
}

namespace bench {

AcGeMatrix3d Ucs::toWorld() const {
    return AcGeMatrix3d().setCoordSystem(origin, xAxis, yAxis, xAxis.crossProduct(yAxis));
}

// The arbitrary axis rule: near the world's z the x axis lies along world y × normal, elsewhere along world z × normal.
AcGeMatrix3d PlaneToWorld(const AcGeVector3d& normal) {
    const AcGeVector3d z = normal.normal();
    const bool nearZ = std::fabs(z.x) < 1.0 / 64 && std::fabs(z.y) < 1.0 / 64;
    const AcGeVector3d x = (nearZ ? AcGeVector3d(0, 1, 0) : AcGeVector3d(0, 0, 1)).crossProduct(z).normal();
    return AcGeMatrix3d().setCoordSystem(AcGePoint3d(), x, z.crossProduct(x), z);
}

AcGeMatrix3d ReferenceTransform(const Record& reference) {
    AcGeMatrix3d scale;
    scale.entry[0][0] = reference.scale.sx;
    scale.entry[1][1] = reference.scale.sy;
    scale.entry[2][2] = reference.scale.sz;
    AcGeMatrix3d turned =
        PlaneToWorld(reference.normal) * AcGeMatrix3d::rotation(reference.rotation, AcGeVector3d(0, 0, 1)) * scale;
    return turned.setTranslation(reference.position.asVector());
}

bool SetReferenceTransform(Record& reference, const AcGeMatrix3d& transform) {
    AcGePoint3d origin;
    AcGeVector3d x, y, z;
    transform.getCoordSystem(origin, x, y, z);
    if (x.isZeroLength() || y.isZeroLength() || z.isZeroLength()) return false;
    AcGeTol loose;
    loose.setEqualVector(1e-8);
    if (!x.isPerpendicularTo(y, loose) || !y.isPerpendicularTo(z, loose) || !z.isPerpendicularTo(x, loose))
        return false;
    reference.normal = x.crossProduct(y).normal();
    const double side = z.dotProduct(reference.normal) < 0 ? -1.0 : 1.0;
    reference.scale = AcGeScale3d(x.length(), y.length(), side * z.length());
    const AcGeVector3d flat = PlaneToWorld(reference.normal).inverse() * x;
    reference.rotation = std::atan2(flat.y, flat.x);
    reference.position = origin;
    return true;
}

}  // namespace bench
