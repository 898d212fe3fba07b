// The airfoil set of one surface: root and tip foil, each at a low and a high Reynolds number.
// Role: read from ".afl" files at load, looked up per element in flight. In memory only.
#pragma once
#include "core/craft/dims.h"

// RT: 0 root, 1 tip. Re: 0 low, 1 high Reynolds number.
struct afl_struct {
    float re_num[2][2];       // Reynolds number, millions
    float t_rat[2];           // thickness over chord
    float mach_div[2];        // drag divergence Mach number
    float clM[2][2];          // lift slope, per degree
    float clB[2][2];          // lift coefficient at zero alpha
    float almin[2][2];        // negative stall alpha, degrees
    float almax[2][2];        // positive stall alpha, degrees
    float cl[2][2][aflDIM];   // tables over alpha; entry i stands at ret_alpha(i)
    float cd[2][2][aflDIM];
    float cm[2][2][aflDIM];
    // Generator parameters: once per set, the last file read leaves its values.
    float Llinrange;          // half width of the linear lift range, degrees
    float Lpow;               // power from the linear range to the stall
    float Lstall;             // lift coefficient at the stall
    float Ldrop1;             // instant loss of lift at the stall
    float Lpowstl;            // power beyond the stall
    float Ldrop2;             // further loss up to 20 degrees
    float Dmin;               // least drag coefficient
    float DminCL;             // lift coefficient of least drag
    float Dal10;              // drag coefficient at 10 degrees
    float Dpow;               // power of the drag curve
    float Bloc;               // low-drag bucket: lift coefficient of its centre
    float Bwidth;             // its width in lift coefficient
    float Bdepth;             // its depth in drag coefficient
    float Bpower;             // power of its walls
    float cmal2, cmal3;       // inner breakpoints of the moment curve, degrees
    float cm1, cm2, cm3, cm4; // moment coefficients at -20, cmal2, cmal3 and +20 degrees
};
