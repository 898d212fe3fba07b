// The files of the sound slots.
#include "app/start/plane_sounds.h"

#include "core/craft/veh.h"
#include "sound/sound.h"

namespace {
struct engine_sound {
    const char* engine;
    const char* starter;  // null: none
};
const engine_sound engine_sounds[engn_kinds] = {
    {"ENGINE_RECIPROCATING.wav", "STARTER_RECIP.WAV"},
    {"ENGINE_RECIPROCATING.wav", "STARTER_RECIP.WAV"},
    {"ENGINE_TURBOPROP.wav", "STARTER_TURBOPROP.WAV"},
    {"ENGINE_ELECTRIC.wav", nullptr},
    {"ENGINE_LO_BYPASS_JET.wav", "STARTER_JET.WAV"},
    {"ENGINE_HI_BYPASS_JET.wav", "STARTER_JET.WAV"},
    {"ENGINE_ROCKET.wav", nullptr},
    {"ENGINE_ROCKET.wav", nullptr},
    {"ENGINE_TURBOPROP.wav", "STARTER_TURBOPROP.WAV"},
};
const char* const prop_sounds[prop_kinds] = {
    "PROPELLER_OF_AIRPLANE.wav", "PROPELLER_OF_AIRPLANE.wav", "PROPELLER_OF_AIRPLANE.wav",
    "PROPELLER_OF_GYRO.wav",     "PROPELLER_OF_AIRPLANE.wav", "PROPELLER_OF_AIRPLANE.wav",
    "PROPELLER_OF_LIFTFAN.wav",  "PROPELLER_OF_HELO.wav",
};

struct fixed_sound {
    int slot;
    const char* folder;
    const char* file;
};
#define SOUND_ROW(name, number, folder, file) {number, folder, file},
const fixed_sound fixed_sounds[] = {FIXED_SOUNDS(SOUND_ROW)};
#undef SOUND_ROW
}  // namespace

void load_plane_sounds() {
    soun.SOUND_stop();
    for (int en = 0; en < veh[0].num_engines; ++en) {
        const veh_engn_struct& e = veh[0].engn[en];
        const engine_sound& s = engine_sounds[e.engn_type];
        soun.SOUND_fill_buffer(en + sound_engine_first, "engine:", s.engine);
        soun.SOUND_fill_buffer(en + sound_prop_first, "engine:", prop_sounds[e.prop_type]);
        if (s.starter) soun.SOUND_fill_buffer(en + sound_starter_first, "engine:", s.starter);
    }
    for (const fixed_sound& s : fixed_sounds) soun.SOUND_fill_buffer(s.slot, s.folder, s.file);
}
