// Recording and replay of the flight.
#pragma once
#include <string>

#include "core/records/pat.h"

void zero_path();
void snap_save(snap_struct* snap, int p);
// Blends two snapshots, part_2 of the second, into the slot they name.
void snap_recall(snap_struct snap_1, snap_struct snap_2, float part_2);

// Goes on from a saved situation, or replays a saved movie: aircraft, place and path as they were. Non-zero on
// success; else the flight is untouched and the user has been told why.
int load_situation(const std::string& file, int is_movie);
