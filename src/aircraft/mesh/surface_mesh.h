// Mesh of a wing, fin or blade: sections of fourteen ribs round the chord, two stations to an element.
// Role: built once when an aircraft is loaded; what moves is turned when it is drawn. Knows no OpenGL.
#pragma once
#include "core/math/geo3.h"

constexpr int surface_ribs = 14;
constexpr int rib_hinge_top = 5, rib_hinge_bottom = 8;  // the joint of a control
constexpr int rib_edge_top = 6, rib_edge_bottom = 7;    // trailing edge

// Fills geo_xyz, nrm_xyz, co_xyz and ca_xyz of part en, 0 to 55. Wings, fins and pylons: aircraft axes, m
// from the reference point, at rest. Blades: axes of the disc, m from the hub. A part without elements gets
// nothing.
void build_surface_mesh(int p, int en);

// Outward unit normals of a part of s_dim by r_dim points (nrm_xyz); where a patch has no extent, up.
// is_surface: ribs that leave a joint out at rest, closed round the leading edge; else rings, closed round.
// outward: 1 or -1, the side to which along x around points.
void find_normal_vects(int p, int en, int is_surface, float outward);

// Kind of the control that is hinged at this element (control_kind), 0 for none.
int hinged_control(int p, int en, int el);
// Its deflection now, degrees, up positive; of several controls their sum.
float con_def(int p, int en, int el);
// Whether the flap of this element has come off.
int flap_has_gone(int p, int en, int el);
