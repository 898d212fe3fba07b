// The table of sounds, on the sound seam.
#include "sound/sound.h"

#include <utility>

#include "core/program/seams.h"
#include "core/records/mnw.h"
#include "core/records/stl.h"

soun_class soun;

static bool is_slot(int snd_en) { return snd_en >= 0 && snd_en < soundDIM; }

void soun_class::SOUND_fill_buffer(int snd_en, std::string dir, std::string file) {
    if (is_slot(snd_en)) buffer_[snd_en] = {std::move(dir), std::move(file)};
}

void soun_class::SOUND_set(int snd_en, float frq_rat, float vol_rat) {
    if (is_slot(snd_en)) seam.play_sound(snd_en, frq_rat, vol_rat);
}

void soun_class::SPEECH_speakstring(const std::string& text, int can_write) {
    constexpr float least = 6.0f, per_character = 0.125f;  // s
    stl.verbal_string = text;
    if (can_write) stl.verbal_timeout = mnw.real_time + least + per_character * static_cast<float>(text.size());
}

void soun_class::SOUND_stop() { seam.stop_sounds(); }

// Without a sound device nothing follows the aircraft.
void soun_class::SOUND_maintain() {}

void soun_class::SOUND_close() {
    SOUND_stop();
    for (buffer_struct& buffer : buffer_) buffer = {};
}

// No device is asked yet: the program flies silently.
int soun_class::SOUND_init() { return 0; }
