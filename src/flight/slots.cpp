// Aircraft that fly by other means than forces: from the network and from the recording.
#include "flight/slots.h"

#include "core/math/axes.h"
#include "core/records/records.h"
#include "flight/recording.h"
#include "scenery/ground/terrain_query.h"
#include "sound/sound.h"

static void check_motion(const flt_struct& f) {
    for (const float v :
         {f.vx, f.vy, f.vz, f.P, f.Q, f.R, f.psi, f.the, f.phi, f.q[0], f.q[1], f.q[2], f.q[3]})
        check_val(v);
    for (const double v : {f.dob_x, f.dob_y, f.dob_z}) check_val(static_cast<float>(v));
}

// The ground of slot p; nothing is held up by it.
static void see_ground(int p) {
    flt_struct& f = flt[p];
    f.terrain_y_cg = return_terrain_y(static_cast<float>(f.dob_x), static_cast<float>(f.dob_z),
                                      p == 0 ? static_cast<int>(checker_user) : checker_slot_first + p);
    f.y_agl_mtr = static_cast<float>(f.dob_y) - veh[p].h_eqlbm - f.terrain_y_cg;
}

void update_with_net(int p) {
    flt_struct& f = flt[p];
    check_motion(f);
    if (!mnw.paused) {
        const float step = mnw.top_win == win_fly ? mnw.prd_FM : mnw.prd_UI;
        f.dob_x += static_cast<double>(f.vx) * step;
        f.dob_y += static_cast<double>(f.vy) * step;
        f.dob_z += static_cast<double>(f.vz) * step;
        const float rad = con.degtorad * step;
        update_quaternion(f.P * rad, f.Q * rad, f.R * rad, &f.psi, &f.the, &f.phi, f.q);
    }
    see_ground(p);
    check_motion(f);
}

namespace {
// The replay transport, by replay_mode.
enum replay_kind : int {
    replay_to_start = 1,
    replay_hold = 5,
    replay_slow = 6,
    replay_normal = 7,
    replay_to_end = 9
};

// How fast totl_time moves, against the frame.
float replay_speed(int mode) {
    constexpr float speed[10] = {0.0f, 0.0f, -5.0f, -1.0f, -0.2f, 0.0f, 0.2f, 1.0f, 5.0f, 0.0f};
    return speed[intlim(mode, 0, 9)];
}

bool filled(const snap_struct& s) { return s.byt_dat[0] != 0; }

// Range of the recording, and the pair of snapshots around the present time; true if there is one.
bool scan_recording() {
    bool got_dat = false, any = false;
    for (int i = 0; i < pathDIM; ++i) {
        const snap_struct& s = pat.snap[i];
        if (!filled(s)) continue;
        const float time = s.lcl_tot_time[1];
        pat.lotime = any ? fltmin2(pat.lotime, time) : time;
        pat.hitime = any ? fltmax2(pat.hitime, time) : time;
        any = true;
        const snap_struct& next = pat.snap[intwrap(i + 1, 0, pathDIM - 1)];
        if (!filled(next)) continue;
        const float next_time = next.lcl_tot_time[1];
        if (time <= mnw.totl_time && mnw.totl_time <= next_time) {
            snap_recall(s, next, extrap(time, 0.0f, next_time, 1.0f, mnw.totl_time));
            got_dat = true;
        }
    }
    return got_dat;
}

// Warnings and spoken texts recorded between the last frame and this.
void play_cues(float from, float to) {
    for (const warn_struct& cue : pat.warn)
        if (from < cue.time && cue.time <= to) soun.SOUND_set(cue.warn_index + sound_free_first, 1.0f, 1.0f);
    for (const text_struct& cue : pat.text)
        if (from < cue.time && cue.time <= to) soun.SPEECH_speakstring(cue.text_str, 1);
}
}  // namespace

void update_with_replay() {
    const float before = mnw.totl_time;
    mnw.totl_time += replay_speed(mnw.replay_mode) * mnw.prd_FM;
    const bool got_dat = scan_recording();
    if (mnw.replay_mode == replay_slow || mnw.replay_mode == replay_normal) play_cues(before, mnw.totl_time);
    if (!got_dat) mnw.replay_mode = replay_hold;
    if (mnw.replay_mode == replay_to_start) mnw.totl_time = pat.lotime;
    if (mnw.replay_mode == replay_to_end) mnw.totl_time = pat.hitime;
    if (pat.hitime > pat.lotime) mnw.totl_time = fltlim(mnw.totl_time, pat.lotime, pat.hitime);
}
