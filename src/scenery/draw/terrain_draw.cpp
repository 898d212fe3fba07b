// The ground scene, tile by tile, layer by layer, bucket by bucket.
#include "scenery/draw/terrain_draw.h"

#include <GL/gl.h>

#include "core/math/axes.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "core/program/logs.h"
#include "core/program/upward.h"
#include "core/records/records.h"
#include "draw/gl/colours.h"
#include "draw/gl/frame_counts.h"
#include "draw/gl/ogl.h"
#include "draw/images/tman.h"
#include "scenery/draw/airports_draw.h"
#include "scenery/draw/object_draw.h"
#include "scenery/draw/proj_tex.h"
#include "scenery/draw/ships_draw.h"
#include "scenery/objects/objects.h"
#include "weather/sky/skyc.h"

namespace {
struct colour_struct {
    float r, g, b;
};
constexpr colour_struct map_water = {0.1764706f, 0.254902f, 0.2941177f};

// What stays from frame to frame.
struct kept_struct {
    float water_phase = 0.0f;  // of the waves' pictures, 0 to 1
    float last_real_time = 0.0f;
    int water_tex_ref = tex_water;
    bool drawing = false;  // an alert in the midst of it draws the world again
    bool told_units = false;
};
kept_struct kept;

// The layer that is drawn now.
struct drawn_struct {
    ground_view_struct view;
    int fog = fog_on;
    colour_struct water = {};
    layer_units_struct look;  // of the layer, when it is terrain
    int object_units = 0;     // of the layer, when it is objects
    bool begun = false;       // its state is set: not before something of it is seen
    int poly_offset = 0, two_sided = 0;
};
drawn_struct drawn;

float biased(float lod_m_sqr) { return lod_m_sqr * sqr(stg.LOD_bias_rat); }

// -- state of a layer

void set_water_land_color_state(const xlay_struct& layer) {
    const bool bare_water = drawn.look.is_water && !drawn.look.is_untex_map;
    OGL_setstate(drawn.fog, drawn.look.count, bare_water ? lit_off : lit_on,
                 layer.alpha_blnd ? al_both : al_none, depth_read,
                 layer.poly_offset > 0 ? depth_no_write : depth_write);
    if (bare_water)
        OGL_setcolorRGBA(drawn.water.r, drawn.water.g, drawn.water.b, 1.0f, 1);
    else
        OGL_setcolorRGBA(1.0f, 1.0f, 1.0f, 1.0f, 1);
}

void set_surface(int poly_offset, int two_sided) {
    if (poly_offset != drawn.poly_offset) OGL_poly_offset(drawn.poly_offset = poly_offset);
    if (two_sided != drawn.two_sided) OGL_cull(!(drawn.two_sided = two_sided));
}

// Units that do not project any more are turned off here, or at the end of the pass: the next layer mostly
// asks for the same.
void begin_terrain(const xlay_struct& layer) {
    drawn.begun = true;
    set_water_land_color_state(layer);
    for (int i = 0; i < most_ground_units; ++i) {
        const unit_struct unit = i < drawn.look.count ? drawn.look.unit[i] : unit_struct{0, 0, proj_none};
        if (unit.ref) tman.bind_ref(unit.ref, i, unit.mode);
        set_proj_tex(unit.projection, i, &layer.cus_proj, unit.ref);
    }
    set_surface(layer.poly_offset, layer.two_sided);
}

void begin_objects(const xlay_struct& layer) {
    drawn.begun = true;
    OGL_setstate(drawn.fog, drawn.object_units, lit_on, layer.alpha_blnd ? al_both : al_none, depth_read,
                 depth_write);
    tman.bind_ref(layer.plane_tex_ref, 0, combine_default);
    if (layer.use_night_lite) tman.bind_ref(layer.night_tex_ref, 1, combine_add);
}

// -- what a bucket holds

bool holds(float near_sqr, float far_sqr, float lod_m_sqr) {
    return near_sqr <= lod_m_sqr && (far_sqr == -1.0f || lod_m_sqr < far_sqr);
}

// The last level whose range holds the distance; -1 for none.
int level_of(const vec_mod_struct& model, float lod_m_sqr) {
    int level = -1;
    for (size_t L = 0; L < model.vec_lod.size(); ++L)
        if (holds(model.vec_lod[L].dis_near_sqr, model.vec_lod[L].dis_far_sqr, lod_m_sqr))
            level = static_cast<int>(L);
    return level;
}
}  // namespace

// The bucket's distance decides, not the patch's: what lies in one bucket changes together.
void plot_bucket_terrain_layer(XBucketID id, float lod_m_sqr, xlay_struct* ref) {
    if (drawn.look.count == 0) {
        MACIBM_data_fault("plot_bucket_terrain_layer with no tex units!", "", "", "");
        return;
    }
    const auto& patches = ref->scene_buckets.GetOneBucket(id);
    if (patches.empty()) return;
    lod_m_sqr = biased(lod_m_sqr);
    ++ren.num_terrain_buckets;
    for (const scene_patch_struct* patch : patches) {
        if (!holds(patch->dis_near_sqr, patch->dis_far_sqr, lod_m_sqr) ||
            !xcam.SphereInView(patch->center_x, patch->center_y, patch->center_z, patch->radius))
            continue;
        if (!drawn.begun) begin_terrain(*ref);
        glCallList(patch->patch_DL);
        ++frame_counts.lists;
        frame_counts.triangles += patch->triangles;
        ++ren.num_patches;
    }
}

void plot_bucket_instances_layer(XBucketID id, float lod_m_sqr, xlay_struct* ref) {
    if (drawn.object_units == 0) {
        MACIBM_data_fault("plot_bucket_instances_layer with no tex units!", "", "", "");
        return;
    }
    const auto& objects = ref->objct_buckets.GetOneBucket(id);
    if (objects.empty()) return;
    lod_m_sqr = biased(lod_m_sqr);
    ++ren.num_object_buckets;
    for (const scene_objct_struct* o : objects) {
        const vec_mod_struct& model = vec_mod[static_cast<size_t>(o->M_SIM)];
        const float* const centre = model.cull_center_xyz;
        if (!xcam.SphereInView(o->xyz[0] + centre[0], o->xyz[1] + centre[1], o->xyz[2] + centre[2],
                               model.cull_radius))
            continue;
        const int level = level_of(model, lod_m_sqr);
        if (level < 0) continue;
        if (!drawn.begun) begin_objects(*ref);
        plot_obj_inloop(o->M_SIM, level, o->xyz[0], o->xyz[1], o->xyz[2], o->psi, o->the, o->phi,
                        ref->use_night_lite);
        ++ren.num_objects;
    }
}

// -- landing light

void turn_lite_on() {
    drawn.water = {skyc.raw_wat[0], skyc.raw_wat[1], skyc.raw_wat[2]};
    const veh_struct& v = veh[0];
    float x, y, z;
    veh_to_wrl(v.lanliteC_xyz[0], v.lanliteC_xyz[1], v.lanliteC_xyz[2], &x, &y, &z, 0);
    const float at[4] = {static_cast<float>(flt[0].dob_x + x), static_cast<float>(flt[0].dob_y + y),
                         static_cast<float>(flt[0].dob_z + z), 1.0f};
    const float white[4] = {1.0f, 1.0f, 1.0f, 1.0f};
    glEnable(GL_LIGHT1);
    glLightfv(GL_LIGHT1, GL_POSITION, at);
    for (const GLenum part : {GL_AMBIENT, GL_DIFFUSE, GL_SPECULAR}) glLightfv(GL_LIGHT1, part, white);
    glLightf(GL_LIGHT1, GL_LINEAR_ATTENUATION, 0.01f / fltlim(v.lan_lite_power, 0.01f, 10.0f));
}

void turn_lite_off(int is_map, int is_hits) {
    glDisable(GL_LIGHT1);
    drawn.water =
        is_map || is_hits ? map_water : colour_struct{skyc.wat_col[0], skyc.wat_col[1], skyc.wat_col[2]};
}

// -- passes

namespace {
void tell_left_out() {
    if (kept.told_units) return;
    kept.told_units = true;
    xer << "There are more textures on the ground than texture units: landing light, shadow or night are "
           "left "
           "out\n";
}

void plot_terrain_layer(xdeg_struct& tile, xlay_struct& layer, double deg_radius) {
    drawn.look = find_layer_units(layer, drawn.view);
    drawn.begun = false;
    if (drawn.look.left_out) tell_left_out();
    if (!intrange(drawn.look.count, 1, most_ground_units)) {
        MACIBM_data_fault("I tried to draw terrain with no texture units ready!", "", "", "");
        return;
    }
    tile.visibles.Iterate(layer.scene_buckets_max_layer, layer.scene_buckets_max_lod, deg_radius,
                          plot_bucket_terrain_layer, &layer);
}

void plot_object_layer(xdeg_struct& tile, xlay_struct& layer, double deg_radius) {
    drawn.object_units = intmin2(1 + layer.use_night_lite, ren.num_tex_units);
    drawn.begun = false;
    tile.visibles.Iterate(layer.objct_buckets_max_layer, layer.objct_buckets_max_lod, deg_radius,
                          plot_bucket_instances_layer, &layer);
}

bool suits(const xlay_struct& layer, int pass) {
    if (layer.is_hidden) return false;
    if (pass == pass_objects) return !layer.objct_buckets.Empty();
    if (is_untextured_map(drawn.view) && !layer.on_sectional) return false;
    return !layer.scene_buckets.Empty() && (layer.before_airports != 0) == (pass == pass_before_airports);
}

void plot_tile(xdeg_struct& tile, int pass) {
    const bool has_layer = !tile.tex_layers.empty() && tile.visibles.Cull(&xcam, &tile) > 0;
    frame_counts.seen += tile.visibles.mTotalVisible;
    if (!has_layer) return;
    const double deg_radius = tile.sphere_hash.at(0).radius;
    for (size_t i = 0; i < tile.tex_layers.size(); ++i) {
        xlay_struct& layer = tile.tex_layers[i];
        if (!suits(layer, pass)) continue;
        layer.use_night_lite = layer.has_night_lite && object_calls.lites_on(static_cast<int>(i));
        if (pass == pass_objects)
            plot_object_layer(tile, layer, deg_radius);
        else
            plot_terrain_layer(tile, layer, deg_radius);
    }
}
}  // namespace

void plot_group_layers(int iterator_enum, int is_map, int is_hits, int has_fog) {
    const bool lamp = ren.plot_lan_litemap && !is_map && !is_hits;
    drawn.view = {is_map,
                  is_hits,
                  stg.mapW_tab,
                  ren.num_tex_units,
                  ren.shadow_final_tex,
                  ren.plot_lan_litemap,
                  kept.water_tex_ref};
    drawn.fog = has_fog;
    if (iterator_enum != pass_objects) lamp ? turn_lite_on() : turn_lite_off(is_map, is_hits);
    for (int lat = 0; lat < lat_secs[env.planet]; ++lat) {
        for (int lon = 0; lon < lon_secs[env.planet]; ++lon) {
            set_proj_tile(lon, lat);
            plot_tile(xdeg[lon][lat], iterator_enum);
        }
    }
    set_surface(0, 0);
    end_projections();
    if (iterator_enum != pass_objects && lamp) turn_lite_off(is_map, is_hits);
}

namespace {
void animate_water() {
    constexpr float least_step = 0.0001f, cycles_per_sec = 0.5f;  // s
    constexpr int states = 7, frames = 16;
    const float passed = mnw.real_time - kept.last_real_time;
    if (!(flt_abs(passed) > least_step)) return;
    kept.last_real_time = mnw.real_time;
    if (!(passed > 0.0f)) return;  // the clock has begun anew
    move_projections(mnw.prd_FM);
    kept.water_phase = fltwrap(kept.water_phase + cycles_per_sec * mnw.prd_FM, 0.0f, 1.0f);
    const float roughness = atm.wave_height * 1.5f + atm.set_wind_spd_kts[0] * 0.1f;
    const int texset = intround(interp(0.0f, 0.0f, 2.0f, states - 1.0f, roughness));
    const int frame = intround(interp(0.0f, 0.0f, 1.0f, frames - 1.0f, kept.water_phase));
    kept.water_tex_ref = texset * frames + frame + tex_water;
}

void draw_all(int is_map, int is_hits) {
    const int fog = is_map != 0 ? fog_off : fog_on;
    ren.num_terrain_buckets = ren.num_object_buckets = ren.num_patches = ren.num_objects = 0;
    animate_water();
    plot_group_layers(pass_before_airports, is_map, is_hits, fog);
    if (TVPDoDrawingHook(hook_airports)) plot_airports(is_map, is_hits);
    TVPDoDrawingHook(hook_airports_done);
    if (is_hits) return;
    plot_group_layers(pass_after_airports, is_map, is_hits, fog);
    if (!is_map) cover_region_rim();
    end_section(section_terrain);
    plot_group_layers(pass_objects, is_map, is_hits, fog);
    manage_ships();
    if (TVPDoDrawingHook(hook_airplanes)) plot_airplanes(is_map);
    TVPDoDrawingHook(hook_airplanes_done);
    plot_objects();
    end_section(section_objects);
}
}  // namespace

void OGL_terrain_grid(int is_map, int is_hits) {
    if (kept.drawing) return;
    kept.drawing = true;
    draw_all(is_map, is_hits);
    kept.drawing = false;
}

void reset_terrain_draw() {
    kept = {};
    reset_projections();
}
