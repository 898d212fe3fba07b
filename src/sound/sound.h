// Sounds by number: a fixed table of slots, each asked for by pitch and volume from anywhere.
// Role: keeps which file belongs to which slot and hands requests to the sound seam; no device here.
#pragma once
#include <string>

constexpr int soundDIM = 223;

enum sound_slot : int {
    sound_wind_shear = 51,
    sound_click = 222,
};

class soun_class {
public:
    // Remembers the file of a slot; dir is a folder below the sounds, in the system's path style.
    void SOUND_fill_buffer(int snd_en, std::string dir, std::string file);
    // Plays or adjusts: pitch ratio and volume ratio, 1 as recorded. A slot out of range is ignored.
    void SOUND_set(int snd_en, float frq_rat, float vol_rat);
    int SOUND_init();       // 1 when a sound device answers
    void SOUND_stop();      // silences everything, the files stay
    void SOUND_maintain();  // once a frame: the sounds that follow the aircraft
    void SOUND_close();     // silences everything and forgets the files

    struct buffer_struct {
        std::string dir, file;  // empty while nothing was filled in
    };
    const buffer_struct& buffer(int snd_en) const { return buffer_[snd_en]; }

private:
    buffer_struct buffer_[soundDIM];
};
extern soun_class soun;
