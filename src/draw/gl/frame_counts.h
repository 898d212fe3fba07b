// What the drawing of a frame asked of OpenGL, what it was spared, and the time that its parts took.
// Role: counted at the gates (OGL_setstate, bind_ref, the calls of lists); shown and cleared by
// scene/frame_report.h. Counting needs no OpenGL.
#pragma once

struct frame_counts_struct {
    int triangles;     // of the lists that were called
    int lists;         // calls of lists
    int states;        // switches, combiners and projections that changed
    int binds;         // textures that changed
    int seen, culled;  // buckets that a view looked at
};
inline frame_counts_struct frame_counts = {};

// Parts of a frame in their order.
enum frame_section : int {
    section_elsewhere,  // all but the flying view: flight, windows, swap
    section_sky,
    section_terrain,
    section_objects,
    section_effects,
    section_marks,
    frame_sections,
};
inline float section_ms[frame_sections] = {};
inline bool sections_timed = false;

// The time since the last call belongs to that part. While parts are timed each call waits for the driver,
// which else would draw later; else it does nothing.
void end_section(frame_section which);
