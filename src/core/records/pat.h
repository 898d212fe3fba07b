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
    float pln_vel_angs[9];        // vx, vy, vz m/s, P, Q, R degrees/s, the, psi, phi degrees
    float hi_defs[10];            // masses kg, v_ind_kts, y_agl_mtr m, dials: values that bytes are too coarse for
    int radio_frqs[2];            // NAV in thousands, ADF below, of each side
    unsigned int int_sit;         // switches, a bit each
    float boat_loc[4];            // x, z of the carrier and the frigate, world frame, m
    unsigned char byt_dat[122];   // byte 0 marks a filled snapshot
    unsigned char spare[2];       // completes the 260 bytes
};
#pragma pack(pop)
static_assert(sizeof(snap_struct) == 260 && offsetof(snap_struct, byt_dat) == 136);

// Times are totl_time, s.
struct warn_struct { float time; int warn_index; };          // sound cue
struct text_struct { float time; std::string text_str; };    // spoken remark
struct mark_struct { float time; std::string mark_str; };    // label on the slider
struct evnt_struct { float time1, time2; };                  // highlighted span

struct path_struct {
    int got_file;                 // 0 or 1: the flight was read from a recorder's file; its reader, window 13
    float start_time_of_day;      // of that flight, s
    int cntr_record;              // newest snapshot
    float lotime, hitime;         // range of totl_time in the ring
    snap_struct snap[pathDIM];    // the ring; recorder, files, network
    float xyz[pathDIM][2][3];     // position and the point under it at elevation 0
    float psi[pathDIM], the[pathDIM];  // true heading, pitch, degrees
    std::vector<warn_struct> warn;  // sound cues
    std::vector<text_struct> text;  // spoken remarks
    std::vector<mark_struct> mark;  // labels
    std::vector<evnt_struct> evnt;  // highlighted spans
};
extern path_struct pat;
