// The mesh of a tile.
#include "ground_mesh.h"

#include <math.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "blend_mesh.h"
#include "land_classes.h"

namespace {
constexpr int cells = nodes_per_degree, side = cells + 1, patches = 16;  // each way
constexpr double raw_degree = 65535.0, radians = 0.017453292519943295;
constexpr int least_cut = 26;  // parts of 257: no sliver triangles

struct vertex {
    tile_point at;
    int land;  // node whose cover it has
};
using polygon = std::vector<vertex>;  // clockwise from above, convex

bool has_night(int cover) { return land_class_of(static_cast<land_class>(cover)).has_night; }

// Away from both ends of the mask, which meet where the texture repeats.
double mask_place(double part) { return 0.1 + 0.8 * part; }

class mesh {
public:
    mesh(tile_writer* writer, const node_values<ground_node>& nodes) : writer_(*writer), nodes_(nodes) {
        // near the poles patches are low too, or a narrow tile has no bucket for them
        const double width = cos((writer->lat() + 0.5) * radians) * cells;  // in rows
        const int most = std::clamp(static_cast<int>(0.48 * width), 1, cells / patches + 1);
        patch_rows_ = std::max(patches, (cells + most - 1) / most);
        for (int k = 0; k < land_classes_DIM; ++k) make_parts(k);
        for (int j = 0; j < cells; ++j)
            for (int i = 0; i < cells; ++i) base_.push_back(wet_corners(i, j) ? -1 : base_of(whole(i, j)));
    }

    void write() {
        write_water();
        for (int k = 0; k < land_classes_DIM; ++k) {
            if (!is_used(k)) continue;
            const unsigned definition = writer_.terrain(land_terrain_name(static_cast<land_class>(k)));
            for (int pj = 0; pj < patch_rows_; ++pj)
                for (int pi = 0; pi < patches; ++pi) {
                    write_base(k, definition, pi, pj);
                    if (!has_night(k)) write_overlay(k, definition, pi, pj);
                }
        }
    }

private:
    int row_border(int patch) const { return patch * cells / patch_rows_; }
    static int border(int patch) { return patch * cells / patches; }
    const ground_node& node(int i, int j) const { return nodes_.at(j + 1, i + 1); }
    bool wet(int i, int j) const { return node(i, j).cover == cover_water; }

    tile_point place(double column, double row) const {
        tile_point p;
        p.lon = writer_.lon() + column * raw_per_cell / raw_degree;
        p.lat = writer_.lat() + row * raw_per_cell / raw_degree;
        return p;
    }
    vertex at(int i, int j) const {
        const ground_node& n = node(i, j);
        vertex v{place(i, j), j * side + i};
        v.at.ele = n.height;
        v.at.nx = n.nx;
        v.at.nz = n.nz;
        return v;
    }

    // The shore between two nodes: level with the water, covered as the land.
    vertex shore(int i, int j, bool eastward) const {
        const ground_node &a = node(i, j), &b = eastward ? node(i + 1, j) : node(i, j + 1);
        const ground_node &land = a.cover == cover_water ? b : a, &water = a.cover == cover_water ? a : b;
        const int told = eastward ? a.east : a.north;
        const int cut = std::clamp(told ? told : raw_per_cell / 2, least_cut, raw_per_cell - least_cut);
        const double part = static_cast<double>(cut) / raw_per_cell;
        const bool here = &land == &a;
        vertex v{eastward ? place(i + part, j) : place(i, j + part), here       ? j * side + i
                                                                     : eastward ? j * side + i + 1
                                                                                : (j + 1) * side + i};
        v.at.ele = water.height;
        v.at.nx = 0.5f * land.nx;
        v.at.nz = 0.5f * land.nz;
        return v;
    }

    // Land or water of a cell, around it clockwise from the south-west. Where two opposite corners are land,
    // the land is one piece and the water two.
    std::vector<polygon> parts(int i, int j, bool of_water) const {
        constexpr int di[4] = {0, 0, 1, 1}, dj[4] = {0, 1, 1, 0};
        bool in[4];
        for (int c = 0; c < 4; ++c) in[c] = wet(i + di[c], j + dj[c]) == of_water;
        const auto side = [&](int c) {  // from corner c to the next
            switch (c) {
                case 0:
                    return shore(i, j, false);
                case 1:
                    return shore(i, j + 1, true);
                case 2:
                    return shore(i + 1, j, false);
                default:
                    return shore(i, j, true);
            }
        };
        const bool apart = of_water && in[0] == in[2] && in[1] == in[3] && in[0] != in[1];
        std::vector<polygon> result;
        if (apart) {
            for (int c = 0; c < 4; ++c)
                if (in[c]) result.push_back({side((c + 3) % 4), at(i + di[c], j + dj[c]), side(c)});
            return result;
        }
        polygon p;
        for (int c = 0; c < 4; ++c) {
            if (in[c]) p.push_back(at(i + di[c], j + dj[c]));
            if (in[c] != in[(c + 1) % 4]) p.push_back(side(c));
        }
        if (!p.empty()) result.push_back(std::move(p));
        return result;
    }

    int wet_corners(int i, int j) const {
        return wet(i, j) + wet(i + 1, j) + wet(i, j + 1) + wet(i + 1, j + 1);
    }

    static void fan_out(const polygon& p, std::vector<tile_point>* triangles) {
        for (size_t n = 2; n < p.size(); ++n)
            triangles->insert(triangles->end(), {p[0].at, p[n - 1].at, p[n].at});
    }

    // -- water

    // And not so low that it has no point in its midst.
    bool is_open_water(int pi, int pj) const {
        if (row_border(pj + 1) - row_border(pj) < 2) return false;
        for (int j = row_border(pj); j <= row_border(pj + 1); ++j)
            for (int i = border(pi); i <= border(pi + 1); ++i)
                if (!wet(i, j) || node(i, j).height != node(border(pi), row_border(pj)).height) return false;
        return true;
    }

    // Open water: one fan about the middle, with all points of its rim.
    void write_open_water(int pi, int pj) {
        const int west = border(pi), east = border(pi + 1), south = row_border(pj),
                  north = row_border(pj + 1);
        std::vector<tile_point> fan = {at((west + east) / 2, (south + north) / 2).at};
        for (int j = south; j < north; ++j) fan.push_back(at(west, j).at);
        for (int i = west; i < east; ++i) fan.push_back(at(i, north).at);
        for (int j = north; j > south; --j) fan.push_back(at(east, j).at);
        for (int i = east; i >= west; --i) fan.push_back(at(i, south).at);
        writer_.begin_patch(0, tile_base);
        writer_.fan(fan);
    }

    void write_water() {
        for (int pj = 0; pj < patch_rows_; ++pj)
            for (int pi = 0; pi < patches; ++pi) {
                if (is_open_water(pi, pj)) {
                    write_open_water(pi, pj);
                    continue;
                }
                bool open = false;
                std::vector<tile_point> triangles;
                const auto is_water = [this](int i, int j) { return wet_corners(i, j) == 4; };
                write_runs(pi, pj, is_water, 0, -1, &open);
                for (int j = row_border(pj); j < row_border(pj + 1); ++j)
                    for (int i = border(pi); i < border(pi + 1); ++i)
                        if (wet_corners(i, j) % 4 != 0)
                            for (const polygon& p : parts(i, j, true)) fan_out(p, &triangles);
                write_triangles(triangles, 0, tile_base, &open);
            }
    }

    // -- land

    bool is_used(int k) const { return !part_[static_cast<size_t>(k)].empty(); }

    // How much of a node and its neighbours is of this class or a higher one, drawn apart so that most nodes
    // have none or all, and whether there is any of the class itself.
    void make_parts(int k) {
        std::vector<float> part;
        std::vector<bool> present;
        bool any = false;
        for (int j = 0; j < side; ++j)
            for (int i = 0; i < side; ++i) {
                float over = 0.0f, own = 0.0f, sum = 0.0f;
                for (int dj = -1; dj <= 1; ++dj)
                    for (int di = -1; di <= 1; ++di) {
                        const int cover = node(i + di, j + dj).cover;
                        if (cover == cover_water) continue;
                        const float weight = static_cast<float>((2 - abs(dj)) * (2 - abs(di)));
                        sum += weight;
                        if (cover >= k) over += weight;
                        if (cover == k) own += weight;
                    }
                part.push_back(sum > 0.0f ? std::clamp(2.0f * over / sum - 0.5f, 0.0f, 1.0f) : 0.0f);
                present.push_back(own > 0.0f);
                any |= own > 0.0f;
            }
        if (!any) return;
        part_[static_cast<size_t>(k)] = std::move(part);
        present_[static_cast<size_t>(k)] = std::move(present);
    }
    float part(int k, const vertex& v) const {
        return part_[static_cast<size_t>(k)][static_cast<size_t>(v.land)];
    }
    bool present(int k, const polygon& p) const {
        return std::any_of(p.begin(), p.end(), [&](const vertex& v) {
            return present_[static_cast<size_t>(k)][static_cast<size_t>(v.land)];
        });
    }
    int cover_of(const vertex& v) const { return node(v.land % side, v.land / side).cover; }

    // What lies under all others: the topmost class that covers everything. Classes with a night picture have
    // no soft border: of several the most frequent is taken.
    int base_of(const polygon& p) const {
        for (int k = land_classes_DIM - 1; k >= 0 && !has_night(k); --k)
            if (is_used(k) &&
                std::all_of(p.begin(), p.end(), [&](const vertex& v) { return part(k, v) >= 1.0f; }))
                return k;
        int best = -1, best_count = 0;
        for (const vertex& v : p) {
            const int cover = cover_of(v);
            if (!has_night(cover)) continue;
            const int count = static_cast<int>(
                std::count_if(p.begin(), p.end(), [&](const vertex& o) { return cover_of(o) == cover; }));
            if (count > best_count) best = cover, best_count = count;
        }
        for (int k = 0; best < 0; ++k)
            if (is_used(k) && present(k, p)) best = k;
        return best;
    }
    polygon whole(int i, int j) const { return {at(i, j), at(i, j + 1), at(i + 1, j + 1), at(i + 1, j)}; }
    bool base_is(int k, int i, int j) const { return base_[static_cast<size_t>(j * cells + i)] == k; }
    bool has_over(int base, const polygon& p, int k) const {
        return base < k && present(k, p) &&
               std::any_of(p.begin(), p.end(), [&](const vertex& v) { return part(k, v) > 0.0f; });
    }

    void write_base(int k, unsigned definition, int pi, int pj) {
        bool open = false;
        write_runs(
            pi, pj, [this, k](int i, int j) { return base_is(k, i, j); }, definition, -1, &open);
        std::vector<tile_point> triangles;
        for_cut_cells(pi, pj, [&](const polygon& p) {
            if (base_of(p) == k) fan_out(p, &triangles);
        });
        write_triangles(triangles, definition, tile_base, &open);
    }

    void write_overlay(int k, unsigned definition, int pi, int pj) {
        bool open = false;
        const auto lies_over = [this, k](int i, int j) {
            const int base = base_[static_cast<size_t>(j * cells + i)];
            return base >= 0 && base < k && has_over(base, whole(i, j), k);
        };
        write_runs(pi, pj, lies_over, definition, k, &open);
        std::vector<tile_point> triangles;
        for_cut_cells(pi, pj, [&](polygon p) {
            if (!has_over(base_of(p), p, k)) return;
            for (vertex& v : p) mask(k, &v);
            fan_out(p, &triangles);
        });
        write_triangles(triangles, definition, tile_overlay, &open);
    }

    template <class visit>
    void for_cut_cells(int pi, int pj, const visit& each) const {
        for (int j = row_border(pj); j < row_border(pj + 1); ++j)
            for (int i = border(pi); i < border(pi + 1); ++i)
                if (wet_corners(i, j) % 4 != 0)
                    for (const polygon& p : parts(i, j, false)) each(p);
    }

    void mask(int k, vertex* v) const {
        v->at.s = mask_place(part(k, *v));
        v->at.t = mask_along(v->at.lon * nodes_per_degree, v->at.lat * nodes_per_degree);
    }

    void begin(unsigned definition, unsigned char flags, bool* open) {
        if (!*open) writer_.begin_patch(definition, flags, -1.0, -1.0, flags == tile_overlay);
        *open = true;
    }

    // Strips along the rows; south and north point in turn, eastward: clockwise from above. k: of an overlay.
    template <class taken>
    void write_runs(int pi, int pj, const taken& is_taken, unsigned definition, int k, bool* open) {
        for (int j = row_border(pj); j < row_border(pj + 1); ++j)
            for (int i = border(pi); i < border(pi + 1); ++i) {
                if (!is_taken(i, j)) continue;
                std::vector<tile_point> strip;
                const auto add = [&](int column) {
                    for (const int row : {j, j + 1}) {
                        vertex v = at(column, row);
                        if (k >= 0) mask(k, &v);
                        strip.push_back(v.at);
                    }
                };
                add(i);
                for (; i < border(pi + 1) && is_taken(i, j); ++i) add(i + 1);
                begin(definition, k >= 0 ? tile_overlay : tile_base, open);
                writer_.strip(strip);
            }
    }

    void write_triangles(const std::vector<tile_point>& triangles, unsigned definition, unsigned char flags,
                         bool* open) {
        if (triangles.empty()) return;
        begin(definition, flags, open);
        writer_.triangles(triangles);
    }

    tile_writer& writer_;
    const node_values<ground_node>& nodes_;
    std::array<std::vector<float>, land_classes_DIM> part_;    // by node; empty of a class that is not used
    std::array<std::vector<bool>, land_classes_DIM> present_;  // by node
    int patch_rows_ = patches;
    std::vector<int> base_;  // by cell, -1 where there is water
};
}  // namespace

void write_ground(tile_writer* writer, const node_values<ground_node>& nodes) { mesh(writer, nodes).write(); }
