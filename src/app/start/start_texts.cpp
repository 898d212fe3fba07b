// Texts of the starts, by their codes.
#include "app/start/start_texts.h"

#include "core/program/alert.h"
#include "core/program/upward.h"
#include "core/records/mnw.h"

namespace {
struct start_text {
    int first, last;  // codes
    const char* line[4];
};

constexpr start_text exercises[] = {
    {start_catapult,
     start_catapult,
     {"You are on the catapult of the carrier.",
      "Set the flaps for takeoff and full throttle, then release the parking brake: that fires the catapult.",
      "Hold the nose up gently as you leave the deck.", ""}},
    {start_water,
     start_water,
     {"You are floating on the water near a coast, with the engines running.",
      "Use the water rudder to turn, and keep the stick back until the floats rise onto the surface.", "",
      ""}},
    {start_tow,
     start_tow,
     {"A towplane stands ahead of you, at the other end of the line.",
      "Release the parking brake to begin the tow, and follow the towplane at its own height.",
      "Stay behind it, not above it, and let go of the line when you are high enough.", ""}},
    {start_winch,
     start_winch,
     {"A winch stands at the far end of the line, ahead of you.",
      "Release the parking brake to begin the launch, and let the glider climb by itself at first.",
      "Then pull back for a steep climb, and let go of the line when it no longer lifts you.", ""}},
    {start_formation,
     start_formation,
     {"Another aircraft like yours is ahead of you, a little to the right.",
      "Close in on it slowly, and stay beside it through its turns.",
      "Use small changes of power: the distance follows them late.", ""}},
    {start_refuel_af,
     start_refuel_navy,
     {"A tanker is ahead of you, and you are low on fuel.",
      "Come up from behind and a little below, no faster than a walk over the last of the way.",
      "Then hold your place while it fills your tanks.", ""}},
    {start_carried,
     start_carried,
     {"You hang under the aircraft that has carried you to this height, with full tanks.",
      "When you are let go you fall free: lower the nose to gain speed before you start your engines or "
      "glide.",
      "", ""}},
    {start_carrier,
     start_carrier,
     {"You are 90 seconds from the carrier, on a path of 3.5 degrees to its angled deck.",
      "Lower the gear and the arresting hook, and hold the speed that you have now.",
      "Do not flare: fly onto the deck, and give full throttle until the wire holds you.", ""}},
    {start_frigate,
     start_frigate,
     {"You are 90 seconds from the frigate, on a path of 3.5 degrees to its deck.",
      "The deck is short and moves with the sea: come to a hover above it before you set down.", "", ""}},
    {start_platform_1,
     start_platform_2,
     {"You are 90 seconds from an oil platform, on a path of 3.5 degrees to its deck.",
      "Slow down early, and come to a hover above the deck before you set down.", "", ""}},
    {start_fire,
     start_fire,
     {"A forest fire burns ahead of you, and the wind blows strongly.",
      "Fly low over it from upwind and drop your water just before you reach the flames.",
      "The air over the fire is hot and rough: leave yourself a way out.", ""}},
    {start_shuttle_first,
     start_shuttle_last,
     {"You are on the way back from space to runway 6 of Edwards, without engines.",
      "Keep the nose high in the thin air, and use banked turns to be rid of speed and height.",
      "The last glide is steep: 18,000 feet at 8 miles. Raise the nose late, and lower the gear just before "
      "the "
      "ground.",
      ""}},
};

constexpr start_text refusals[] = {
    {start_custom,
     start_custom,
     {"This is not a place to start from!", "I have put you on a runway.", "", ""}},
    {start_grass,
     start_helipad,
     {"I can't find any landing place of this kind!", "I have put you on the runway of your airport.", "",
      ""}},
    {start_formation,
     start_carried,
     {"I can't find the other aircraft of this flight!", "I have put you on the runway of your airport.", "",
      ""}},
    {start_catapult,
     start_catapult,
     {"I can't find one in the area!", "Try going to a coastal area!", "", ""}},
    {start_carrier,
     start_platform_2,
     {"I can't find one in the area!", "Try going to a coastal area!", "", ""}},
    {start_water,
     start_water,
     {"I can't find any signifigant amount of coastline in this area!",
      "Try going to a coastal region to guarantee that I can find some coastline to put your plane near.", "",
      ""}},
    {start_fire,
     start_fire,
     {"I can't find any forest fires in the area!",
      "Try moving to a mountainous area, where fires are more likely!",
      "Also be sure there is no rain and the temperature is above 32 F!",
      "You can set this stuff in the Set Weather window."}},
    {start_shuttle_first,
     start_shuttle_last,
     {"I can't find the airport KEDW, where the shuttle lands!",
      "I have put you on the runway of your airport.", "", ""}},
};

void tell(const start_text& text) {
    MACIBM_alert(mnw.top_win, text.line[0], text.line[1], text.line[2], text.line[3], alert_message);
}

template <int count>
void tell_of(const start_text (&texts)[count], int code) {
    for (const start_text& text : texts)
        if (text.first <= code && code <= text.last) return tell(text);
}
}  // namespace

void explain_exercise(int code) { tell_of(exercises, code); }
void tell_refusal(int code) { tell_of(refusals, code); }

void warn_of_no_water() {
    MACIBM_alert(mnw.top_win, "You carry no water to drop on the fire!",
                 "Load some in the weight and fuel window, or scoop it up from a lake.", "", "",
                 alert_message);
}
