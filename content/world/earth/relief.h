// Heights of the Earth's land at the nodes.
// Role: carries the coarse heights down to the mesh by noise and running water. Each degree is computed once,
// with a margin, from what is known of the place alone, and neighbouring degrees are blended; so a node has
// one height, whichever tile asks.
#pragma once
#include <map>
#include <utility>
#include <vector>

#include "elevation.h"
#include "known_places.h"
#include "regions.h"
#include "rivers.h"
#include "shores.h"

class relief {
public:
    relief(const elevation& coarse, const shores& coast, const known_places& places, const rivers& streams,
           const regions& outlines)
        : coarse_(coarse), coast_(coast), places_(places), streams_(streams), outlines_(outlines) {}

    struct ground {
        node_values<shore_node> shore;
        node_values<float> height;       // metres; water is level
        node_values<float> to_water;     // metres to the nearest shore, on land
        node_values<float> water_level;  // of that shore's water
        node_values<float> upstream;     // nodes that drain through a node, itself too
        node_values<float> on_airport;   // 1 on the plane of an airport, falling to 0 in its rim
    };
    ground of(const node_window& window) const;
    void drain_within(ground* g, int rim) const;

    double water_level(const shore_node& node) const;

private:
    struct water_distance {
        node_values<float> metres, level;  // of the nearest water
    };
    node_values<shore_node> shore_with_airports(const node_window& window) const;
    water_distance distance_to_water(const node_values<shore_node>& shore) const;
    node_values<float> dry_lakes(const node_window& window, node_values<float>* level) const;
    void mark_sinks(const node_window& window, std::vector<unsigned char>* outlet) const;
    void add_rivers(const node_window& window, std::vector<float>* water) const;
    node_values<float> base_heights(const node_window& window) const;
    void lower_rivals(node_values<float>* height) const;
    void raise_summits(const node_values<float>& to_water, node_values<float>* height) const;
    struct degree_work;
    double ground_at(const degree_work& d, size_t n, const elevation::surroundings& about) const;
    void begin(degree_work* d) const;
    void run_water(degree_work* d) const;
    node_values<float> degree_heights(int lat, int lon) const;
    const node_values<float>& degree(int lat, int lon) const;
    void level_airports(ground* g) const;

    const elevation& coarse_;
    const shores& coast_;
    const known_places& places_;
    const rivers& streams_;
    const regions& outlines_;
    mutable std::map<int, double> lake_levels_;
    mutable std::map<std::pair<int, int>, node_values<float>> degrees_;
};
