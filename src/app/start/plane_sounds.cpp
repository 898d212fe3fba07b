// Sound slots by name. Letter cases are those of the files.
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
const fixed_sound fixed_sounds[] = {
    {24, "engine:", "AFTERBURNER.WAV"}, {25, "engine:", "REVERSE_THRUST.WAV"},
    {53, "alert:", "1000ft.wav"},       {54, "alert:", "500ft.wav"},
    {55, "alert:", "400ft.wav"},        {56, "alert:", "300ft.wav"},
    {57, "alert:", "200ft.wav"},        {58, "alert:", "100ft.wav"},
    {59, "alert:", "50ft.wav"},         {60, "alert:", "40ft.wav"},
    {61, "alert:", "30ft.wav"},         {62, "alert:", "20ft.wav"},
    {63, "alert:", "10ft.wav"},         {52, "alert:", "caut.wav"},
    {49, "alert:", "glid.wav"},         {48, "alert:", "gwrn.wav"},
    {50, "alert:", "mini.wav"},         {47, "alert:", "pull.wav"},
    {46, "alert:", "sink.wav"},         {70, "alert:", "tcas.wav"},
    {51, "alert:", "wshr.wav"},         {41, "contact:", "BOOM1.WAV"},
    {42, "contact:", "BOOM2.WAV"},      {43, "contact:", "BOOM3.WAV"},
    {44, "contact:", "BOOM4.WAV"},      {40, "contact:", "LAND_WATER.WAV"},
    {31, "contact:", "ROLL_GROUND.WAV"},{30, "contact:", "ROLL_RUNWAY.WAV"},
    {32, "contact:", "skid_dry.wav"},   {33, "contact:", "skid_wet.wav"},
    {38, "systems:", "climb.wav"},      {37, "systems:", "descend.wav"},
    {68, "systems:", "dash_MIDDLE.WAV"},{66, "systems:", "dash_OUTER.WAV"},
    {69, "systems:", "dot_INNER.WAV"},  {67, "systems:", "dot_MIDDLE.WAV"},
    {64, "systems:", "mdot.wav"},       {65, "systems:", "mdas.wav"},
    {34, "systems:", "stall.wav"},      {35, "systems:", "gear_warn.wav"},
    {36, "systems:", "flap.wav"},       {39, "systems:", "gear.wav"},
    {222, "systems:", "click.wav"},     {45, "weather:", "hail_impact.wav"},
    {28, "weather:", "hail.wav"},       {27, "weather:", "rain.wav"},
    {29, "weather:", "thunder.wav"},    {26, "weather:", "wind.wav"},
};
}  // namespace

void load_plane_sounds() {
    constexpr int prop_slot = 8, starter_slot = 16;
    soun.SOUND_stop();
    for (int en = 0; en < veh[0].num_engines; ++en) {
        const veh_engn_struct& e = veh[0].engn[en];
        const engine_sound& s = engine_sounds[e.engn_type];
        soun.SOUND_fill_buffer(en, "engine:", s.engine);
        soun.SOUND_fill_buffer(en + prop_slot, "engine:", prop_sounds[e.prop_type]);
        if (s.starter) soun.SOUND_fill_buffer(en + starter_slot, "engine:", s.starter);
    }
    for (const fixed_sound& s : fixed_sounds) soun.SOUND_fill_buffer(s.slot, s.folder, s.file);
}
