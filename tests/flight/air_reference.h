// The air's part of one half step worked out a second time, in double precision and from the laws alone.
// Role: what the flight model is measured against. Reads the records of slot 0 as plain input and writes
// none; shares no function with the model but which parts exist. What discs add to the air is taken from the
// records.
#pragma once
#include "core/craft/dims.h"

namespace test {

struct air_step {
    double force[3];                      // fside, fnrml, faxil, N
    double moment[3];                     // L, M, N, N m
    double force_XYZ[wingDIM][elDIM][3];  // of each element: side, normal, axial against the path
    double nrml_force_path[wingDIM], axil_force_path[wingDIM];
    double downwash_deg[wingDIM][elDIM];  // for the next step
    double Q_centroid_loc[wingDIM][bladDIM];
    double CL_grndeffect[wingDIM], CD_grndeffect[wingDIM];
    int stalled[wingDIM];
    bool on_edge;    // a law switches within the rounding of single precision: nothing to compare
    double largest;  // magnitudes summed, N, N m: sizes of an error even where the forces cancel
    double largest_moment;
};
air_step air_reference();

}  // namespace test
