// Loading of an aircraft with all it brings.
#pragma once

// Reads veh[p].path into slot p and derives its flight model; a missing aircraft is replaced by the
// default. Non-zero on success; a faulty aircraft leaves a slot above 0 empty.
int load_plane(int p);
