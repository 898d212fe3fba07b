// Seams between tiles.
#include "scenery/tile/tile_edge.h"

#include "core/math/num.h"

namespace {
struct edge_struct {
    std::vector<d3_struct> rgt_edge_geo, top_edge_geo, rgt_edge_nrm, top_edge_nrm;
};
edge_struct edge[xdeg_lons][xdeg_lats];

// The nearest kept vertex takes the place of the new one; the first of equals.
void take_nearest(const std::vector<d3_struct>& kept_geo, const std::vector<d3_struct>& kept_nrm,
                  d3_struct* geo, d3_struct* nrm) {
    float best = 100000.0f;  // metres
    int index = -1;
    for (size_t i = 0; i < kept_geo.size(); ++i) {
        const float distance = pythag(kept_geo[i].v[0] - geo->v[0], kept_geo[i].v[2] - geo->v[2]);
        if (!(distance < best)) continue;
        best = distance;
        index = static_cast<int>(i);
    }
    if (index < 0) return;
    *geo = kept_geo[static_cast<size_t>(index)];
    *nrm = kept_nrm[static_cast<size_t>(index)];
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
            const edge_struct& west = edge[lon_os - 1][lat_os];
            return take_nearest(west.rgt_edge_geo, west.rgt_edge_nrm, geo, nrm);
        }
        case edge_take_bottom: {
            const edge_struct& south = edge[lon_os][lat_os - 1];
            return take_nearest(south.top_edge_geo, south.top_edge_nrm, geo, nrm);
        }
        default:
            return;
    }
}
