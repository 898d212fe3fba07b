// A net between places without needless crossings.
#include "nav_net.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "nav_geo.h"

namespace {
struct vect {
    double x, y, z;
};

// Rounded well above the last bits, in which math libraries differ, so that comparisons come out alike.
double rounded(double value) { return std::round(value * 1e12) / 1e12; }

vect chord_place(nav_place p) {
    constexpr double degtorad = 0.017453292519943295;
    const double c = cos(p.lat * degtorad);
    return {rounded(c * cos(p.lon * degtorad)), rounded(c * sin(p.lon * degtorad)),
            rounded(sin(p.lat * degtorad))};
}

double square_between(const vect& a, const vect& b) {
    const double dx = a.x - b.x, dy = a.y - b.y, dz = a.z - b.z;
    return dx * dx + dy * dy + dz * dz;
}

// Where edges run on in each other: next[edge][end] is the edge that continues at that end, or -1.
struct links {
    std::vector<int> next[2];
};

struct joint {
    long turn;  // thousandths of a degree off straight
    int e, f;
};

void join_at(int place, const std::vector<int>& around, const std::vector<net_edge>& edges,
             const std::vector<double> heading[2], links& l) {
    constexpr long sharpest = 40000;
    std::vector<joint> joints;
    const auto end_of = [&](int e) { return edges[static_cast<size_t>(e)].a == place ? 0 : 1; };
    for (size_t n = 0; n < around.size(); ++n)
        for (size_t m = n + 1; m < around.size(); ++m) {
            const double h1 = heading[end_of(around[n])][static_cast<size_t>(around[n])];
            const double h2 = heading[end_of(around[m])][static_cast<size_t>(around[m])];
            const long turn = std::lround(1000 * (180 - std::fabs(heading_between(h1, h2))));
            if (turn <= sharpest) joints.push_back({turn, around[n], around[m]});
        }
    std::sort(joints.begin(), joints.end(), [](const joint& a, const joint& b) {
        return std::tie(a.turn, a.e, a.f) < std::tie(b.turn, b.e, b.f);
    });
    for (const joint& j : joints) {
        int& from = l.next[end_of(j.e)][static_cast<size_t>(j.e)];
        int& to = l.next[end_of(j.f)][static_cast<size_t>(j.f)];
        if (from >= 0 || to >= 0) continue;
        from = j.f;
        to = j.e;
    }
}

// Follows the links from an edge out of one of its ends; marks what it passes.
net_line follow(int edge, int out_end, const std::vector<net_edge>& edges, const links& l,
                std::vector<bool>& used) {
    net_line line;
    for (;;) {
        const net_edge& e = edges[static_cast<size_t>(edge)];
        used[static_cast<size_t>(edge)] = true;
        const int out = out_end ? e.b : e.a;
        if (line.empty()) line.push_back(out_end ? e.a : e.b);
        line.push_back(out);
        const int next = l.next[out_end][static_cast<size_t>(edge)];
        if (next < 0 || used[static_cast<size_t>(next)]) return line;
        out_end = edges[static_cast<size_t>(next)].a == out ? 1 : 0;
        edge = next;
    }
}
}  // namespace

std::vector<net_edge> net_between(const nav_globe& globe, const std::vector<nav_place>& places,
                                  double longest) {
    std::vector<vect> at;
    for (const nav_place& p : places) at.push_back(chord_place(p));
    const double chord = 2 * sin(std::min(longest / globe.radius, 3.14) / 2);
    std::vector<net_edge> edges;
    const int count = static_cast<int>(places.size());
    for (int a = 0; a < count; ++a)
        for (int b = a + 1; b < count; ++b) {
            const vect &p = at[static_cast<size_t>(a)], &q = at[static_cast<size_t>(b)];
            const double square = square_between(p, q);
            if (square > chord * chord || square == 0) continue;
            const vect middle = {(p.x + q.x) / 2, (p.y + q.y) / 2, (p.z + q.z) / 2};
            bool alone = true;
            for (int c = 0; c < count && alone; ++c)
                alone = c == a || c == b || square_between(at[static_cast<size_t>(c)], middle) >= square / 4;
            if (alone)
                edges.push_back({a, b,
                                 std::round(distance_between(globe, places[static_cast<size_t>(a)],
                                                             places[static_cast<size_t>(b)]))});
        }
    return edges;
}

std::vector<net_line> lines_of(const nav_globe& globe, const std::vector<nav_place>& places,
                               const std::vector<net_edge>& edges) {
    std::vector<std::vector<int>> around(places.size());
    std::vector<double> heading[2];  // out of each end, along the edge
    for (size_t e = 0; e < edges.size(); ++e) {
        const auto a = static_cast<size_t>(edges[e].a), b = static_cast<size_t>(edges[e].b);
        around[a].push_back(static_cast<int>(e));
        around[b].push_back(static_cast<int>(e));
        heading[0].push_back(bearing_between(globe, places[a], places[b]));
        heading[1].push_back(bearing_between(globe, places[b], places[a]));
    }
    links l;
    for (std::vector<int>& next : l.next) next.assign(edges.size(), -1);
    for (size_t p = 0; p < places.size(); ++p) join_at(static_cast<int>(p), around[p], edges, heading, l);
    std::vector<net_line> lines;
    std::vector<bool> used(edges.size(), false);
    // first the lines with ends, from an end; then the rings
    for (const bool ring : {false, true})
        for (size_t e = 0; e < edges.size(); ++e)
            for (int end = 0; end < 2; ++end)
                if (!used[e] && (ring || l.next[end][e] < 0))
                    lines.push_back(follow(static_cast<int>(e), 1 - end, edges, l, used));
    return lines;
}
