// The camera: projection and model view in double, and what it sees of the world.
// Role: set up once a view, asked for every bucket and patch. draw/gl/camera_load.h hands its matrices to
// OpenGL; nothing else changes those while the world is drawn, so that both stay in step. Knows no OpenGL.
//
// Eye axes: x right, y up, z towards the eye, so that what is seen has a negative z. Angles in degrees.
#pragma once
#include "core/math/geo3.h"

class xcam_class {
public:
    xcam_class();

    // As glFrustum and glOrtho; the limit of SetFakeFarClippingPlane goes back to the far plane.
    void SetupFrustum(double left, double right, double bottom, double top, double near_clip,
                      double far_clip);
    // fov: the vertical field of view; aspect: width by height.
    void SetupPerspective(double fov, double aspect, double near_clip, double far_clip);
    void SetupOrtho(double left, double right, double bottom, double top, double near_clip, double far_clip);
    // What lies farther than this from the eye's plane, m, is not seen; OpenGL does not know of it.
    void SetFakeFarClippingPlane(double distance);

    // The model view of an eye that looks at a point, from another point or from a way off it.
    void LookAtPtFromPt(const Point3& at, const Point3& from, const Vector3& up);
    void LookAtPtFromDir(const Point3& at, const Vector3& from, const Vector3& up);
    void Identity();
    void Translate(double x, double y, double z);
    void Rotate(double degrees, double x, double y, double z);

    // Whether a sphere of the world may be seen. One whose place is no number is not.
    bool SphereInView(double x, double y, double z, double radius) const;
    // Of the eye in the world, m; the last is 1.
    const double* Location();

    const double* Perspective() const { return mPerspective; }
    const double* ModelView() const { return mModelView; }

private:
    void turned();

    bool mIsOrtho = false;
    double mNear = 0, mFar = 0, mFakeFar = 0;                             // z of the eye's axes, m
    double mTop[3] = {}, mLeft[3] = {}, mRight[3] = {}, mBottom[3] = {};  // unit normals that point inward
    double mOrthoTop = 0, mOrthoLeft = 0, mOrthoRight = 0, mOrthoBottom = 0;  // m
    double mLocation[4] = {};
    bool mLocationStale = true;
    double mPerspective[16], mModelView[16];
};
extern xcam_class xcam;

inline bool xcam_class::SphereInView(double x, double y, double z, double radius) const {
    const double* const m = mModelView;
    const double ez = m[2] * x + m[6] * y + m[10] * z + m[14];
    if (!(ez - radius <= mNear && ez + radius >= mFakeFar)) return false;
    const double ex = m[0] * x + m[4] * y + m[8] * z + m[12], ey = m[1] * x + m[5] * y + m[9] * z + m[13];
    if (mIsOrtho)
        return ex + radius >= mOrthoLeft && ex - radius <= mOrthoRight && ey + radius >= mOrthoBottom &&
               ey - radius <= mOrthoTop;
    const auto inside = [=](const double* n) { return radius > -(n[0] * ex + n[1] * ey + n[2] * ez); };
    return inside(mLeft) && inside(mRight) && inside(mTop) && inside(mBottom);
}
