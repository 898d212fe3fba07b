// Aerials and huts of the radio aids, in the usual sizes of their kinds.
#include <math.h>

#include "objects.h"

namespace {
constexpr double near_m = 1500.0, far_m = 9000.0;

void hut(object_text& o, const point& foot, double dx, double dy, double dz) {
    o.floor(foot.x, foot.y + 0.06, foot.z, dx + 1.2, dz + 1.2, concrete);
    o.box({foot.x, foot.y + 0.06, foot.z}, dx, dy, dz, wall, wall_door, roof);
    o.face({foot.x + dx / 2 + 0.01, foot.y + 0.3, foot.z + dz * 0.35},
           {foot.x + dx / 2 + 0.01, foot.y + 0.3, foot.z - dz * 0.35},
           {foot.x + dx / 2 + 0.01, foot.y + dy * 0.9, foot.z - dz * 0.35},
           {foot.x + dx / 2 + 0.01, foot.y + dy * 0.9, foot.z + dz * 0.35}, wall_vent);
    // the roof stands out over the walls
    o.box({foot.x, foot.y + dy, foot.z}, dx + 0.4, 0.18, dz + 0.4, roof);
}

// Level, on rising or falling ground a little above it here and there.
void ground(object_text& o, double dx, double dz, const cell& c) {
    constexpr double tile = 4.0;  // about, m
    const int nx = static_cast<int>(ceil(dx / tile)), nz = static_cast<int>(ceil(dz / tile));
    o.say("ATTR_poly_os 1");
    for (int i = 0; i < nx; ++i)
        for (int k = 0; k < nz; ++k)
            o.floor(dx * ((i + 0.5) / nx - 0.5), 0.04, dz * ((k + 0.5) / nz - 0.5), dx / nx, dz / nz, c);
    o.say("ATTR_poly_os 0");
}

void steady_red(object_text& o, const point& at) { o.light(at, 10, 0, 0); }
void pulsing_red(object_text& o, const point& at) { o.light(at, 99, 0, 0); }

void mast_on_insulator(object_text& o, double y, double width) {
    o.box({0, 0.04, 0}, 2.0, 0.35, 2.0, concrete);
    o.say("ATTR_shade_smooth");
    o.tube({0, 0.39, 0}, 0.22, y - 0.39, 0.16, 8, insulator);
    o.say("ATTR_shade_flat");
    o.box({0, y, 0}, width, 0.1, width, steel);
}

// Two poles and the wires between them.
void ndb_1(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 12, 9, gravel);
    hut(o, {0, 0, -1.5}, 3.2, 2.6, 2.6);
    o.say("ATTR_shade_smooth");
    for (const double x : {-16.0, 16.0}) {
        o.tube({x, 0, 0}, 0.18, 14, 0.11, 8, bands);
        o.cap({x, 14, 0}, 0.11, 0.1, 8, steel);
        o.tube({x, 0, 0}, 0.45, 0.3, 0.45, 8, concrete);
        o.cap({x, 0.3, 0}, 0.45, 0.0, 8, concrete);
    }
    o.say("ATTR_shade_flat");
    for (const double z : {-0.6, 0.0, 0.6}) o.line({-16, 13.6, z}, {16, 13.6, z}, 2);
    for (const double x : {-16.0, 16.0}) {
        o.bar({x, 13.6, -0.8}, {x, 13.6, 0.8}, 0.08, steel);
        for (const double out : {-4.0, 4.0}) o.line({x, 12.5, 0}, {x + (x > 0 ? 4 : -4), 0, out}, 3);
    }
    o.line({0, 13.6, 0}, {0, 2.7, -1.5}, 2);  // the feed, down to the hut
    for (const double x : {-16.0, 16.0}) steady_red(o, {x, 14.3, 0});

    o.lod(near_m, far_m);
    o.box({0, 0, -1.5}, 3.2, 2.7, 2.6, wall, wall_door, roof);
    for (const double x : {-16.0, 16.0}) o.box({x, 0, 0}, 0.28, 14, 0.28, bands);
    for (const double x : {-16.0, 16.0}) steady_red(o, {x, 14.3, 0});
    o.save(folder + "NDB_1.obj");
}

// One guyed mast that stands on an insulator and carries a star of wires.
void ndb_2(const std::string& folder) {
    constexpr double top = 22.0;
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 14, 14, gravel);
    mast_on_insulator(o, 1.4, 0.7);
    o.lattice({0, 1.5, 0}, 0.55, top - 1.5, 0.55, lattice_red, lattice_white);
    o.say("ATTR_shade_smooth");
    o.tube({0, top, 0}, 0.05, 1.6, 0.03, 6, steel);
    o.say("ATTR_shade_flat");
    for (int i = 0; i < 8; ++i) {
        const double a = 2 * M_PI * i / 8;
        const point out = {5 * sin(a), top - 3.5, 5 * cos(a)};
        o.line({0, top, 0}, out, 2);
        if (i % 2) continue;
        o.line({0, top * 0.65, 0}, {11 * sin(a), 0, 11 * cos(a)}, 3);
        o.line({0, top * 0.95, 0}, {14 * sin(a), 0, 14 * cos(a)}, 3);
    }
    hut(o, {4.2, 0, -4.2}, 2.6, 2.5, 2.2);
    o.fence(7, 7, 2.0, fence_mesh);
    pulsing_red(o, {0, top + 1.8, 0});
    steady_red(o, {0, top * 0.5, 0.4});

    o.lod(near_m, far_m);
    o.box({0, 0, 0}, 0.4, top, 0.4, bands);
    o.box({4.2, 0, -4.2}, 2.6, 2.6, 2.2, wall, wall_door, roof);
    pulsing_red(o, {0, top + 1.8, 0});
    o.save(folder + "NDB_2.obj");
}

// A tower on its own four feet.
void ndb_3(const std::string& folder) {
    constexpr double top = 38.0;
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 20, 18, gravel);
    for (const double x : {-1.9, 1.9})
        for (const double z : {-1.9, 1.9}) o.box({x, 0.04, z}, 0.9, 0.5, 0.9, concrete);
    o.lattice({0, 0.5, 0}, 3.8, 13.5, 2.4, lattice_red, lattice_red);
    o.lattice({0, 14, 0}, 2.4, 12, 1.3, lattice_white, lattice_white);
    o.lattice({0, 26, 0}, 1.3, 12, 0.6, lattice_red, lattice_red);
    o.box({0, 14, 0}, 3.0, 0.12, 3.0, steel);
    o.box({0, 26, 0}, 1.9, 0.12, 1.9, steel);
    o.say("ATTR_shade_smooth");
    o.tube({0, top, 0}, 0.12, 3.0, 0.04, 8, insulator);
    o.say("ATTR_shade_flat");
    for (int i = 0; i < 6; ++i) {
        const double a = 2 * M_PI * i / 6;
        o.line({0, top + 0.3, 0}, {7 * sin(a), top - 5, 7 * cos(a)}, 2);
    }
    hut(o, {6, 0, -4}, 4.2, 2.8, 3.0);
    o.fence(10, 9, 2.2, fence_mesh);
    pulsing_red(o, {0, top + 3.2, 0});
    for (const double x : {-1.5, 1.5}) steady_red(o, {x, 14.4, x});
    for (const double x : {-1.0, 1.0}) steady_red(o, {x, 26.4, -x});

    o.lod(near_m, far_m);
    o.tube({0, 0, 0}, 1.6, top, 0.35, 4, bands);
    o.box({6, 0, -4}, 4.2, 2.9, 3.0, wall, wall_door, roof);
    pulsing_red(o, {0, top + 3.2, 0});
    o.save(folder + "NDB_3.obj");
}

// A round hut below a counterpoise with a ring of aerials, the dome in the middle.
void vor(const std::string& folder) {
    constexpr int ring = 24;
    constexpr double deck_y = 3.4, deck_r = 7.5, ring_r = 6.7;
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 22, 22, gravel);
    o.say("ATTR_shade_smooth");
    o.tube({0, 0.04, 0}, 3.6, deck_y, 3.6, 20, wall);
    o.tube({0, deck_y - 0.25, 0}, deck_r, 0.25, deck_r, 32, steel);
    o.cap({0, deck_y, 0}, deck_r, 0.0, 32, steel_mesh);
    o.say("ATTR_no_cull");  // seen from below
    o.cap({0, deck_y - 0.24, 0}, deck_r, 0.0, 32, steel_mesh);
    o.say("ATTR_cull");
    o.tube({0, deck_y, 0}, 1.25, 1.1, 1.25, 20, radome);
    o.tube({0, deck_y + 1.1, 0}, 1.25, 2.2, 0.35, 20, radome);
    o.cap({0, deck_y + 3.3, 0}, 0.35, 0.25, 20, orange);
    for (int i = 0; i < ring; ++i) {
        const double a = 2 * M_PI * i / ring, x = ring_r * sin(a), z = ring_r * cos(a);
        o.tube({x, deck_y, z}, 0.05, 0.8, 0.05, 5, steel);
        o.tube({x, deck_y + 0.8, z}, 0.22, 0.3, 0.18, 8, radome);
        o.cap({x, deck_y + 1.1, z}, 0.18, 0.1, 8, radome);
    }
    o.say("ATTR_shade_flat");
    for (int i = 0; i < 8; ++i) {
        const double a = 2 * M_PI * (i + 0.5) / 8;
        o.bar({3.6 * sin(a), 1.9, 3.6 * cos(a)}, {6.6 * sin(a), deck_y - 0.2, 6.6 * cos(a)}, 0.12, steel);
    }
    o.face({-1.0, 0.04, 3.63}, {1.0, 0.04, 3.63}, {1.0, 2.6, 3.63}, {-1.0, 2.6, 3.63}, wall_door);
    o.floor(0, 0.06, 5.4, 2.0, 3.6, concrete);
    steady_red(o, {0, deck_y + 3.8, 0});

    o.lod(near_m, far_m);
    o.say("ATTR_shade_smooth");
    o.tube({0, 0, 0}, 3.6, deck_y, 3.6, 8, wall);
    o.cap({0, deck_y, 0}, deck_r, 0.0, 10, steel_mesh);
    o.tube({0, deck_y, 0}, 1.25, 3.3, 0.35, 6, radome);
    steady_red(o, {0, deck_y + 3.8, 0});
    o.save(folder + "VOR.obj");
}

// A row of aerials across the extended centre line. They look back over the runway: that is the front.
void ils(const std::string& folder) {
    constexpr int aerials = 14;
    constexpr double spacing = 2.4, height = 2.4;
    object_text o("navaids");
    const auto place = [](int i) { return (i - 0.5 * (aerials - 1)) * spacing; };
    o.lod(0, near_m);
    ground(o, aerials * spacing + 4, 8, gravel);
    for (int i = 0; i < aerials; ++i) {
        const double x = place(i);
        for (const double z : {-0.9, 0.9}) {
            o.box({x, 0.04, z}, 0.5, 0.15, 0.5, concrete);
            o.bar({x, 0.19, z}, {x, height, z}, 0.09, orange);
        }
        o.bar({x, height, -1.0}, {x, height, 2.4}, 0.08, orange);  // the boom
        for (int k = 0; k < 6; ++k) {                              // its rods, shorter to the front
            const double z = -0.9 + 0.6 * k, half = 1.0 - 0.11 * k;
            o.bar({x - half, height + 0.06, z}, {x + half, height + 0.06, z}, 0.045, steel);
        }
    }
    o.bar({place(0) - 0.6, 0.9, -0.9}, {place(aerials - 1) + 0.6, 0.9, -0.9}, 0.1, steel);
    o.bar({place(0) - 0.6, 1.7, -0.9}, {place(aerials - 1) + 0.6, 1.7, -0.9}, 0.06, steel);
    hut(o, {place(aerials - 1) + 9.0, 0, -6.0}, 3.4, 2.6, 2.4);
    for (const int i : {0, aerials - 1}) steady_red(o, {place(i), height + 0.35, -0.9});

    o.lod(near_m, far_m);
    o.say("ATTR_no_cull");
    o.face({place(0) - 1, 1.9, 0}, {place(aerials - 1) + 1, 1.9, 0}, {place(aerials - 1) + 1, height, 0},
           {place(0) - 1, height, 0}, orange);
    o.say("ATTR_cull");
    o.box({place(aerials - 1) + 9.0, 0, -6.0}, 3.4, 2.7, 2.4, wall, wall_door, roof);
    for (const int i : {0, aerials - 1}) steady_red(o, {place(i), height + 0.35, -0.9});
    o.save(folder + "ILS.obj");
}

// A mast with three aerials above each other, the hut at its foot.
void glideslope(const std::string& folder) {
    constexpr double top = 14.5, front = 0.75;
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 11, 9, gravel);
    o.box({0, 0.04, 0}, 1.8, 0.3, 1.8, concrete);
    o.lattice({0, 0.34, 0}, 1.0, top - 0.34, 0.8, lattice_red, lattice_white);
    for (const double y : {4.2, 8.4, 12.6}) {
        o.box({0, y, front}, 3.4, 0.75, 0.3, radome);
        for (const double x : {-1.1, 0.0, 1.1}) o.box({x, y + 0.15, front + 0.2}, 0.5, 0.45, 0.25, orange);
        o.bar({-0.4, y + 0.3, 0.4}, {-0.4, y + 0.3, front - 0.1}, 0.1, steel);
        o.bar({0.4, y + 0.3, 0.4}, {0.4, y + 0.3, front - 0.1}, 0.1, steel);
    }
    hut(o, {-3.2, 0, -2.0}, 3.0, 2.6, 2.4);
    o.bar({-3.2, 2.9, -2.0}, {-0.4, 3.4, -0.3}, 0.12, steel);  // the cable's tray
    pulsing_red(o, {0, top + 0.3, 0});
    steady_red(o, {0, 7.4, 0.6});

    o.lod(near_m, far_m);
    o.box({0, 0, 0}, 0.8, top, 0.8, bands);
    for (const double y : {4.2, 8.4, 12.6}) o.box({0, y, front}, 3.4, 0.75, 0.3, radome);
    o.box({-3.2, 0, -2.0}, 3.0, 2.7, 2.4, wall, wall_door, roof);
    pulsing_red(o, {0, top + 0.3, 0});
    o.save(folder + "glideslope.obj");
}

// Rods on a boom that beam straight up.
void yagi(object_text& o, const point& at) {
    o.bar({at.x, at.y, at.z}, {at.x, at.y + 2.6, at.z}, 0.07, orange);
    for (int k = 0; k < 4; ++k) {
        const double half = 1.05 - 0.1 * k;
        o.bar({at.x - half, at.y + 0.3 + 0.7 * k, at.z}, {at.x + half, at.y + 0.3 + 0.7 * k, at.z}, 0.05,
              steel);
    }
}

void marker_1(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 5, 4, gravel);
    o.box({-0.9, 0.04, -0.3}, 0.9, 1.5, 0.6, wall, wall_vent, roof);
    o.box({0.9, 0.04, -0.3}, 0.6, 0.2, 0.6, concrete);
    o.bar({0.9, 0.24, -0.3}, {0.9, 2.4, -0.3}, 0.12, bands);
    yagi(o, {0.9, 2.4, -0.3});
    steady_red(o, {0.9, 5.2, -0.3});

    o.lod(near_m, far_m);
    o.box({-0.9, 0, -0.3}, 0.9, 1.5, 0.6, wall);
    o.box({0.9, 0, -0.3}, 0.14, 5.0, 0.14, bands);
    steady_red(o, {0.9, 5.2, -0.3});
    o.save(folder + "Marker1.obj");
}

void marker_2(const std::string& folder) {
    object_text o("navaids");
    o.lod(0, near_m);
    ground(o, 9, 8, gravel);
    hut(o, {-1.6, 0, -0.8}, 2.6, 2.5, 2.2);
    for (const double x : {1.4, 2.8}) {
        o.box({x, 0.04, 0}, 0.7, 0.2, 0.7, concrete);
        o.bar({x, 0.24, 0}, {x, 3.6, 0}, 0.14, bands);
        yagi(o, {x, 3.6, 0});
        steady_red(o, {x, 6.4, 0});
    }
    o.bar({1.4, 3.6, 0}, {2.8, 3.6, 0}, 0.08, steel);
    o.fence(4.5, 4, 1.8, fence_mesh);

    o.lod(near_m, far_m);
    o.box({-1.6, 0, -0.8}, 2.6, 2.6, 2.2, wall, wall_door, roof);
    for (const double x : {1.4, 2.8}) o.box({x, 0, 0}, 0.16, 6.2, 0.16, bands);
    for (const double x : {1.4, 2.8}) steady_red(o, {x, 6.4, 0});
    o.save(folder + "Marker2.obj");
}
}  // namespace

void write_navaids(const std::string& folder) {
    ndb_1(folder);
    ndb_2(folder);
    ndb_3(folder);
    vor(folder);
    ils(folder);
    glideslope(folder);
    marker_1(folder);
    marker_2(folder);
}
