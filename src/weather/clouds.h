// What the weather asks of the cloud volume: density around and above a point, drift with the wind.
// Role: called by the weather step and the wind once a frame; the volume knows no OpenGL.
#pragma once

class clou_class {
public:
    void cloud_update();                             // rebuilds what the settings have changed
    void blow_region_x(float amount);                // moves the volume with the wind, m east
    void blow_region_z(float amount);                // m south
    float ret_wxr_local(float x, float h, float z);  // mean density around a point, 0 to 1
    float ret_wxr_above(float x, float h, float z);  // density of the column above, 0 to 10
    int shadow_picture();  // reference of the picture of their shadow, 0 for none; sets ren.shadow_alpha
    // of a bucket, m; the picture of the clouds' shadow covers eight
    float cld_buc_dx = 1.0f, cld_buc_dz = 1.0f;
    // the volume's origin, its south-west corner, world frame, m
    float region_x1() const { return origin_x_; }
    float region_z1() const { return origin_z_; }
    void set_region_x1(float x) { origin_x_ = x; }
    void set_region_z1(float z) { origin_z_ = z; }

private:
    float origin_x_ = 0.0f, origin_z_ = 0.0f;
};
extern clou_class clou;
