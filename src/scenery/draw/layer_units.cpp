// Texture units of a layer of the ground.
#include "scenery/draw/layer_units.h"

#include "core/math/num.h"
#include "draw/images/tman.h"

namespace {
constexpr int map_sectional = 2, map_high = 3, map_textured = 4;  // tabs

struct map_colours {
    int water, base, lit;
};
constexpr map_colours map_colours_of(int tab) {
    if (tab == map_sectional) return {tex_map + 5, tex_map + 6, tex_map + 4};
    if (tab == map_high) return {tex_map + 1, tex_map, tex_map};
    return {tex_map + 3, tex_map + 2, tex_map + 2};
}

// What a unit is there for, in the order in which it can be left out.
enum unit_role { role_base, role_night, role_shadow, role_light };

// More than will be used: what does not fit is left out at the end.
struct stack_struct {
    unit_struct unit[6];
    unit_role role[6];
    int count = 0;

    void add(unit_role as, int ref, int mode, int projection = proj_none) {
        role[count] = as;
        unit[count++] = {ref, mode, projection};
    }
    void leave_out(unit_role what) {
        int kept = 0;
        for (int i = 0; i < count; ++i) {
            if (role[i] == what) continue;
            unit[kept] = unit[i];
            role[kept++] = role[i];
        }
        count = kept;
    }
};

struct references_struct {
    int water, base, lit;
};

void add_first(stack_struct& to, const xlay_struct& layer, const layer_units_struct& look, bool sect_alt,
               const references_struct& refs) {
    const int ground = layer.project_texes ? proj_ground : proj_none;
    if (look.is_water) {
        to.add(role_base, refs.water, combine_modulate, layer.project_texes ? proj_water : proj_none);
    } else if (sect_alt) {
        to.add(role_base, refs.base, combine_zap_alpha, proj_altitude);
        if (layer.composite_texes) to.add(role_base, refs.base, combine_pass);
    } else if (look.is_untex_map) {
        to.add(role_base, refs.base, combine_opaque);
        if (layer.composite_texes) to.add(role_base, refs.base, combine_pass);
    } else if (layer.composite_texes) {
        to.add(role_base, refs.base, combine_base, ground);
        to.add(role_base, layer.compo_tex_ref, combine_over, ground);
    } else {
        const bool screen = layer.project_texes && refs.base == tex_powerlines;
        to.add(role_base, refs.base, layer.zap_base_alpha ? combine_zap_alpha : combine_modulate,
               screen ? proj_screen : ground);
    }
}

void add_third(stack_struct& to, const xlay_struct& layer, const references_struct& refs) {
    if (layer.has_border_mask)
        to.add(role_base, layer.plane_bor_ref, layer.composite_texes ? combine_border : combine_modulate);
    else if (layer.composite_texes)
        to.add(role_base, refs.base, combine_light);
}

void add_night(stack_struct& to, const xlay_struct& layer, bool untex_map, const references_struct& refs) {
    if (!layer.has_night_lite) return;
    if (untex_map || !layer.use_night_lite)
        to.add(role_night, refs.lit, combine_pass);
    else
        to.add(role_night, refs.lit, combine_add, layer.project_texes ? proj_ground : proj_none);
}

// Something is always drawn: when even the ground does not fit, the first picture alone, lit and opaque,
// since without their last unit a composite has no light and a border no shape.
layer_units_struct& fit(layer_units_struct& look, stack_struct& stack, int units) {
    const int most = intmin2(units, most_ground_units);
    for (const unit_role spare : {role_light, role_shadow, role_night}) {
        if (stack.count <= most) break;
        stack.leave_out(spare);
        look.left_out = true;
    }
    if (stack.count > most && most > 0) {
        look.left_out = true;
        stack.count = 1;
        if (stack.unit[0].mode == combine_base) stack.unit[0].mode = combine_zap_alpha;
    }
    look.count = intmin2(stack.count, most);
    for (int i = 0; i < look.count; ++i) look.unit[i] = stack.unit[i];
    return look;
}
}  // namespace

bool is_untextured_map(const ground_view_struct& view) { return view.is_map && view.map_tab != map_textured; }

layer_units_struct find_layer_units(const xlay_struct& layer, const ground_view_struct& view) {
    layer_units_struct look;
    look.is_water = layer.plane_tex_ref == tex_water;
    look.is_untex_map = is_untextured_map(view);
    const bool sect_alt = view.is_map && view.map_tab == map_sectional && !look.is_water;
    references_struct refs = {view.water_ref, layer.plane_tex_ref, layer.night_tex_ref};
    if (look.is_untex_map) {
        const map_colours map = map_colours_of(view.map_tab);
        refs = {map.water, map.base, map.lit};
    }
    const bool lies_in_the_open = !view.is_map && !view.is_hits;

    stack_struct stack;
    add_first(stack, layer, look, sect_alt, refs);
    add_third(stack, layer, refs);
    add_night(stack, layer, look.is_untex_map, refs);
    if (view.shadow_ref && lies_in_the_open)
        stack.add(role_shadow, view.shadow_ref, combine_modulate, proj_cloud_shadow);
    if (view.litemap && lies_in_the_open)
        stack.add(role_light, tex_landing_light, combine_modulate, proj_landing_light);
    return fit(look, stack, view.units);
}
