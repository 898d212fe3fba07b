// The camera.
#include "draw/camera/xcam.h"

#include <math.h>

#include "draw/camera/matrix4.h"

xcam_class xcam;

xcam_class::xcam_class() {
    identityMatrix(mModelView);
    SetupOrtho(-1.0, 1.0, -1.0, 1.0, -1.0, 1.0);
}

namespace {
// Unit normal of the plane through the eye and two corners of the picture, to the left of the way from the
// second to the first.
void set_plane(double normal[3], const Vector3& first, const Vector3& second) {
    Vector3 n = first.cross(second);
    n.normalize();
    normal[0] = n.dx, normal[1] = n.dy, normal[2] = n.dz;
}
}  // namespace

void xcam_class::SetupFrustum(double left, double right, double bottom, double top, double near_clip,
                              double far_clip) {
    mIsOrtho = false;
    mNear = -near_clip;
    mFar = mFakeFar = -far_clip;
    const Vector3 upper_left{left, top, mNear}, upper_right{right, top, mNear};
    const Vector3 lower_left{left, bottom, mNear}, lower_right{right, bottom, mNear};
    set_plane(mTop, upper_left, upper_right);
    set_plane(mRight, upper_right, lower_right);
    set_plane(mBottom, lower_right, lower_left);
    set_plane(mLeft, lower_left, upper_left);
    buildFrustumMatrix(mPerspective, left, right, bottom, top, near_clip, far_clip);
}

void xcam_class::SetupPerspective(double fov, double aspect, double near_clip, double far_clip) {
    const double y = near_clip * tan(0.5 * fov * (M_PI / 180.0)), x = y * aspect;
    SetupFrustum(-x, x, -y, y, near_clip, far_clip);
}

void xcam_class::SetupOrtho(double left, double right, double bottom, double top, double near_clip,
                            double far_clip) {
    mIsOrtho = true;
    mNear = -near_clip;
    mFar = mFakeFar = -far_clip;
    mOrthoLeft = left, mOrthoRight = right, mOrthoBottom = bottom, mOrthoTop = top;
    buildOrthoMatrix(mPerspective, left, right, bottom, top, near_clip, far_clip);
}

void xcam_class::SetFakeFarClippingPlane(double distance) { mFakeFar = fmax(-distance, mFar); }

void xcam_class::turned() { mLocationStale = true; }

void xcam_class::LookAtPtFromPt(const Point3& at, const Point3& from, const Vector3& up) {
    Vector3 ahead = at - from;
    ahead.normalize();
    Vector3 right = ahead.cross(up);
    right.normalize();
    const Vector3 above = right.cross(ahead);
    const double view[16] = {right.dx, above.dx, -ahead.dx, 0.0,  //
                             right.dy, above.dy, -ahead.dy, 0.0,  //
                             right.dz, above.dz, -ahead.dz, 0.0,  //
                             0.0,      0.0,      0.0,       1.0};
    for (int i = 0; i < 16; ++i) mModelView[i] = view[i];
    turned();
    Translate(-from.x, -from.y, -from.z);
}

void xcam_class::LookAtPtFromDir(const Point3& at, const Vector3& from, const Vector3& up) {
    LookAtPtFromPt(at, at + from, up);
}

void xcam_class::Identity() {
    identityMatrix(mModelView);
    turned();
}

void xcam_class::Translate(double x, double y, double z) {
    double m[16];
    buildTranslationMatrix(m, x, y, z);
    multMatrices(mModelView, mModelView, m);
    turned();
}

void xcam_class::Rotate(double degrees, double x, double y, double z) {
    double m[16];
    buildRotationMatrix(m, degrees, x, y, z);
    multMatrices(mModelView, mModelView, m);
    turned();
}

const double* xcam_class::Location() {
    if (!mLocationStale) return mLocation;
    mLocationStale = false;
    double back[16];
    const double eye[4] = {0.0, 0.0, 0.0, 1.0};
    if (invertMatrix(back, mModelView)) multMatrixVec(mLocation, back, eye);
    return mLocation;
}
