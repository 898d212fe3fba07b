// Seams between tiles.
#include "scenery/tile/tile_edge.h"

#include <math.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <tuple>

#include "core/math/num.h"

namespace {
// A side's vertices as a tree over the map: the middle of a range parts it by x and by z in turn. Many
// triangles share a vertex, and a search along the whole side for each would take minutes with a fine tile.
struct edge_tree {
    std::vector<uint32_t> order;
    box_struct box;
    size_t of = 0;  // vertices that it was built of
};
struct edge_struct {
    std::vector<d3_struct> rgt_edge_geo, top_edge_geo, rgt_edge_nrm, top_edge_nrm;
    edge_tree rgt_tree, top_tree;
};
edge_struct edge[xdeg_lons][xdeg_lats];

constexpr int axes[] = {0, 2};  // of the map

void part(const std::vector<d3_struct>& geo, uint32_t* first, uint32_t* last, int depth) {
    if (last - first < 2) return;
    uint32_t* const middle = first + (last - first) / 2;
    const int axis = axes[depth % 2];
    std::nth_element(first, middle, last,
                     [&](uint32_t a, uint32_t b) { return geo[a].at(axis) < geo[b].at(axis); });
    part(geo, first, middle, depth + 1);
    part(geo, middle + 1, last, depth + 1);
}

// Of vertices at one place the first stays.
void build(const std::vector<d3_struct>& geo, edge_tree* tree) {
    std::vector<uint32_t>& order = tree->order;
    order.resize(geo.size());
    std::iota(order.begin(), order.end(), 0u);
    std::sort(order.begin(), order.end(), [&](uint32_t a, uint32_t b) {
        return std::tie(geo[a].x, geo[a].z, a) < std::tie(geo[b].x, geo[b].z, b);
    });
    const auto same = [&](uint32_t a, uint32_t b) {
        return geo[a].x == geo[b].x && geo[a].z == geo[b].z;
    };
    order.erase(std::unique(order.begin(), order.end(), same), order.end());
    part(geo, order.data(), order.data() + order.size(), 0);
    tree->box = {};
    for (const uint32_t i : order) tree->box.grow(geo[i]);
    tree->of = geo.size();
}

struct nearest_vertex {
    const std::vector<d3_struct>& geo;
    const d3_struct& to;
    float distance = 100000.0f;  // metres
    uint32_t index = UINT32_MAX;

    float to_box(const box_struct& box) const {
        const auto beyond = [](float at, float min, float max) { return at - fltlim(at, min, max); };
        return pythag(beyond(to.x, box.min_x, box.max_x), beyond(to.z, box.min_z, box.max_z));
    }
    // box: around the range.
    void search(const uint32_t* first, const uint32_t* last, int depth, const box_struct& box) {
        if (first == last || to_box(box) > distance) return;
        const uint32_t* const middle = first + (last - first) / 2;
        const d3_struct& at = geo[*middle];
        const float here = pythag(at.x - to.x, at.z - to.z);
        if (here < distance || (here == distance && *middle < index && index != UINT32_MAX)) {
            distance = here;
            index = *middle;
        }
        const int axis = axes[depth % 2];
        box_struct below = box, above = box;
        (axis == 0 ? below.max_x : below.max_z) = (axis == 0 ? above.min_x : above.min_z) = at.at(axis);
        const bool is_below = to.at(axis) < at.at(axis);
        if (is_below) search(first, middle, depth + 1, below);
        search(middle + 1, last, depth + 1, above);
        if (!is_below) search(first, middle, depth + 1, below);
    }
};

// The nearest kept vertex takes the place of the new one; the first of equals.
void take_nearest(const std::vector<d3_struct>& kept_geo, const std::vector<d3_struct>& kept_nrm,
                  edge_tree* tree, d3_struct* geo, d3_struct* nrm) {
    if (tree->of != kept_geo.size()) build(kept_geo, tree);
    nearest_vertex nearest{kept_geo, *geo};
    nearest.search(tree->order.data(), tree->order.data() + tree->order.size(), 0, tree->box);
    if (nearest.index == UINT32_MAX) return;
    *geo = kept_geo[nearest.index];
    *nrm = kept_nrm[nearest.index];
}
}  // namespace

void forget_edges_of(int lon_os, int lat_os) { edge[lon_os][lat_os] = {}; }

void handle_edge(int lon_os, int lat_os, d3_struct* geo, d3_struct* nrm, int type_op) {
    switch (type_op) {
        case edge_clear:
            for (auto& column : edge)
                for (edge_struct& tile : column) tile = {};
            return;
        case edge_keep_right:
            edge[lon_os][lat_os].rgt_edge_geo.push_back(*geo);
            edge[lon_os][lat_os].rgt_edge_nrm.push_back(*nrm);
            return;
        case edge_keep_top:
            edge[lon_os][lat_os].top_edge_geo.push_back(*geo);
            edge[lon_os][lat_os].top_edge_nrm.push_back(*nrm);
            return;
        case edge_take_left: {
            edge_struct& west = edge[lon_os - 1][lat_os];
            return take_nearest(west.rgt_edge_geo, west.rgt_edge_nrm, &west.rgt_tree, geo, nrm);
        }
        case edge_take_bottom: {
            edge_struct& south = edge[lon_os][lat_os - 1];
            return take_nearest(south.top_edge_geo, south.top_edge_nrm, &south.top_tree, geo, nrm);
        }
        default:
            return;
    }
}
