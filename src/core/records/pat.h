// The recorded flight: a ring of compact snapshots.
#pragma once
#include <cstddef>
#include <string>
#include <vector>

#include "core/craft/dims.h"

// 260 bytes on the wire and in files; the order is the format.
#pragma pack(push, 4)
struct snap_struct {
    float lcl_tot_time[2];        // locl_time, totl_time
    double lat_lon_ele[3];        // degrees, m
    float pln_vel_angs[9];        // vx, vy, vz, P, Q, R, the, psi, phi
    float hi_defs[10];
    int radio_frqs[2];
    unsigned int int_sit;
    float boat_loc[4];
    unsigned char byt_dat[122];   // byte 0 marks a filled snapshot
    unsigned char spare[2];       // completes the 260 bytes
};
#pragma pack(pop)
static_assert(sizeof(snap_struct) == 260 && offsetof(snap_struct, byt_dat) == 136);

struct warn_struct { float time; int warn_index; };
struct text_struct { float time; std::string text_str; };
struct mark_struct { float time; std::string mark_str; };
struct evnt_struct { float time1, time2; };

struct path_struct {
    int got_file;
    float start_time_of_day;
    int cntr_record;              // newest snapshot
    float lotime, hitime;         // range of totl_time in the ring
    snap_struct snap[pathDIM];
    float xyz[pathDIM][2][3];     // position and the point under it at elevation 0
    float psi[pathDIM], the[pathDIM];
    std::vector<warn_struct> warn;
    std::vector<text_struct> text;
    std::vector<mark_struct> mark;
    std::vector<evnt_struct> evnt;
};
extern path_struct pat;
