// A net between places without needless crossings.
#pragma once
#include <vector>

#include "nav_world.h"

struct net_edge {
    int a = 0, b = 0;   // places, a before b
    double length = 0;  // whole metres
};

// Joins two places where no third lies in the sphere over their distance, so that each is joined to what
// stands around it and, if far enough is allowed, all hang together. In order of a, then b.
std::vector<net_edge> net_between(const nav_globe& globe, const std::vector<nav_place>& places,
                                  double longest);

// A line of edges that goes on straight: places in turn.
using net_line = std::vector<int>;
// Lines that hold every edge once: at each place the edges that meet most nearly head on go on in each other.
std::vector<net_line> lines_of(const nav_globe& globe, const std::vector<nav_place>& places,
                               const std::vector<net_edge>& edges);
