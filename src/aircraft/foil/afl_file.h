// Airfoil files: text in five versions, of which all are read and the last is written.
// Role: at load and in the foil compiler. One file fills one slot [RT][Re] of a set; the parameters
// that a set has only once are overwritten by each file.
#pragma once
#include <string>

#include "core/craft/afl.h"

// IO_type 0 reads, 1 writes (as version 700). Gives the version, 0 when none fits or the file cannot
// be written. A file that fits a version but cannot be understood is fatal.
int IO_afl(int IO_type, afl_struct* afl, int RT, int Re, const std::string& path);

// Finds the foil in "airfoils:" beside the aircraft file, else in the program's own folder, loads it
// for part en of aircraft p and tests its tables. 0 after a fault (see aircraft/file/acf_fault.h).
int load_foil_for_part(const std::string& foil_name, int p, int en, int RT, int Re);

// While one lives, a foil file is parsed once however many parts use it. Only for the length of one
// aircraft load, in which files stand still.
class foil_load_scope {
public:
    foil_load_scope();
    ~foil_load_scope();
    foil_load_scope(const foil_load_scope&) = delete;
    foil_load_scope& operator=(const foil_load_scope&) = delete;
};
