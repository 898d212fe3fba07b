// What any picture file may lead to, whatever its kind: it is refused, or it lies within its limits and every
// level can be made of it.
#pragma once
#include <cstring>

#include "core/craft/veh.h"
#include "core/records/mnw.h"
#include "draw/gl/gl_facts.h"
#include "draw/images/image_place.h"
#include "draw/images/tex_refs.h"
#include "memory_file.h"
#include "support.h"

namespace fuzzing {

struct picture_plan {
    unsigned char type, bytes, tex_res, ref;
    float ins_size, ins_x, ins_y;
};

inline void check_place(const image_struct& image) {
    const image_place& p = image.place;
    must(p.dx_vis >= 1 && p.dx_vis <= p.dx_tot && p.dx_tot <= image_max && (p.dx_tot & (p.dx_tot - 1)) == 0);
    must(p.dy_vis >= 1 && p.dy_vis <= p.dy_tot && p.dy_tot <= image_max && (p.dy_tot & (p.dy_tot - 1)) == 0);
    must(image.bytes == 1 || image.bytes == 3 || image.bytes == 4);
}

inline void make_levels(const image_struct& image) {
    int dx = image.place.dx_tot, dy = image.place.dy_tot;
    for (;;) {
        if (image.bytes == 4) clean_edges(scratch_array, dx, dy);
        if (dx == 1 && dy == 1) return;
        shrink_half(scratch_array, dx, dy, image.bytes);
        dx = dx > 1 ? dx / 2 : 1;
        dy = dy > 1 ? dy / 2 : 1;
    }
}

using picture_reader = int (*)(const std::string&, image_struct*);

inline void read_picture(picture_reader read, const picture_plan& plan, const std::string& path) {
    static constexpr int depths[] = {1, 3, 4, 4};
    static constexpr int refs[] = {tex_water, tex_paint, tex_interface, tex_instrument + 7};
    image_struct image{};
    image.load_type = load_background + plan.type % 4;
    image.index = refs[plan.ref % 4];
    image.bytes = depths[plan.bytes % 4];
    image.depth_change_ok = plan.bytes % 4 == 3;
    mnw.tex_res = plan.tex_res % 8 - 1;
    maxtexdim = plan.ref & 4 ? 64 : 0;
    veh[0].ins_size[7] = plan.ins_size, veh[0].ins_x[7] = plan.ins_x, veh[0].ins_y[7] = plan.ins_y;
    if (!read(path, &image)) return;
    check_place(image);
    if (image.load_type == load_ogl) make_levels(image);
}

}  // namespace fuzzing
