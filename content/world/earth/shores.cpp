// Reader of the binned shorelines.
#include "shores.h"

#include <hdf5.h>
#include <math.h>

#include <algorithm>
#include <map>
#include <stdexcept>

namespace {
constexpr int bin_degrees = 2, bin_columns = 360 / bin_degrees, bin_rows = 180 / bin_degrees;
constexpr int bin_nodes = bin_degrees * nodes_per_degree;
constexpr double bin_raw = 65535.0;
// Half-integer steps between nodes: a quarter beyond them no line of nodes meets a point of the file.
constexpr double raw_per_node = bin_raw / bin_nodes, beside = 0.25;
constexpr int grounding_line = 6, ice_front = 5;  // two shores of Antarctica: the ice counts as land

struct crossing {
    double at;  // along the line, in the file's steps
    int level, polygon;
};
using line_crossings = std::vector<std::vector<crossing>>;

// What crosses the lines of nodes of one bin.
struct bin_lines {
    line_crossings rows{static_cast<size_t>(bin_nodes)}, columns{static_cast<size_t>(bin_nodes)};
};

class file_reader {
public:
    explicit file_reader(const std::string& path) : path_(path) {
        H5Eset_auto2(H5E_DEFAULT, nullptr, nullptr);  // faults are told below
        file_ = H5Fopen(path.c_str(), H5F_ACC_RDONLY, H5P_DEFAULT);
        if (file_ < 0) fail("cannot be read");
    }
    ~file_reader() {
        if (file_ >= 0) H5Fclose(file_);
    }
    file_reader(const file_reader&) = delete;
    file_reader& operator=(const file_reader&) = delete;

    std::vector<int> numbers(const char* name) {
        const hid_t set = H5Dopen2(file_, name, H5P_DEFAULT);
        if (set < 0) fail(std::string("has no ") + name);
        const hid_t space = H5Dget_space(set);
        const hssize_t count = H5Sget_simple_extent_npoints(space);
        std::vector<int> values(static_cast<size_t>(std::max<hssize_t>(count, 0)));
        const bool good =
            count > 0 && H5Dread(set, H5T_NATIVE_INT, H5S_ALL, H5S_ALL, H5P_DEFAULT, values.data()) >= 0;
        H5Sclose(space);
        H5Dclose(set);
        if (!good) fail(std::string("is damaged: ") + name);
        return values;
    }
    [[noreturn]] void fail(const std::string& why) const {
        throw std::runtime_error("shores: " + path_ + " " + why +
                                 "; it comes with the Debian package gmt-gshhg-high");
    }

private:
    std::string path_;
    hid_t file_ = -1;
};
}  // namespace

struct shore_data {
    std::vector<int> node_levels, first_segment, segments;  // by bin
    std::vector<int> info, first_point, polygon;            // by segment
    std::vector<int> east, north;                           // by point
    std::vector<int> area;                                  // by polygon, km2
    std::map<int, std::vector<int>> segments_of_lake;       // by polygon
    std::vector<int> bin_of_segment;

    int level(int segment) const { return info[static_cast<size_t>(segment)] >> 6 & 7; }
    int points(int segment) const { return info[static_cast<size_t>(segment)] >> 9; }

    bin_lines lines_of(int bin) const;
    int corner_level(int bin) const {
        const int level = node_levels[static_cast<size_t>(bin)] >> 9 & 7;
        return level >= ice_front ? 1 : level;
    }
    int lake_at_corner(int bin) const;
};

shores::shores(const std::string& path) : data_(std::make_unique<shore_data>()) {
    file_reader file(path);
    shore_data& d = *data_;
    d.node_levels = file.numbers("Embedded_node_levels_in_a_bin");
    d.first_segment = file.numbers("Id_of_first_segment_in_a_bin");
    d.segments = file.numbers("N_segments_in_a_bin");
    d.info = file.numbers("Embedded_npts_levels_exit_entry_for_a_segment");
    d.first_point = file.numbers("Id_of_first_point_in_a_segment");
    d.polygon = file.numbers("Id_of_GSHHS_ID");
    d.east = file.numbers("Relative_longitude_from_SW_corner_of_bin");
    d.north = file.numbers("Relative_latitude_from_SW_corner_of_bin");
    d.area = file.numbers("The_km_squared_area_of_polygons");
    const size_t bins = static_cast<size_t>(bin_columns * bin_rows);
    bool sound = d.node_levels.size() == bins && d.first_segment.size() == bins &&
                 d.segments.size() == bins && d.first_point.size() == d.info.size() &&
                 d.polygon.size() == d.info.size() && d.north.size() == d.east.size();
    for (size_t s = 0; sound && s < d.info.size(); ++s)
        sound = d.first_point[s] >= 0 && d.info[s] >= 0 &&
                static_cast<size_t>(d.first_point[s]) + static_cast<size_t>(d.info[s] >> 9) <= d.east.size();
    for (size_t b = 0; sound && b < bins; ++b)
        sound =
            d.segments[b] == 0 ||
            (d.first_segment[b] >= 0 && d.segments[b] > 0 &&
             static_cast<size_t>(d.first_segment[b]) + static_cast<size_t>(d.segments[b]) <= d.info.size());
    if (!sound) file.fail("is damaged");
    for (std::vector<int>* places : {&d.east, &d.north})
        for (int& v : *places) v &= 0xffff;  // the file holds them as signed words
    d.bin_of_segment.resize(d.info.size());
    for (size_t b = 0; b < bins; ++b)
        for (int s = d.first_segment[b]; s < d.first_segment[b] + d.segments[b]; ++s) {
            d.bin_of_segment[static_cast<size_t>(s)] = static_cast<int>(b);
            if (d.level(s) == 2 || d.level(s) == 4)
                d.segments_of_lake[d.polygon[static_cast<size_t>(s)]].push_back(s);
        }
}
shores::~shores() = default;

// Crossings of one side with the lines of nodes that run across it.
static void cross(double along0, double across0, double along1, double across1, int level, int polygon,
                  line_crossings* lines) {
    const double low = std::min(across0, across1), high = std::max(across0, across1);
    const int first = static_cast<int>(ceil((low - beside) / raw_per_node));
    const int last = static_cast<int>(floor((high - beside) / raw_per_node));
    for (int n = std::max(first, 0); n <= std::min(last, bin_nodes - 1); ++n) {
        const double part = (n * raw_per_node + beside - across0) / (across1 - across0);
        (*lines)[static_cast<size_t>(n)].push_back({along0 + part * (along1 - along0), level, polygon});
    }
}

bin_lines shore_data::lines_of(int bin) const {
    bin_lines lines;
    const int first = first_segment[static_cast<size_t>(bin)];
    for (int s = first; s < first + segments[static_cast<size_t>(bin)]; ++s) {
        const int told = level(s), here = told == ice_front ? 1 : told, id = polygon[static_cast<size_t>(s)];
        if (told == grounding_line) continue;
        const size_t p = static_cast<size_t>(first_point[static_cast<size_t>(s)]);
        for (size_t n = p + 1; n < p + static_cast<size_t>(points(s)); ++n) {
            cross(east[n - 1], north[n - 1], east[n], north[n], here, id, &lines.rows);
            cross(north[n - 1], east[n - 1], north[n], east[n], here, id, &lines.columns);
        }
    }
    for (line_crossings* all : {&lines.rows, &lines.columns})
        for (std::vector<crossing>& line : *all)
            std::sort(line.begin(), line.end(),
                      [](const crossing& a, const crossing& b) { return a.at < b.at; });
    return lines;
}

namespace {
// What a walk along a line has under it.
struct walker {
    int level, lake;
    void pass(const crossing& c) {
        level = level >= c.level ? c.level - 1 : c.level;
        if (c.level == 2 || c.level == 4) lake = c.polygon;
    }
};

int wrapped_bin(int row, int column) {
    return row * bin_columns + (column % bin_columns + bin_columns) % bin_columns;
}
}  // namespace

// A bin in the midst of a lake: its shore lies in a bin farther west.
int shore_data::lake_at_corner(int bin) const {
    const int row = bin / bin_columns, column = bin % bin_columns;
    for (int away = 1; away < 12; ++away) {
        const bin_lines lines = lines_of(wrapped_bin(row, column - away));
        const std::vector<crossing>& line = lines.rows[0];
        for (auto c = line.rbegin(); c != line.rend(); ++c)
            if (c->level == 2) return c->polygon;
    }
    return 0;
}

namespace {
// Part of 257 of the way from node n to the next, of the first crossing between them; 0 when there is none.
short first_between(const std::vector<crossing>& line, int n) {
    const double from = n * raw_per_node + beside, to = from + raw_per_node;
    for (const crossing& c : line)
        if (c.at >= from && c.at < to)
            return static_cast<short>(
                std::clamp(lround((c.at - from) / raw_per_node * raw_per_cell), 1l, raw_per_cell - 1l));
    return 0;
}

int floor_div(int a, int b) { return a >= 0 ? a / b : -((b - 1 - a) / b); }
}  // namespace

node_values<shore_node> shores::nodes(const node_window& window) const {
    node_values<shore_node> result(window, {});
    const shore_data& d = *data_;
    const int last_row = window.row + window.rows - 1, last_column = window.column + window.columns - 1;
    for (int south = floor_div(window.row, bin_nodes); south <= floor_div(last_row, bin_nodes); ++south)
        for (int west = floor_div(window.column, bin_nodes); west <= floor_div(last_column, bin_nodes);
             ++west) {
            // the file's bins begin at the north pole; beyond the poles their rims are continued
            const int bin = wrapped_bin(std::clamp(bin_rows / 2 - 1 - south, 0, bin_rows - 1), west);
            const bin_lines lines = d.lines_of(bin);
            const int level = d.corner_level(bin);
            walker up{level, level == 2 ? d.lake_at_corner(bin) : 0};
            size_t next_up = 0;
            const int j_end = std::min(bin_nodes, last_row - south * bin_nodes + 1);
            const int i_end = std::min(bin_nodes, last_column - west * bin_nodes + 1);
            for (int j = 0; j < j_end; ++j) {
                const std::vector<crossing>& edge = lines.columns[0];
                for (; next_up < edge.size() && edge[next_up].at < j * raw_per_node + beside; ++next_up)
                    up.pass(edge[next_up]);
                if (south * bin_nodes + j < window.row) continue;
                const std::vector<crossing>& line = lines.rows[static_cast<size_t>(j)];
                walker along = up;
                size_t next = 0;
                for (int i = 0; i < i_end; ++i) {
                    for (; next < line.size() && line[next].at < i * raw_per_node + beside; ++next)
                        along.pass(line[next]);
                    if (west * bin_nodes + i < window.column) continue;
                    shore_node& node =
                        result.at(south * bin_nodes + j - window.row, west * bin_nodes + i - window.column);
                    node.level = static_cast<unsigned char>(along.level);
                    node.lake = along.level == 2 || along.level == 4 ? along.lake : 0;
                    node.east = first_between(line, i);
                    node.north = first_between(lines.columns[static_cast<size_t>(i)], j);
                }
            }
        }
    return result;
}

std::vector<std::vector<shores::stretch>> shores::land_rows(int south, int west) const {
    std::vector<std::vector<stretch>> rows(static_cast<size_t>(bin_nodes));
    const int bin = wrapped_bin(bin_rows / 2 - 1 - south, west);
    const bin_lines lines = data_->lines_of(bin);
    walker up{data_->corner_level(bin), 0};
    size_t next_up = 0;
    for (int j = 0; j < bin_nodes; ++j) {
        const std::vector<crossing>& edge = lines.columns[0];
        for (; next_up < edge.size() && edge[next_up].at < j * raw_per_node + beside; ++next_up)
            up.pass(edge[next_up]);
        walker along = up;
        double from = 0.0;
        const auto end_at = [&](double to) {
            if (along.level % 2 == 1 && to > from)
                rows[static_cast<size_t>(j)].push_back({from / bin_raw, to / bin_raw});
            from = to;
        };
        for (const crossing& c : lines.rows[static_cast<size_t>(j)]) {
            if (c.at < beside) continue;  // west of the edge that the walk begins on
            end_at(c.at);
            along.pass(c);
        }
        end_at(bin_raw);
    }
    return rows;
}

std::vector<shores::place> shores::lake_shore(int lake) const {
    std::vector<place> places;
    const shore_data& d = *data_;
    const auto found = d.segments_of_lake.find(lake);
    if (found == d.segments_of_lake.end()) return places;
    for (const int s : found->second) {
        const int bin = d.bin_of_segment[static_cast<size_t>(s)];
        const double west = bin % bin_columns * bin_degrees,
                     south = 90.0 - (bin / bin_columns + 1) * bin_degrees;
        const size_t first = static_cast<size_t>(d.first_point[static_cast<size_t>(s)]);
        for (size_t p = first; p < first + static_cast<size_t>(d.points(s)); p += 4)
            places.push_back(
                {south + d.north[p] * bin_degrees / bin_raw, west + d.east[p] * bin_degrees / bin_raw});
    }
    return places;
}

double shores::lake_area(int lake) const {
    return lake > 0 && static_cast<size_t>(lake) < data_->area.size() ? data_->area[static_cast<size_t>(lake)]
                                                                      : 0.0;
}
