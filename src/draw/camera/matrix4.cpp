// Matrices of 4 by 4 doubles.
#include "draw/camera/matrix4.h"

#include <math.h>
#include <string.h>

#include <utility>

void identityMatrix(double m[16]) {
    for (int i = 0; i < 16; ++i) m[i] = i % 5 == 0 ? 1.0 : 0.0;
}

void multMatrices(double out[16], const double a[16], const double b[16]) {
    double product[16];
    for (int column = 0; column < 4; ++column) multMatrixVec(product + 4 * column, a, b + 4 * column);
    memcpy(out, product, sizeof product);
}

void multMatrixVec(double out[4], const double m[16], const double v[4]) {
    double product[4];
    for (int row = 0; row < 4; ++row)
        product[row] = m[row] * v[0] + m[4 + row] * v[1] + m[8 + row] * v[2] + m[12 + row] * v[3];
    memcpy(out, product, sizeof product);
}

// Gauss and Jordan with the largest pivot of each column.
bool invertMatrix(double out[16], const double m[16]) {
    double left[16], right[16];
    memcpy(left, m, sizeof left);
    identityMatrix(right);
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int row = column + 1; row < 4; ++row)
            if (fabs(left[4 * column + row]) > fabs(left[4 * column + pivot])) pivot = row;
        const double largest = left[4 * column + pivot];
        if (!(fabs(largest) > 0.0)) return false;
        for (int i = 0; i < 4; ++i) {
            std::swap(left[4 * i + column], left[4 * i + pivot]);
            std::swap(right[4 * i + column], right[4 * i + pivot]);
            left[4 * i + column] /= largest;
            right[4 * i + column] /= largest;
        }
        for (int row = 0; row < 4; ++row) {
            if (row == column) continue;
            const double share = left[4 * column + row];
            for (int i = 0; i < 4; ++i) {
                left[4 * i + row] -= share * left[4 * i + column];
                right[4 * i + row] -= share * right[4 * i + column];
            }
        }
    }
    memcpy(out, right, sizeof right);
    return true;
}

void buildFrustumMatrix(double m[16], double left, double right, double bottom, double top, double near_clip,
                        double far_clip) {
    memset(m, 0, 16 * sizeof(double));
    m[0] = 2.0 * near_clip / (right - left);
    m[5] = 2.0 * near_clip / (top - bottom);
    m[8] = (right + left) / (right - left);
    m[9] = (top + bottom) / (top - bottom);
    m[10] = -(far_clip + near_clip) / (far_clip - near_clip);
    m[11] = -1.0;
    m[14] = -2.0 * far_clip * near_clip / (far_clip - near_clip);
}

void buildOrthoMatrix(double m[16], double left, double right, double bottom, double top, double near_clip,
                      double far_clip) {
    identityMatrix(m);
    m[0] = 2.0 / (right - left);
    m[5] = 2.0 / (top - bottom);
    m[10] = -2.0 / (far_clip - near_clip);
    m[12] = -(right + left) / (right - left);
    m[13] = -(top + bottom) / (top - bottom);
    m[14] = -(far_clip + near_clip) / (far_clip - near_clip);
}

void buildTranslationMatrix(double m[16], double x, double y, double z) {
    identityMatrix(m);
    m[12] = x, m[13] = y, m[14] = z;
}

// Rodrigues' formula, as the manual of glRotate has it.
void buildRotationMatrix(double m[16], double degrees, double x, double y, double z) {
    const double length = sqrt(x * x + y * y + z * z), rad = degrees * (M_PI / 180.0);
    const double c = cos(rad), s = sin(rad), t = 1.0 - c;
    x /= length, y /= length, z /= length;
    const double turned[16] = {t * x * x + c,
                               t * x * y + s * z,
                               t * x * z - s * y,
                               0.0,  //
                               t * x * y - s * z,
                               t * y * y + c,
                               t * y * z + s * x,
                               0.0,  //
                               t * x * z + s * y,
                               t * y * z - s * x,
                               t * z * z + c,
                               0.0,  //
                               0.0,
                               0.0,
                               0.0,
                               1.0};
    memcpy(m, turned, sizeof turned);
}
