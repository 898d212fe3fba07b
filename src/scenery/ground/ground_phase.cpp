// The phase of projected textures through shifts of the region.
#include "scenery/ground/ground_phase.h"

static ground_phase_struct phase;

const ground_phase_struct& ground_phase() { return phase; }

void keep_ground_phase(const double old_xz[2], const double new_xz[2]) {
    phase.x += old_xz[0] - new_xz[0];
    phase.z += old_xz[1] - new_xz[1];
}

void reset_ground_phase() { phase = {}; }
