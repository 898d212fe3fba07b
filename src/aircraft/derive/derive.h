// From the designer's record to the flight model: SI units from the centre of gravity, and everything
// the force model needs that geometry alone decides.
// Role: runs once per load, on a record fresh from its file; conversions must not be repeated.
#pragma once
#include "core/craft/veh.h"

// Derives slot p as read and autoset. 1 when it can fly; after a fault 0, with the slot cleared.
// For slot 0 every number found goes to the load report.
int derive_model(int p);

// What a designer wants to know of a derived aircraft, for tools. Metres, square metres; places aft of
// the centre of gravity.
struct aircraft_summary_struct {
    float S_ref;  // plan area of wings 1 to 4, left and right
    float span;
    float mean_chord;        // area-weighted mean of their element chords
    float AR;                // span squared over S_ref
    float S_stab;            // plan area of the other near-flat surfaces
    float S_wet;             // of bodies, plus both sides of the surfaces
    float z_centroid;        // area-weighted quarter chord of all surfaces, fins too
    float z_centroid_delta;  // the same with the shift of delta wings
    float centroid_margin;   // z_centroid_delta over the mean chord of all elements
    float z_neutral;         // lift slopes and downwash weighed in: near-flat surfaces, no bodies
    float static_margin;     // z_neutral over mean_chord
    float cgZ_fwd, cgZ_aft;  // limits
};
aircraft_summary_struct aircraft_summary(int p);

// -- steps of derive_model that stand beside it, for its other files and its tests
void derive_simple_values(int p);
void place_wings(int p);

// Lines of the load report; nothing for other slots than the user's.
inline bool in_report(int p) { return p == 0; }
