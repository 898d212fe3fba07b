// Reading an aircraft into a slot, and writing one.
// Role: between a load and the derivation of the flight model; the bytes are those of file/acf_file.h.
#pragma once

// IO_type 0 reads the file named by veh[p].path, derives what depends on it and checks the design;
// 1 writes it. 1 when that worked. A failed read leaves an empty slot that keeps its name and path.
int IO_acf(int IO_type, int p, int is_batch);
