// The table of fixed pictures.
#include "scene/fixed/fixed_textures.h"

#include <string.h>

#include "core/math/num.h"
#include "core/math/random.h"
#include "core/program/alert.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "platform/window_x11.h"

namespace {
using list = std::vector<fixed_texture>;

std::string two_digits(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

void add(list* to, int ref, int filter, const std::string& path) { to->push_back({ref, filter, {path}}); }

// A name with a number from 1 on.
void add_numbered(list* to, int ref, int count, int filter, const std::string& name) {
    for (int n = 1; n <= count; ++n) add(to, ref + n - 1, filter, name + std::to_string(n) + ".png");
}

void add_one_of(list* to, int ref, int count, int filter, const std::string& name) {
    fixed_texture entry = {ref, filter, {}};
    for (int n = 1; n <= count; ++n) entry.paths.push_back(name + std::to_string(n) + ".png");
    to->push_back(entry);
}

// Asphalt at the odd reference, concrete at the next.
void add_pair(list* to, int ref, const std::string& name) {
    add(to, ref, filter_rgb, "runways:asphalt:" + name + ".png");
    add(to, ref + 1, filter_rgb, "runways:concrete:" + name + ".png");
}

void add_hard_runways(list* to) {
    int ref = tex_runway;
    const auto pair = [&](const std::string& name) { add_pair(to, ref, name), ref += 2; };
    for (const char* name : {"rway_blas", "rway_dis1", "rway_dis2", "rway_dis3", "rway_thr0", "rway_thr1", "rway_thr2"})
        pair(name);
    for (const char* name : {"rway_L", "rway_C", "rway_R", "rway_space"}) pair(std::string("numbers:") + name);
    constexpr int numbers = 36;
    for (int n = 1; n <= numbers; ++n) pair("numbers:rway_" + std::to_string(n));
    pair("numbers:rway_semi");
    for (const char* name : {"rway_fdmk", "rway_tdz1", "rway_tdz2", "rway_tdz3", "rway_turn", "rway_pave",
                             "rway_shoulder_l", "rway_shoulder_r", "rway_line"})
        pair(name);
}

void add_other_runways(list* to) {
    constexpr int lines = 115, pads = 119, thresholds = 123;
    const char* const naturals[] = {"grass", "dirt", "grav", "lakebed"};
    const auto under = [](const char* ground, const char* name) {
        return std::string("runways:") + ground + ":" + name + ".png";
    };
    for (int i = 0; i < 4; ++i) add(to, lines + i, filter_rgba, under(naturals[i], "rway_line"));
    add(to, pads, filter_rgb, under("asphalt", "helipad"));
    add(to, pads + 1, filter_rgb, under("concrete", "helipad"));
    add(to, pads + 2, filter_rgba, under("grass", "helipad"));
    add(to, pads + 3, filter_rgba, under("dirt", "helipad"));
    for (int i = 0; i < 4; ++i) add(to, thresholds + i, filter_rgba, under(naturals[i], "rway_thr1"));
    add(to, tex_skids, filter_rgba, "runways:skids.png");
}

void add_water(list* to) {
    const char* const states[] = {"1 Calm:", "2 Smooth:", "3 Slight:", "4 Moderate:",
                                  "5 Rough:", "6 Very Rough:", "7 High:"};
    constexpr int frames = 16;
    int ref = tex_water;
    for (const char* state : states)
        for (int frame = 1; frame <= frames; ++frame, ++ref)
            add(to, ref, filter_rgb_mip, std::string("terrain:water:") + state + "sea" + two_digits(frame) + ".png");
    add(to, tex_taxiline, filter_rgb, "runways:taxiline.png");
}

void add_sky(list* to) {
    constexpr int phases = 23, bands = 4, balloons = 4;
    for (int phase = 1; phase <= phases; ++phase)
        add(to, tex_moon + phase - 1, filter_rgba, "world:moon:moon" + two_digits(phase) + ".png");
    add_numbered(to, tex_aurora, bands, filter_rgba, "world:overlays:aurora_");
    add_numbered(to, tex_balloon, balloons, filter_rgb, "world:balloons:balloon");
    const std::string clouds = "world:clouds:";
    add_one_of(to, tex_cirrus, 9, filter_rgba, clouds + "cld_cirrus_");
    add_one_of(to, tex_stratus, 2, filter_rgba, clouds + "cld_stratus_");
    add(to, tex_overcast, filter_rgb, clouds + "cld_ocast_1.png");
    add_one_of(to, tex_puff, 2, filter_rgba_mip, clouds + "cld_puff_");
    add(to, tex_smoke, filter_rgba, clouds + "smoke_puff.png");
}

// The rest in the order of their references.
constexpr struct {
    int ref, filter;
    const char* path;
} singles[] = {
    {tex_flame, filter_rgba, "world:fire:flame_burner_fast.png"},
    {tex_flame + 1, filter_rgba, "world:fire:flame_burner_slow.png"},
    {tex_flame + 2, filter_rgba, "world:fire:flame_rocket_liq.png"},
    {tex_flame + 3, filter_rgba, "world:fire:flame_rocket_sol.png"},
    {tex_building, filter_rgb, "world:buildings:surfaces.png"},
    {tex_deck, filter_rgb, "world:buildings:deck.png"},
    {tex_movie, filter_rgb_mip, "world:movie.png"},
    {tex_cars, filter_rgb, "world:cars.png"},
    {tex_person, filter_rgb, "world:person.png"},
    {tex_chute, filter_rgb, "world:chute.png"},
    {tex_fire, filter_rgba, "world:fire:fire.png"},
    {tex_fence, filter_rgba_mip, "world:overlays:fence.png"},
    {tex_prop_disc, filter_rgba, "world:overlays:prop_disc.png"},
    {tex_snow, filter_rgba, "world:overlays:snow.png"},
    {tex_wake, filter_rgba, "world:overlays:wake.png"},
    {tex_lights, filter_rgba, "world:lites:lights.png"},
    {tex_landing_light, filter_rgb, "world:lites:landing_light.png"},
    {tex_ice, filter_rgba, "world:overlays:ice.png"},
    {tex_scratches, filter_rgba, "world:overlays:scratches.png"},
    {tex_win_damage, filter_rgba, "world:overlays:win_damage.png"},
    {tex_static, filter_rgba, "world:overlays:static.png"},
    {tex_sun_glow, filter_rgba, "world:lites:sun_glow.png"},
    {tex_map, filter_rgb, "world:maps:rad_land.png"},
    {tex_map + 1, filter_rgb, "world:maps:rad_water.png"},
    {tex_map + 2, filter_rgb, "world:maps:nrt_land.png"},
    {tex_map + 3, filter_rgb, "world:maps:nrt_water.png"},
    {tex_map + 4, filter_rgb, "world:maps:sec_land.png"},
    {tex_map + 5, filter_rgb, "world:maps:sec_water.png"},
    {tex_sectional_colours, filter_rgb, "world:maps:sec_colors.png"},
    {tex_powerlines, filter_rgba, "world:powerlines.png"},
};

void stand_in(const fixed_texture& missing) {
    const bool has_alpha = missing.filter == filter_rgba || missing.filter == filter_rgba_mip;
    constexpr int side = 2, rgb = 3, rgba = 4;
    if (!has_alpha && tman.load_texture(0, load_ogl, missing.ref, missing.filter, "blank.png")) return;
    scratch_dx = scratch_dy = side;
    for (int texel = 0; texel < side * side; ++texel) {
        unsigned char* const to = scratch_array + texel * (has_alpha ? rgba : rgb);
        memset(to, 255, rgb);
        if (has_alpha) to[rgb] = 0;
    }
    tman.load_texture(0, load_ogl, missing.ref, missing.filter, scratch_name);
}
}  // namespace

std::vector<fixed_texture> list_fixed_textures() {
    list all;
    add_hard_runways(&all);
    add_other_runways(&all);
    add_water(&all);
    add_sky(&all);
    for (const auto& single : singles) add(&all, single.ref, single.filter, single.path);
    return all;
}

void load_fixed_textures() {
    if (!cx) return;
    const faults_of_file gather("Resources/bitmaps");
    OGL_setstate(fog_off, 1, lit_off, al_none, depth_no_read, depth_no_write);
    if (!tman.tex_vram(tex_blank)) stand_in({tex_blank, filter_rgb, {}});  // pavement is bound to it first
    for (const fixed_texture& texture : list_fixed_textures()) {
        const int last = static_cast<int>(texture.paths.size()) - 1;
        const int lot = intlim(static_cast<int>(view_rand(0.0f, static_cast<float>(last + 1))), 0, last);
        if (!tman.load_texture(1, load_ogl, texture.ref, texture.filter, texture.paths[static_cast<size_t>(lot)]))
            stand_in(texture);
    }
}
