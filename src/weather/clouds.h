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

    // what their shadow on the ground is laid out by
    float cld_buc_dx = 1.0f, cld_buc_dz = 1.0f;      // of a bucket, m; the shadow's picture covers eight
    float region_x1 = 0.0f, region_z1 = 0.0f;        // corner of the volume, world frame, m
};
extern clou_class clou;
