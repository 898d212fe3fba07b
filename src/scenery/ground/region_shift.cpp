// Rotation of the world between two local frames. In double throughout: a float quaternion is worth 0.4 m at
// the planet's radius, and radius plus height in float half a metre, by which a parked aircraft would jump.
// Float is only what is stored as such.
#include "scenery/ground/region_shift.h"

#include <math.h>

#include "core/math/axes.h"
#include "core/math/globe.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "scenery/ground/ground_phase.h"
#include "scenery/ground/region.h"
#include "weather/clouds.h"
#include "weather/puffs.h"

namespace {
constexpr float nowhere = -9.9e+09f;  // m
constexpr int point = 0, velocity = 1;

// -- one thing

void move(const double q[4], float* x, float* y, float* z, int is_v) {
    double dx = *x, dy = *y, dz = *z;
    shift_xyz_quat(q, &dx, &dy, &dz, is_v);
    *x = static_cast<float>(dx);
    *y = static_cast<float>(dy);
    *z = static_cast<float>(dz);
}

void move(const double q[4], float (&xyz)[3], int is_v) { move(q, &xyz[0], &xyz[1], &xyz[2], is_v); }

void move_attitude(const double q[4], flt_struct& f) {
    double turned[4] = {f.q[0], f.q[1], f.q[2], f.q[3]};
    mul_quat(q, turned, turned);
    for (int i = 0; i < 4; ++i) f.q[i] = static_cast<float>(turned[i]);
    quat_to_euler(f.q, &f.psi, &f.the, &f.phi);
}

// -- the groups, in their order

// 1. Slots that wait for a place stay away. The ground below, which the next half step reads before it asks
// anew, keeps its distance.
void move_aircraft(const double q[4]) {
    const int planes = TVPGetNumberPlanesToHandle(stg.num_acf, 0);
    for (int p = 0; p < planes; ++p) {
        flt_struct& f = flt[p];
        if (is_nowhere(f.dob_x)) continue;
        const double old_y = f.dob_y;
        shift_xyz_quat(q, &f.dob_x, &f.dob_y, &f.dob_z, point);
        f.terrain_y_cg += static_cast<float>(f.dob_y - old_y);
        f.dat_x = static_cast<float>(f.dob_x);
        f.dat_y = static_cast<float>(f.dob_y);
        f.dat_z = static_cast<float>(f.dob_z);
        move(q, &f.vx, &f.vy, &f.vz, velocity);
        move_attitude(q, f);
        cache_attitude(p);
    }
}

// What hangs on the user's aircraft: slung load, aero tow, winch.
void move_lines(const double q[4]) {
    move(q, env.jet_vel, velocity);
    for (int end = 0; end < 2; ++end) {
        move(q, env.jet_line[end], point);
        move(q, env.tow_line[end], point);
    }
    move(q, stg.winxyz, point);
}

// 2.
void move_fires(const double q[4]) {
    for (float(&xyz)[3] : scn.firexyz) move(q, xyz, point);
}

// Down along the local vertical, m.
void lower(double at[3], double by) {
    const double R = con.planet_rad, rad = sqrt(at[0] * at[0] + (at[1] + R) * (at[1] + R) + at[2] * at[2]);
    const double rat = (rad - by) / rad;
    at[0] *= rat, at[1] = (at[1] + R) * rat - R, at[2] *= rat;
}

// 3. The pattern of the ground keeps its phase below the eye, or below the aircraft while no view has been
// set.
void move_eye(const double q[4]) {
    double at[3] = {ren.view_xyz[0], ren.view_xyz[1], ren.view_xyz[2]};
    if (at[0] == 0.0 && at[1] == 0.0 && at[2] == 0.0) {
        // the aircraft has moved already: back to where it was
        const double back[4] = {q[0], -q[1], -q[2], -q[3]};
        at[0] = flt[0].dob_x, at[1] = flt[0].dob_y, at[2] = flt[0].dob_z;
        shift_xyz_quat(back, &at[0], &at[1], &at[2], point);
        lower(at, flt[0].y_agl_mtr);
    } else {
        move(q, ren.view_xyz, point);
        lower(at, ren.view_ele_agl);
    }
    const double old_xz[2] = {at[0], at[2]};
    shift_xyz_quat(q, &at[0], &at[1], &at[2], point);
    const double new_xz[2] = {at[0], at[2]};
    keep_ground_phase(old_xz, new_xz);
}

// 4. The points of a wake lie on the water at the ship's height.
void move_ship(const double q[4], int s) {
    if (is_nowhere(env.boat_x[s])) return;
    const float old_y = env.boat_y[s];
    move(q, &env.boat_x[s], &env.boat_y[s], &env.boat_z[s], point);
    float y = old_y;
    move(q, &scn.xlast[s], &y, &scn.zlast[s], point);
    for (auto& row : scn.cp[s])
        for (float(&p)[7] : row) {
            y = old_y;
            move(q, &p[0], &y, &p[1], point);
        }
}

// 7.
void move_bullets(const double q[4]) {
    for (vec_bro_struct& bro : vec_bro) {
        if (!bro.type) continue;
        move(q, &bro.vx, &bro.vy, &bro.vz, velocity);
        move(q, &bro.x, &bro.y, &bro.z, point);
    }
}

// 8. Of all slots: a weapon may outlive the handling of its aircraft.
void move_weapons(const double q[4]) {
    constexpr int in_flight = 1;
    for (int p = 0; p < vehDIM; ++p)
        for (int en = 0; en < wattDIM; ++en) {
            wpn_struct& wpn = veh[p].wpn[en];
            if (!wpn.type || !wpn.free_flyer || wpn.action_mode != in_flight) continue;
            move(q, &wpn.vx, &wpn.vy, &wpn.vz, velocity);
            move(q, &wpn.x, &wpn.y, &wpn.z, point);
        }
}

// 9.
void move_clouds(const double q[4]) {
    float x = clou.region_x1(), y = 0.0f, z = clou.region_z1();
    move(q, &x, &y, &z, point);
    clou.set_region_x1(x);
    clou.set_region_z1(z);
}

void move_all(const double q[4]) {
    move_aircraft(q);
    move_lines(q);
    move_fires(q);
    move_eye(q);
    for (int s = 0; s < boatDIM; ++s) move_ship(q, s);
    shift_camera_spot(q);
    puff.shift_puffs(q);
    move_bullets(q);
    move_weapons(q);
    move_clouds(q);
}

void leave_old_frame() {
    constexpr int placed_ships = 4, carrier = 0, frigate = 1;
    for (int s = 0; s < placed_ships; ++s) env.boat_x[s] = env.boat_z[s] = nowhere;
    env.boat_psi[carrier] = env.boat_psi[frigate] = 0.0f;
    reset_ground_phase();
}
}  // namespace

bool is_nowhere(double x) { return fabs(x) > 1.0e+09; }

int shift_region(int typeshift) {
    int dlat = 0, dlon = 0;
    switch (typeshift) {
        case shift_west:
            dlon = -1;
            break;
        case shift_east:
            dlon = 1;
            break;
        case shift_north:
            dlat = 1;
            break;
        case shift_south:
            dlat = -1;
            break;
        default:
            leave_old_frame();
            return 1;
    }
    double q[4];
    axis_shift_to_quat(dlat, dlon, q);
    move_all(q);
    return 1;
}

void move_flight_between(double old_lat, double old_lon, double new_lat, double new_lon) {
    double q[4];
    frame_shift_quat(old_lat, old_lon, new_lat, new_lon, q);
    move_aircraft(q);
    move_lines(q);
    move(q, ren.view_xyz, point);
    shift_camera_spot(q);
    puff.shift_puffs(q);
    move_bullets(q);
    move_weapons(q);
    move_clouds(q);
}
