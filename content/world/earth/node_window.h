// The nodes that all of the Earth's land is computed on: 255 to a degree each way, counted from 0 N 0 E, so
// that neighbouring tiles speak of the same nodes.
#pragma once
#include <stddef.h>

#include <vector>

constexpr int nodes_per_degree = 255;
constexpr int raw_per_cell = 257;  // steps of a tile's 16-bit places from node to node
constexpr double earth_degree_metres = 111319.6;

// A rectangle of nodes: the south-western one, and how many there are.
struct node_window {
    int row = 0, column = 0, rows = 0, columns = 0;

    size_t size() const { return static_cast<size_t>(rows) * static_cast<size_t>(columns); }
    // j and i count from the south-western node.
    size_t at(int j, int i) const {
        return static_cast<size_t>(j) * static_cast<size_t>(columns) + static_cast<size_t>(i);
    }
    double lat(int j) const { return static_cast<double>(row + j) / nodes_per_degree; }
    double lon(int i) const { return static_cast<double>(column + i) / nodes_per_degree; }
};

template <class value>
struct node_values {
    node_window window;
    std::vector<value> values;

    node_values() = default;
    node_values(const node_window& w, value v) : window(w), values(w.size(), v) {}
    value& at(int j, int i) { return values[window.at(j, i)]; }
    const value& at(int j, int i) const { return values[window.at(j, i)]; }
};
