// Recording and replay of the flight.
#pragma once
#include "core/records/pat.h"

void zero_path();
void snap_save(snap_struct* snap, int p);
// Blends two snapshots, part_2 of the second, into the slot they name.
void snap_recall(snap_struct snap_1, snap_struct snap_2, float part_2);
