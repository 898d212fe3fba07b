// The one way to the GL switches, and the two projections.
// Role: everything that draws asks here; nothing else turns these switches.
#pragma once

enum ogl_switch : int {
    fog_on = 0,
    fog_off = 1,
    lit_on = 2,
    lit_off = 3,
    al_none = 4,
    al_blend = 5,
    al_test = 6,
    al_both = 7,
    depth_read = 8,
    depth_no_read = 9,
    depth_write = 10,
    depth_no_write = 11,
};

// tex: number of texture units in use, 0 to 6, held to what the driver has. Any other value than those
// above is fatal. Ends with the colour row col_state (white; green under night vision): set a colour after this call, never before.
void OGL_setstate(int fog, int tex, int lit, int al, int deR, int deW);
// The same while a display list is compiled: every switch goes into the list, whatever the present state,
// which stays as it is.
void OGL_setstate_in_list(int fog, int tex, int lit, int al, int deR, int deW);
// Single switches, for parts of a display list.
void OGL_depth(int deR, int deW);
void OGL_depth_write(int deW);
void OGL_cull(int on);

// The whole window in virtual units, model view reset.
void OGL_view_2d();
// The whole window in perspective: FOV is horizontal, degrees. The eye at the origin looks along -z.
void OGL_view_3d(float FOV, float near_clip, float far_clip);

// Logs OpenGL's pending errors with the place where they were found.
void GL_error_check(const char* label);
