// Matrices of 4 by 4 doubles in OpenGL's order: column by column, so that m[4 * column + row].
// Role: what the camera keeps beside OpenGL's own matrices. Angles in degrees. Knows no OpenGL.
#pragma once

void identityMatrix(double m[16]);
// out = a * b; out may be one of them.
void multMatrices(double out[16], const double a[16], const double b[16]);
void multMatrixVec(double out[4], const double m[16], const double v[4]);
// False when there is no inverse; out is left as it was.
bool invertMatrix(double out[16], const double m[16]);

// As glFrustum, glOrtho, glTranslate and glRotate multiply by.
void buildFrustumMatrix(double m[16], double left, double right, double bottom, double top, double near_clip,
                        double far_clip);
void buildOrthoMatrix(double m[16], double left, double right, double bottom, double top, double near_clip,
                      double far_clip);
void buildTranslationMatrix(double m[16], double x, double y, double z);
// About an axis of any length but 0.
void buildRotationMatrix(double m[16], double degrees, double x, double y, double z);
