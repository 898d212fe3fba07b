// Sounds by number: a fixed table of slots, each asked for by pitch and volume from anywhere.
// Role: keeps which file belongs to which slot and hands requests to the sound seam; no device here.
#pragma once
#include <string>

constexpr int soundDIM = 223;

// Slots with a sound of their own: name, number, folder, file. Letter cases are those of the files.
#define FIXED_SOUNDS(X)                               \
    X(afterburner, 24, "engine:", "AFTERBURNER.WAV")  \
    X(reverse, 25, "engine:", "REVERSE_THRUST.WAV")   \
    X(wind, 26, "weather:", "wind.wav")               \
    X(rain, 27, "weather:", "rain.wav")               \
    X(hail, 28, "weather:", "hail.wav")               \
    X(thunder, 29, "weather:", "thunder.wav")         \
    X(roll_runway, 30, "contact:", "ROLL_RUNWAY.WAV") \
    X(roll_ground, 31, "contact:", "ROLL_GROUND.WAV") \
    X(skid_dry, 32, "contact:", "skid_dry.wav")       \
    X(skid_wet, 33, "contact:", "skid_wet.wav")       \
    X(stall, 34, "systems:", "stall.wav")             \
    X(gear_warning, 35, "systems:", "gear_warn.wav")  \
    X(flaps, 36, "systems:", "flap.wav")              \
    X(descend, 37, "systems:", "descend.wav")         \
    X(climb, 38, "systems:", "climb.wav")             \
    X(gear, 39, "systems:", "gear.wav")               \
    X(water, 40, "contact:", "LAND_WATER.WAV")        \
    X(boom_1, 41, "contact:", "BOOM1.WAV")            \
    X(boom_2, 42, "contact:", "BOOM2.WAV")            \
    X(boom_3, 43, "contact:", "BOOM3.WAV")            \
    X(boom_4, 44, "contact:", "BOOM4.WAV")            \
    X(hail_impact, 45, "weather:", "hail_impact.wav") \
    X(sink, 46, "alert:", "sink.wav")                 \
    X(pullup, 47, "alert:", "pull.wav")               \
    X(gear_up, 48, "alert:", "gwrn.wav")              \
    X(glide_slope, 49, "alert:", "glid.wav")          \
    X(minimum, 50, "alert:", "mini.wav")              \
    X(wind_shear, 51, "alert:", "wshr.wav")           \
    X(caution, 52, "alert:", "caut.wav")              \
    X(height_1000, 53, "alert:", "1000ft.wav")        \
    X(height_500, 54, "alert:", "500ft.wav")          \
    X(height_400, 55, "alert:", "400ft.wav")          \
    X(height_300, 56, "alert:", "300ft.wav")          \
    X(height_200, 57, "alert:", "200ft.wav")          \
    X(height_100, 58, "alert:", "100ft.wav")          \
    X(height_50, 59, "alert:", "50ft.wav")            \
    X(height_40, 60, "alert:", "40ft.wav")            \
    X(height_30, 61, "alert:", "30ft.wav")            \
    X(height_20, 62, "alert:", "20ft.wav")            \
    X(height_10, 63, "alert:", "10ft.wav")            \
    X(morse_dot, 64, "systems:", "mdot.wav")          \
    X(morse_dash, 65, "systems:", "mdas.wav")         \
    X(outer, 66, "systems:", "dash_OUTER.WAV")        \
    X(middle_dot, 67, "systems:", "dot_MIDDLE.WAV")   \
    X(middle_dash, 68, "systems:", "dash_MIDDLE.WAV") \
    X(inner, 69, "systems:", "dot_INNER.WAV")         \
    X(tcas, 70, "alert:", "tcas.wav")                 \
    X(click, 222, "systems:", "click.wav")

#define SOUND_NUMBER(name, number, folder, file) sound_##name = number,
enum sound_slot : int {
    sound_engine_first = 0,    // by engine
    sound_prop_first = 8,      // by engine
    sound_starter_first = 16,  // by engine
    FIXED_SOUNDS(SOUND_NUMBER) sound_chatter_first = 71,
    sound_chatter_last = 120,
    sound_free_first = 121,  // of aircraft, recordings and the network
    sound_free_last = 221,
};
#undef SOUND_NUMBER

class soun_class {
public:
    // Remembers the file of a slot; dir is a folder below the sounds, in the system's path style.
    void SOUND_fill_buffer(int snd_en, std::string dir, std::string file);
    // Plays or adjusts: pitch ratio and volume ratio, 1 as recorded. A slot out of range is ignored.
    void SOUND_set(int snd_en, float frq_rat, float vol_rat);
    // What is spoken now: kept as text, which stands over the picture for a while when can_write.
    void SPEECH_speakstring(const std::string& text, int can_write);
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
