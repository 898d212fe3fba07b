// The strip of flight data.
#include "scene/flight_strip.h"

#include <GL/gl.h>
#include <stdio.h>

#include <string>

#include "core/craft/engn_kinds.h"
#include "core/math/num.h"
#include "core/records/atm.h"
#include "core/records/con.h"
#include "core/records/env.h"
#include "core/records/flt.h"
#include "core/records/mnw.h"
#include "core/records/stg.h"
#include "draw/gl/colours.h"
#include "draw/gl/ogl.h"
#include "draw/primitives.h"
#include "draw/type.h"
#include "flight/landing_report.h"

static constexpr int label_colour = 39, value_colour = col_white, warn_colour = 8;
static constexpr float strip_height = 50.0f;  // virtual units, as all below

static void box(float x1, float y1, float x2, float y2, float r, float g, float b, float a) {
    OGL_setstate(fog_off, 0, lit_off, al_blend, depth_no_read, depth_no_write);
    glColor4f(r, g, b, a);
    glBegin(GL_QUADS);  // clockwise: the front side
    glVertex2f(x1, y1);
    glVertex2f(x1, y2);
    glVertex2f(x2, y2);
    glVertex2f(x2, y1);
    glEnd();
}

// A number in its form; what is not finite shows as dashes.
static std::string form(const char* format, float value) {
    if (!(value - value == 0.0f)) return "---";
    char text[32];
    snprintf(text, sizeof text, format, static_cast<double>(value));
    return text;
}

// Pictures a second, counted over half a second of wall clock.
static float frame_rate() {
    constexpr float span = 0.5f;
    static float since = 0.0f, rate = 0.0f;
    static int frames = 0;
    ++frames;
    const float passed = mnw.real_time - since;
    if (passed >= span || passed < 0.0f) {
        rate = passed > 0.0f ? static_cast<float>(frames) / passed : 0.0f;
        since = mnw.real_time;
        frames = 0;
    }
    return rate;
}

static float total_power_kW() {
    float sum = 0.0f;
    for (const flt_engn_struct& engine : flt[0].engn) sum += engine.power;
    return sum * 0.001f;
}

// What the first engine's tachometer shows: turns of a shaft, or percent of a jet's fan.
static std::string tachometer() {
    const flt_engn_struct& engine = flt[0].engn[0];
    if (veh[0].num_engines == 0) return "-";
    const bool shaft = en_is_prop(0, 0);
    return shaft ? form("%4.0f rpm", engine.tacrad_ENGN * con.rsctorpm) : form("%3.0f %% N1", engine.N1);
}

static float total_fuel_kgph() {
    float sum = 0.0f;
    for (const flt_engn_struct& engine : flt[0].engn) sum += engine.FF_kgs;
    return sum * 3600.0f;
}

struct column_struct {
    const char* label;
    std::string upper, lower;
};

static void draw_column(int place, int columns, const column_struct& column) {
    const float width = (mnw.x2_pix - mnw.x1_pix - 16.0f) / static_cast<float>(columns);
    const float x = mnw.x1_pix + 12.0f + width * static_cast<float>(place);
    OGL_string(label_colour, x, 36.0f, column.label, no_wrap, charset_text);
    OGL_string(value_colour, x, 21.0f, column.upper, no_wrap, charset_text);
    OGL_string(value_colour, x, 8.0f, column.lower, no_wrap, charset_text);
}

static void draw_columns() {
    const flt_struct& f = flt[0];
    const float msc_to_kmh = 3.6f;
    const float eas = f.AV_sig_kts * con.ktstomsc;
    const column_struct columns[] = {
        {"SPEED", form("%3.0f kt", f.AV_sig_kts), form("%3.0f km/h", eas * msc_to_kmh)},
        {"HEIGHT", form("%5.0f ft", static_cast<float>(f.dob_ele) * con.mtrstoft),
         form("%.0f m gnd", f.y_agl_mtr)},
        {"HEADING", form("%03.0f mag", fltwrap(f.psi + env.mag_var, 0.0f, 360.0f)),
         form("%03.0f true", f.psi)},
        {"CLIMB", form("%+5.0f fpm", f.Vh_fpm), form("%+5.1f m/s", f.Vh_fpm * con.fpmtomsc)},
        {"ATTITUDE", form("%+5.1f deg", f.the), form("%+5.1f deg", f.phi)},
        {"LOAD", form("%+4.2f g", f.g_nrml), form("%+4.1f alpha", f.alpha)},
        {"POWER", form("%4.0f kW", total_power_kW()), form("%3.0f %% lever", f.engn[0].thro_use * 100.0f)},
        {"ENGINE", tachometer(), form("%4.0f kg/h", total_fuel_kgph())},
        {"FLAPS", form("%3.0f %%", f.handle_rat_act * 100.0f),
         form("%3.0f %%", fltmax2(f.sbrk_rat, 0.0f) * 100.0f)},
        {"STEP", form("%4.1f ms", mnw.prd_FM * 1000.0f), form("%3.0f /s", frame_rate())},
    };
    int place = 0;
    for (const column_struct& column : columns) draw_column(place++, std::size(columns), column);
}

static void draw_note(const std::string& text) {
    const float width = str_dx(text) + 48.0f, middle = 0.5f * (mnw.x1_pix + mnw.x2_pix);
    const float low = mnw.y2_pix - 96.0f;
    box(middle - 0.5f * width, low, middle + 0.5f * width, low + 34.0f, 0.05f, 0.08f, 0.12f, 0.75f);
    box(middle - 0.5f * width, low, middle + 0.5f * width, low + 2.0f, 1.0f, 0.72f, 0.25f, 0.9f);
    OGL_string(warn_colour, middle - 0.5f * str_dx(text), low + 12.0f, text, no_wrap, charset_text);
}

// A landing is told for some seconds when it is over.
static bool has_news() {
    constexpr float shown = 12.0f;  // s
    const landing_report_struct& landing = landing_report();
    return landing.number > 0 && !landing.is_open && mnw.totl_time - landing.closed_time < shown;
}

// Whoever wonders why the aircraft does not move is told.
static bool is_held() { return stg.parkbrake > 0.01f && flt[0].onground_any && flt[0].V_msc < 1.0f; }

void flight_strip_draw() {
    OGL_view_2d();
    box(mnw.x1_pix, 0.0f, mnw.x2_pix, strip_height, 0.04f, 0.07f, 0.11f, 0.78f);
    box(mnw.x1_pix, strip_height, mnw.x2_pix, strip_height + 1.5f, 0.55f, 0.68f, 0.78f, 0.6f);
    draw_columns();
    if (mnw.paused || mnw.replay_mode) return;  // told by the overlay
    if (has_news())
        draw_note(landing_report_text());
    else if (is_held())
        draw_note("BRAKE SET   b releases it");
}
