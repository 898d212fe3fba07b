// Relief: coarse heights, noise, running water.
#include "relief.h"

#include <math.h>
#include <stdint.h>

#include <algorithm>
#include <queue>

#include "sphere_noise.h"

namespace {
constexpr double radians = 0.017453292519943295;
constexpr double node_metres = earth_degree_metres / nodes_per_degree;
constexpr int margin = 64;      // nodes round a degree
constexpr int half_blend = 26;  // nodes to each side of its edge

double width_of(double lat) { return node_metres * std::max(cos(lat * radians), 0.02); }

double smooth(double from, double to, double v) {
    const double f = std::clamp((v - from) / (to - from), 0.0, 1.0);
    return f * f * (3.0 - 2.0 * f);
}

int floor_div(int a, int b) { return a >= 0 ? a / b : -((b - 1 - a) / b); }
int wrapped(int lon) { return ((lon + 180) % 360 + 360) % 360 - 180; }

node_window degree_window(int lat, int lon) {
    constexpr int side = nodes_per_degree + 2 * margin + 1;
    return {lat * nodes_per_degree - margin, lon * nodes_per_degree - margin, side, side};
}

template <class visit>
void neighbours(const node_window& w, size_t at, const visit& each) {
    const int j = static_cast<int>(at) / w.columns, i = static_cast<int>(at) % w.columns;
    for (int dj = -1; dj <= 1; ++dj)
        for (int di = -1; di <= 1; ++di)
            if ((dj || di) && j + dj >= 0 && j + dj < w.rows && i + di >= 0 && i + di < w.columns)
                each(w.at(j + dj, i + di), dj, di);
}

// Lowest first; of equals the earlier node, so that the order is one.
struct flood_entry {
    float height;
    uint32_t node;
    bool operator>(const flood_entry& o) const {
        return height != o.height ? height > o.height : node > o.node;
    }
};
using flood_queue = std::priority_queue<flood_entry, std::vector<flood_entry>, std::greater<flood_entry>>;

// Where each node's water goes, and the nodes in an order in which that node comes first. Water rises out of
// hollows at their lowest rim (priority flood: Barnes, Lehman and Mulla 2014).
struct drainage {
    std::vector<uint32_t> order, to;
    std::vector<unsigned char> outlet;
};

void route(const node_values<float>& height, drainage* d) {
    const node_window& w = height.window;
    d->order.clear();
    d->to.assign(w.size(), UINT32_MAX);
    flood_queue queue;
    for (uint32_t n = 0; n < w.size(); ++n)
        if (d->outlet[n]) {
            d->to[n] = n;
            queue.push({height.values[n], n});
        }
    while (!queue.empty()) {
        const flood_entry here = queue.top();
        queue.pop();
        d->order.push_back(here.node);
        neighbours(w, here.node, [&](size_t n, int, int) {
            if (d->to[n] != UINT32_MAX) return;
            d->to[n] = here.node;
            queue.push({std::max(here.height, height.values[n]), static_cast<uint32_t>(n)});
        });
    }
}

// Nodes that drain through each node, or what a river brings there when that is more.
void add_up(const drainage& flow, const std::vector<float>& brought, std::vector<float>* area) {
    area->assign(flow.to.size(), 1.0f);
    for (size_t n = flow.order.size(); n-- > 0;) {
        const uint32_t here = flow.order[n], there = flow.to[here];
        (*area)[here] = std::max((*area)[here], brought[here]);
        if (there != here) (*area)[there] += (*area)[here];
    }
}

void cut_outlets(node_values<float>* height, drainage* flow, const node_values<float>* fixed) {
    constexpr float fall = 0.12f;  // from node to node, metres: more than a step of the file
    route(*height, flow);
    const auto is_fixed = [&](uint32_t n) { return flow->outlet[n] || (fixed && fixed->values[n] >= 1.0f); };
    for (size_t n = flow->order.size(); n-- > 0;) {
        const uint32_t here = flow->order[n], there = flow->to[here];
        if (here != there && !is_fixed(there))
            height->values[there] = std::min(height->values[there], height->values[here] - fall);
    }
    for (const uint32_t here : flow->order) {
        const uint32_t there = flow->to[here];
        if (here != there && !is_fixed(here))
            height->values[here] = std::max(height->values[here], height->values[there] + fall);
    }
}

// Mean over a square of `radius` nodes about each node, twice over.
void blur(node_values<float>* field, int radius) {
    const node_window& w = field->window;
    std::vector<float> line(static_cast<size_t>(std::max(w.rows, w.columns)));
    const auto pass = [&](size_t first, size_t step, int count) {
        double sum = 0.0;
        const auto value = [&](int n) { return field->values[first + step * static_cast<size_t>(n)]; };
        for (int n = 0; n < std::min(radius, count); ++n) sum += value(n);
        for (int n = 0; n < count; ++n) {
            if (n + radius < count) sum += value(n + radius);
            if (n - radius - 1 >= 0) sum -= value(n - radius - 1);
            line[static_cast<size_t>(n)] =
                static_cast<float>(sum / (std::min(n + radius, count - 1) - std::max(n - radius, 0) + 1));
        }
        for (int n = 0; n < count; ++n)
            field->values[first + step * static_cast<size_t>(n)] = line[static_cast<size_t>(n)];
    };
    for (int twice = 0; twice < 2; ++twice) {
        for (int j = 0; j < w.rows; ++j) pass(w.at(j, 0), 1, w.columns);
        for (int i = 0; i < w.columns; ++i) pass(w.at(0, i), static_cast<size_t>(w.columns), w.rows);
    }
}
}  // namespace

// -- water

double relief::water_level(const shore_node& node) const {
    if (node.level == 0) return 0.0;
    const auto known = lake_levels_.find(node.lake);
    if (known != lake_levels_.end()) return known->second;
    // the lower part of the ground along the shore
    std::vector<double> heights;
    for (const shores::place& p : coast_.lake_shore(node.lake))
        heights.push_back(coarse_.height(p.lat, p.lon));
    double level = 0.0;
    if (!heights.empty()) {
        const auto low = heights.begin() + static_cast<long>(heights.size() / 8);
        std::nth_element(heights.begin(), low, heights.end());
        level = *low;
    }
    // published levels of great lakes, and of those below the sea
    double lat = 0.0, lon = 0.0;
    const std::vector<shores::place> shore = coast_.lake_shore(node.lake);
    for (const shores::place& p : shore) lat += p.lat, lon += p.lon > 180.0 ? p.lon - 360.0 : p.lon;
    if (!shore.empty()) lat /= static_cast<double>(shore.size()), lon /= static_cast<double>(shore.size());
    for (const known_point& lake : places_.lakes.near(lat, lon, 2.5))
        if (metres_between(lat, lon, lake.lat, lake.lon) < lake.reach) level = lake.ele;
    return lake_levels_[node.lake] = round(level);
}

// Runways that were built into the water have land under them.
node_values<shore_node> relief::shore_with_airports(const node_window& window) const {
    node_values<shore_node> shore = coast_.nodes(window);
    const double lat = window.lat(window.rows / 2), lon = window.lon(window.columns / 2);
    for (const known_airport& a :
         places_.airports.near(lat, lon, 0.5 * window.rows / nodes_per_degree + 0.1)) {
        constexpr double room = 450.0;
        const int across = static_cast<int>(8000.0 / width_of(a.lat));
        const int j0 = static_cast<int>((a.lat - window.lat(0)) * nodes_per_degree);
        const int i0 = static_cast<int>((a.lon - window.lon(0)) * nodes_per_degree);
        for (int j = std::max(j0 - 20, 0); j < std::min(j0 + 21, window.rows); ++j)
            for (int i = std::max(i0 - across, 0); i < std::min(i0 + across + 1, window.columns); ++i)
                if (!shore.at(j, i).land() && metres_from(a, window.lat(j), window.lon(i)) < room)
                    shore.at(j, i).level = 1;
    }
    return shore;
}

// Two sweeps that carry the nearest shore from node to node.
relief::water_distance relief::distance_to_water(const node_values<shore_node>& shore) const {
    const node_window& w = shore.window;
    water_distance d{node_values<float>(w, 1.0e9f), node_values<float>(w, 0.0f)};
    for (size_t n = 0; n < w.size(); ++n)
        if (!shore.values[n].land()) {
            d.metres.values[n] = 0.0f;
            d.level.values[n] = static_cast<float>(water_level(shore.values[n]));
        }
    const auto take = [&](int j, int i, int dj, int di, double metres) {
        if (j + dj < 0 || j + dj >= w.rows || i + di < 0 || i + di >= w.columns) return;
        const size_t here = w.at(j, i), there = w.at(j + dj, i + di);
        const float sum = d.metres.values[there] + static_cast<float>(metres);
        if (sum >= d.metres.values[here]) return;
        d.metres.values[here] = sum;
        d.level.values[here] = d.level.values[there];
    };
    for (const int way : {1, -1})
        for (int a = 0; a < w.rows; ++a) {
            const int j = way > 0 ? a : w.rows - 1 - a;
            const double side = width_of(w.lat(j)), diagonal = hypot(side, node_metres);
            for (int b = 0; b < w.columns; ++b) {
                const int i = way > 0 ? b : w.columns - 1 - b;
                take(j, i, 0, -way, side);
                take(j, i, -way, 0, node_metres);
                take(j, i, -way, -way, diagonal);
                take(j, i, -way, way, diagonal);
            }
        }
    return d;
}

// -- a degree

// Salt lakes are dry and level: 1 on them, falling to 0 about them, with their height.
node_values<float> relief::dry_lakes(const node_window& window, node_values<float>* level) const {
    node_values<float> part(window, 0.0f);
    constexpr double rim = 5000.0;
    const double lat = window.lat(window.rows / 2), lon = window.lon(window.columns / 2);
    for (const known_point& lake :
         places_.salt_lakes.near(lat, lon, 0.5 * window.rows / nodes_per_degree + 0.6))
        for (int j = 0; j < window.rows; ++j)
            for (int i = 0; i < window.columns; ++i) {
                const double away = metres_between(lake.lat, lake.lon, window.lat(j), window.lon(i));
                const float p = static_cast<float>(1.0 - smooth(lake.reach, lake.reach + rim, away));
                if (p <= part.at(j, i)) continue;
                part.at(j, i) = p;
                level->at(j, i) = static_cast<float>(lake.ele);
            }
    return part;
}

// Where water ends without reaching the sea: salt lakes, and hollows of dry country.
void relief::mark_sinks(const node_window& window, std::vector<unsigned char>* outlet) const {
    const double lat = window.lat(window.rows / 2), lon = window.lon(window.columns / 2),
                 half = 0.5 * window.rows / nodes_per_degree;
    const auto mark = [&](const known_point& p) {
        const int j = static_cast<int>(lround((p.lat - window.lat(0)) * nodes_per_degree));
        const int i = static_cast<int>(lround((p.lon - window.lon(0)) * nodes_per_degree));
        if (j >= 0 && i >= 0 && j < window.rows && i < window.columns) (*outlet)[window.at(j, i)] = 1;
    };
    for (const known_point& p : places_.salt_lakes.near(lat, lon, half + 0.1)) mark(p);
    for (const known_point& p : places_.basins.near(lat, lon, half + 0.1))
        if (outlines_.part(region_desert, p.lat, p.lon, 0.05) > 0.5) mark(p);
}

// Rivers bring water from beyond the window: by rank, in nodes drained.
void relief::add_rivers(const node_window& window, std::vector<float>* water) const {
    const int south = floor_div(window.row, nodes_per_degree),
              north = floor_div(window.row + window.rows - 1, nodes_per_degree);
    const int west = floor_div(window.column, nodes_per_degree),
              east = floor_div(window.column + window.columns - 1, nodes_per_degree);
    for (int lat = south; lat <= north; ++lat)
        for (int lon = west; lon <= east; ++lon)
            for (const river_side& side : streams_.in_degree(lat, wrapped(lon))) {
                const double turn = lon - wrapped(lon);
                const int steps =
                    1 + static_cast<int>(2.0 * nodes_per_degree *
                                         std::max(fabs(side.lat1 - side.lat0), fabs(side.lon1 - side.lon0)));
                const float brought = static_cast<float>(6000.0 / (1.0 + side.rank));
                for (int n = 0; n <= steps; ++n) {
                    const double part = static_cast<double>(n) / steps;
                    const int j = static_cast<int>(lround((side.lat0 + part * (side.lat1 - side.lat0)) *
                                                          nodes_per_degree)) -
                                  window.row;
                    const int i =
                        static_cast<int>(
                            lround((side.lon0 + part * (side.lon1 - side.lon0) + turn) * nodes_per_degree)) -
                        window.column;
                    if (j < 0 || i < 0 || j >= window.rows || i >= window.columns) continue;
                    float& here = (*water)[window.at(j, i)];
                    here = std::max(here, brought);
                }
            }
}

// Nothing about a known summit rises above it, unless the coarse heights say so.
void relief::lower_rivals(node_values<float>* height) const {
    const node_window& w = height->window;
    constexpr double reach = 16000.0, inner = 9000.0, soft = 300.0, none = -1.0e9;
    node_values<float> cap(w, static_cast<float>(none)), nearest(w, static_cast<float>(reach));
    for (const known_point& s : places_.summits.near(w.lat(w.rows / 2), w.lon(w.columns / 2), 0.95))
        for (int j = 0; j < w.rows; ++j)
            for (int i = 0; i < w.columns; ++i) {
                const double away = metres_between(s.lat, s.lon, w.lat(j), w.lon(i));
                if (away >= reach) continue;
                cap.at(j, i) = std::max(cap.at(j, i), static_cast<float>(s.ele - 0.03 * away));
                nearest.at(j, i) = std::min(nearest.at(j, i), static_cast<float>(away));
            }
    for (int j = 0; j < w.rows; ++j)
        for (int i = 0; i < w.columns; ++i) {
            if (cap.at(j, i) == static_cast<float>(none)) continue;
            const double told = coarse_.around(w.lat(j), w.lon(i)).wide_high + 500.0;
            const double knee = std::max(1.0 * cap.at(j, i), told) - soft;
            const double over = height->at(j, i) - knee;
            const double part = 1.0 - smooth(inner, reach, nearest.at(j, i));
            if (over > 0.0)
                height->at(j, i) -= static_cast<float>(part * (over - soft * (1.0 - exp(-over / soft))));
        }
}

// What the water has left of the heights about a known summit is stretched upward from the valleys, so that
// ridges rise to it.
void relief::raise_summits(const node_values<float>& to_water, node_values<float>* height) const {
    const node_window& w = height->window;
    constexpr double reach = 9000.0;
    for (const known_point& s : places_.summits.near(w.lat(w.rows / 2), w.lon(w.columns / 2), 0.9)) {
        const int j0 = static_cast<int>(lround((s.lat - w.lat(0)) * nodes_per_degree));
        const int i0 = static_cast<int>(lround((s.lon - w.lon(0)) * nodes_per_degree));
        if (j0 < 0 || i0 < 0 || j0 >= w.rows || i0 >= w.columns) continue;
        const int up = static_cast<int>(reach / node_metres) + 1,
                  across = static_cast<int>(reach / width_of(s.lat)) + 1;
        const int south = std::max(j0 - up, 0), north = std::min(j0 + up, w.rows - 1);
        const int west = std::max(i0 - across, 0), east = std::min(i0 + across, w.columns - 1);
        double low = 1.0e9;
        for (int j = south; j <= north; ++j)
            for (int i = west; i <= east; ++i) low = std::min(low, 1.0 * height->at(j, i));
        low = std::min(low, s.ele - 200.0);
        const double stretch = (s.ele - low) / std::max(height->at(j0, i0) - low, 0.25 * (s.ele - low));
        for (int j = south; j <= north; ++j)
            for (int i = west; i <= east; ++i) {
                const double away = metres_between(s.lat, s.lon, w.lat(j), w.lon(i));
                if (away >= reach || to_water.at(j, i) <= 0.0f) continue;
                const double far = away / reach, part = (1.0 - far * far) * (1.0 - far * far);
                const double h = height->at(j, i);
                const double raised = low + (h - low) * (1.0 + (stretch - 1.0) * part);
                // nothing but the summit itself stands so high
                const double roof = s.ele - 0.12 * away;
                height->at(j, i) = static_cast<float>(std::min(raised, std::max(h, roof)));
            }
        height->at(j0, i0) = static_cast<float>(s.ele);
    }
}

// Coarse heights pulled to the known ones of airports and, as far as a massif goes, of summits.
node_values<float> relief::base_heights(const node_window& window) const {
    node_values<float> base(window, 0.0f);
    for (int j = 0; j < window.rows; ++j)
        for (int i = 0; i < window.columns; ++i)
            base.at(j, i) = static_cast<float>(coarse_.height(window.lat(j), window.lon(i)));
    node_values<float> pull(window, 0.0f), weight(window, 0.0f);
    constexpr double reach = 14000.0;
    const double lat = window.lat(window.rows / 2), lon = window.lon(window.columns / 2);
    for (const known_airport& a :
         places_.airports.near(lat, lon, 0.5 * window.rows / nodes_per_degree + 0.2)) {
        const double off = a.ele - coarse_.height(a.lat, a.lon);
        const int up = static_cast<int>(reach / node_metres) + 1,
                  across = static_cast<int>(reach / width_of(a.lat)) + 1;
        const int j0 = static_cast<int>(lround((a.lat - window.lat(0)) * nodes_per_degree));
        const int i0 = static_cast<int>(lround((a.lon - window.lon(0)) * nodes_per_degree));
        for (int j = std::max(j0 - up, 0); j < std::min(j0 + up + 1, window.rows); ++j)
            for (int i = std::max(i0 - across, 0); i < std::min(i0 + across + 1, window.columns); ++i) {
                const double away = metres_between(a.lat, a.lon, window.lat(j), window.lon(i)) / reach;
                if (away >= 1.0) continue;
                const double w = (1.0 - away * away) * (1.0 - away * away);
                pull.at(j, i) += static_cast<float>(w * w * off);
                weight.at(j, i) += static_cast<float>(w);
            }
    }
    for (size_t n = 0; n < window.size(); ++n)
        if (weight.values[n] > 0.0f) base.values[n] += pull.values[n] / weight.values[n];
    constexpr double massif = 13000.0;
    for (const known_point& s : places_.summits.near(lat, lon, 0.5 * window.rows / nodes_per_degree + 0.2)) {
        const double off = 0.85 * (s.ele - coarse_.height(s.lat, s.lon));
        if (off <= 0.0) continue;
        for (int j = 0; j < window.rows; ++j)
            for (int i = 0; i < window.columns; ++i) {
                const double away = metres_between(s.lat, s.lon, window.lat(j), window.lon(i)) / massif;
                if (away >= 1.0) continue;
                const double raised = coarse_.height(s.lat, s.lon) + off * (1.0 - away) * (1.0 - away);
                base.at(j, i) =
                    std::max(base.at(j, i),
                             static_cast<float>(base.at(j, i) + (raised - base.at(j, i)) * (1.0 - away)));
            }
    }
    return base;
}

// What a degree is computed from.
struct relief::degree_work {
    node_window w;
    node_values<shore_node> shore;
    water_distance water;
    node_values<float> base, height;     // metres: what the water is to keep, and what it has made
    node_values<float> dry, dry_height;  // salt lakes: 1 on them, and their level
    std::vector<float> rivers;           // nodes that drain through what the map shows as a river
    drainage flow;
};

// The ground of a node before noise: lakes lie in their surroundings, and no land below the sea's level
// stands at its shore.
double relief::ground_at(const degree_work& d, size_t n, const elevation::surroundings& about) const {
    const double to_water = d.water.metres.values[n], level = d.water.level.values[n];
    double ground = d.base.values[n];
    if (d.shore.values[n].level == 1 && level == 0.0 && to_water < 8000.0)
        ground = std::max(ground, 3.0 + 0.002 * to_water);
    else
        ground += (1.0 - smooth(0.0, 4000.0, to_water)) * (level + 0.01 * to_water - ground);
    if (about.wide_high < 5.0 && level == 0.0)  // an island that the coarse heights do not know
        ground = std::max(ground, std::min(0.06 * to_water, 250.0));
    return ground + d.dry.values[n] * (d.dry_height.values[n] - ground);
}

// Ground and noise of each node of land, and where water ends.
void relief::begin(degree_work* d) const {
    const node_window& w = d->w;
    for (int j = 0; j < w.rows; ++j)
        for (int i = 0; i < w.columns; ++i) {
            const size_t n = w.at(j, i);
            const double to_water = d->water.metres.values[n], level = d->water.level.values[n];
            if (j == 0 || i == 0 || j == w.rows - 1 || i == w.columns - 1) d->flow.outlet[n] = 1;
            if (!d->shore.values[n].land()) {
                d->base.values[n] = d->height.values[n] = static_cast<float>(level);
                d->flow.outlet[n] = 1;
                continue;
            }
            const elevation::surroundings s = coarse_.around(w.lat(j), w.lon(i));
            const double ground = ground_at(*d, n, s);
            d->base.values[n] = static_cast<float>(ground);
            // low ground among mountains is filled, high ground is rough
            const double pulled = fabs(ground - coarse_.height(w.lat(j), w.lon(i)));
            const double range =
                std::max(std::min(s.wide_high - s.wide_low, 1.6 * (s.high - s.low)), 0.8 * pulled);
            const double raised = (ground - s.wide_low) / (std::max(s.wide_high, ground) - s.wide_low + 40.0);
            const double rough = (0.10 + 0.90 * smooth(0.06, 0.40, raised)) * range *
                                 (0.25 + 0.75 * smooth(0.0, 1200.0, to_water));
            const sphere_noise::place p = sphere_noise::at(w.lat(j), w.lon(i));
            const double shape = sphere_noise::ridged(p, 9500.0, 5, 401) - 0.33;
            const double swell = sphere_noise::fractal(p, 2500.0, 3, 421) - 0.5;
            const double detail = 1.25 * rough * shape + std::min(6.0, 2.0 + 0.05 * range) * swell;
            // rivers of the map keep to the low ground
            const double valley = d->rivers[n] > 0.0f ? std::min(10.0 + 0.15 * range, 120.0) : 0.0;
            float& h = d->height.values[n];
            h = static_cast<float>(ground + (1.0 - d->dry.values[n]) * (detail - valley));
            if (to_water < 8000.0) h = std::max(h, static_cast<float>(level + 1.5));
        }
}

// One round of running water (stream power, implicit scheme of Braun and Willett 2013).
void relief::run_water(degree_work* d) const {
    const node_window& w = d->w;
    const double side = width_of(w.lat(w.rows / 2));
    const uint32_t columns = static_cast<uint32_t>(w.columns);
    std::vector<float> area;
    route(d->height, &d->flow);
    add_up(d->flow, d->rivers, &area);
    for (const uint32_t here : d->flow.order) {
        const uint32_t there = d->flow.to[here];
        if (here == there) continue;
        const bool same_row = here / columns == there / columns,
                   same_column = here % columns == there % columns;
        const double length = same_row ? side : same_column ? node_metres : hypot(side, node_metres);
        const double cut = 0.06 * sqrt(std::min(area[here], 4000.0f)) * node_metres / length;
        float& h = d->height.values[here];
        const float below = d->height.values[there];
        h = static_cast<float>((h + cut * below) / (1.0 + cut));
        h = std::min(h, below + static_cast<float>(0.75 * length));  // steeper ground falls
    }
}

// A slow rise that keeps the coarse heights.
static void rise(const node_values<float>& base, const node_values<shore_node>& shore,
                 const node_values<float>& dry, node_values<float>* height) {
    node_values<float> loss = base;
    for (size_t n = 0; n < loss.values.size(); ++n) loss.values[n] -= height->values[n];
    constexpr int radius = 10;  // nodes
    blur(&loss, radius);
    for (size_t n = 0; n < loss.values.size(); ++n)
        if (shore.values[n].land() && dry.values[n] < 1.0f) height->values[n] += 0.8f * loss.values[n];
}

// Spurs and gullies finer than the water has cut, as high as the ground is steep.
static void roughen(const node_values<shore_node>& shore, const node_values<float>& dry,
                    node_values<float>* height) {
    const node_window& w = height->window;
    const node_values<float> smooth_height = *height;
    constexpr double wavelength = 1900.0, share = 0.9,
                     mean = 0.46;  // metres; of a step between nodes; of the noise
    for (int j = 1; j + 1 < w.rows; ++j) {
        const double side = width_of(w.lat(j));
        for (int i = 1; i + 1 < w.columns; ++i) {
            const size_t n = w.at(j, i);
            if (!shore.values[n].land() || dry.values[n] > 0.0f) continue;
            const double slope =
                hypot((smooth_height.at(j + 1, i) - smooth_height.at(j - 1, i)) / (2.0 * node_metres),
                      (smooth_height.at(j, i + 1) - smooth_height.at(j, i - 1)) / (2.0 * side));
            if (slope < 0.04) continue;
            const double crest =
                sphere_noise::ridged(sphere_noise::at(w.lat(j), w.lon(i)), wavelength, 2, 441) - mean;
            height->values[n] +=
                static_cast<float>(share * std::min(slope - 0.04, 0.5) * node_metres * crest);
        }
    }
}

node_values<float> relief::degree_heights(int lat, int lon) const {
    const node_window w = degree_window(lat, lon);
    const node_values<float> none(w, 0.0f);
    const node_values<shore_node> shore = shore_with_airports(w);
    degree_work d{w,
                  shore,
                  distance_to_water(shore),
                  base_heights(w),
                  none,
                  none,
                  none,
                  std::vector<float>(w.size(), 0.0f),
                  {}};
    d.flow.outlet.assign(w.size(), 0);
    mark_sinks(w, &d.flow.outlet);
    add_rivers(w, &d.rivers);
    d.dry = dry_lakes(w, &d.dry_height);
    begin(&d);
    constexpr int rounds = 10;
    for (int round = 0; round < rounds; ++round) {
        if (round > 0) rise(d.base, d.shore, d.dry, &d.height);
        run_water(&d);
    }
    roughen(d.shore, d.dry, &d.height);
    lower_rivals(&d.height);
    cut_outlets(&d.height, &d.flow, nullptr);
    raise_summits(d.water.metres, &d.height);
    return d.height;
}

const node_values<float>& relief::degree(int lat, int lon) const {
    const std::pair<int, int> key = {lat, wrapped(lon)};
    const auto known = degrees_.find(key);
    if (known != degrees_.end()) return known->second;
    return degrees_[key] = degree_heights(lat, wrapped(lon));
}

// -- all together

relief::ground relief::of(const node_window& window) const {
    const node_values<float> none(window, 0.0f);
    ground g{shore_with_airports(window), none, none, none, none, none};
    const water_distance water = distance_to_water(g.shore);
    // 1 within a degree, 0 outside, both ways of one form, so that those of neighbours add up to 1
    const auto weight = [](int node, int degree_first) {
        const int from_west = node - degree_first, to_east = degree_first + nodes_per_degree - node;
        return smooth(-half_blend, half_blend, std::min(from_west, to_east));
    };
    for (int j = 0; j < window.rows; ++j)
        for (int i = 0; i < window.columns; ++i) {
            const int row = window.row + j, column = window.column + i;
            double sum = 0.0, total = 0.0;
            for (int lat = floor_div(row - half_blend, nodes_per_degree);
                 lat <= floor_div(row + half_blend, nodes_per_degree); ++lat)
                for (int lon = floor_div(column - half_blend, nodes_per_degree);
                     lon <= floor_div(column + half_blend, nodes_per_degree); ++lon) {
                    const double part =
                        weight(row, lat * nodes_per_degree) * weight(column, lon * nodes_per_degree);
                    if (part <= 0.0) continue;
                    sum += part * degree(lat, lon).at(row - lat * nodes_per_degree + margin,
                                                      column - lon * nodes_per_degree + margin);
                    total += part;
                }
            const size_t n = window.at(j, i);
            const double level = water.level.values[n], away = water.metres.values[n];
            double h = sum / total;
            if (!g.shore.values[n].land())
                h = level;
            else if (away < 1500.0)
                h = std::max(h, level + 1.0 + 0.002 * away);
            g.height.values[n] = static_cast<float>(h);
        }
    g.to_water = water.metres;
    g.water_level = water.level;
    level_airports(&g);
    return g;
}

// Level under all pavement and some way about it, then a soft rim that spares known summits. Where airports
// lie close together each counts by its nearness.
void relief::level_airports(ground* g) const {
    const node_window& w = g->height.window;
    constexpr double flat = 700.0, rim = 3000.0;
    node_values<float> pull(w, 0.0f), weight(w, 0.0f);
    node_values<float>& most = g->on_airport;
    const double lat = w.lat(w.rows / 2), lon = w.lon(w.columns / 2);
    const std::vector<known_point> summits =
        places_.summits.near(lat, lon, 0.5 * w.rows / nodes_per_degree + 0.2);
    const auto from_summits = [&](int j, int i) {
        double nearest = 1.0e9;
        for (const known_point& s : summits)
            nearest = std::min(nearest, metres_between(s.lat, s.lon, w.lat(j), w.lon(i)));
        return nearest;
    };
    for (const known_airport& a : places_.airports.near(lat, lon, 0.5 * w.rows / nodes_per_degree + 0.2)) {
        const int up = static_cast<int>(10000.0 / node_metres),
                  across = static_cast<int>(10000.0 / width_of(a.lat));
        const int j0 = static_cast<int>(lround((a.lat - w.lat(0)) * nodes_per_degree));
        const int i0 = static_cast<int>(lround((a.lon - w.lon(0)) * nodes_per_degree));
        for (int j = std::max(j0 - up, 0); j < std::min(j0 + up + 1, w.rows); ++j)
            for (int i = std::max(i0 - across, 0); i < std::min(i0 + across + 1, w.columns); ++i) {
                if (!g->shore.at(j, i).land()) continue;
                const double away = metres_from(a, w.lat(j), w.lon(i));
                if (away >= flat + rim) continue;
                const double spared =
                    (1.0 - smooth(400.0, 1800.0, from_summits(j, i))) * smooth(flat, flat + 1000.0, away);
                const double part = (1.0 - smooth(flat, flat + rim, away)) * (1.0 - spared);
                const double sharp = part * part * part / (1.0 + away * away / (flat * flat));
                pull.at(j, i) += static_cast<float>(sharp * a.ele);
                weight.at(j, i) += static_cast<float>(sharp);
                most.at(j, i) = std::max(most.at(j, i), static_cast<float>(part));
            }
    }
    for (size_t n = 0; n < w.size(); ++n)
        if (weight.values[n] > 0.0f) {
            const float plane = pull.values[n] / weight.values[n];
            g->height.values[n] += most.values[n] * (plane - g->height.values[n]);
        }
}

// Cuts outlets through what dams water up, then raises what lies lower than its outlet, so that all land
// drains to water, to a closed basin or to the window's rim of `rim` nodes, which stays as it is. Airports
// stay too.
void relief::drain_within(ground* g, int rim) const {
    const node_window& w = g->height.window;
    drainage flow;
    flow.outlet.assign(w.size(), 0);
    for (int j = 0; j < w.rows; ++j)
        for (int i = 0; i < w.columns; ++i)
            flow.outlet[w.at(j, i)] =
                j < rim || i < rim || j >= w.rows - rim || i >= w.columns - rim || !g->shore.at(j, i).land();
    mark_sinks(w, &flow.outlet);
    cut_outlets(&g->height, &flow, &g->on_airport);
    std::vector<float> rivers_here(w.size(), 0.0f);
    add_rivers(w, &rivers_here);
    add_up(flow, rivers_here, &g->upstream.values);
}
