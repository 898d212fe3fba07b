// Writer of scenery tiles.
// Role: gathers what a tile holds, encodes it so that edges decode exactly, and lets no file out that the
// simulator's own decoder does not read back as it was meant. Places in degrees, elevations in metres.
#pragma once
#include <array>
#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <vector>

struct tile_point {
    double lon = 0, lat = 0, ele = 0;
    double nx = 0, nz = 0;  // of the unit normal: east, south
    double s = 0, t = 0;    // texture, or border mask of a projected layer
};

struct road_point {
    double lon = 0, lat = 0, ele = 0;
    uint32_t node = 0;  // of a junction, 0 for a shape point
};

constexpr double degree_metres_earth = 111319.6, degree_metres_mars = 59274.9;  // along a meridian

// What the decoder must tell of the file, one row a call: the numbers as they were asked for, and how far the
// file's steps may take each from there.
enum class told : unsigned char {
    patch,
    primitive,
    vertex,
    polygon,
    winding,
    corner,
    object,
    road,
    shape,
    road_end
};
struct told_row {
    told what;
    size_t count;
    std::array<double, 7> values, slack;
};

enum tile_patch_flags : unsigned char {
    tile_base = 1,     // drawn, and stood on
    tile_overlay = 2,  // drawn over the ground of others
};

// Ground at the four borders of a tile as the file holds it: by the place along the border, elevation and
// normal.
struct tile_edges {
    struct point {
        double ele, nx, nz;
    };
    using border = std::map<double, point>;
    border west, east, south, north;
    double slack = 0.0;  // of the elevations, m
};

class tile_writer {
public:
    // South-west corner in whole degrees; no elevation may lie outside the range.
    tile_writer(int lat, int lon, double ele_min = -512.0, double ele_max = 7680.0);

    // Index of a definition, which is made when it is new. Terrain 0 is the water of every tile.
    unsigned terrain(const std::string& name);
    unsigned object(const std::string& name);
    unsigned polygon(const std::string& name);
    unsigned network(const std::string& name);

    // What follows belongs to this patch. with_st: its points have texture coordinates.
    void begin_patch(unsigned terrain, unsigned char flags, double lod_near = -1.0, double lod_far = -1.0,
                     bool with_st = false);
    void triangles(const std::vector<tile_point>& points);
    void strip(const std::vector<tile_point>& points);
    void fan(const std::vector<tile_point>& points);

    void place(unsigned object, double lon, double lat, double heading);
    using winding = std::vector<tile_point>;
    void add_polygon(unsigned polygon, uint16_t parameter, const std::vector<winding>& windings);
    // From junction to junction; at most 255 points.
    void add_road(unsigned network, uint8_t subtype, const std::vector<road_point>& chain);

    // False, with the reason, when the disk fails or the tile does not hold what it must; then there is no
    // file. edges takes what must meet the neighbours, when it is given.
    bool write(const std::string& path, std::string* error, tile_edges* edges = nullptr) const;

    // Slopes and the lengths of sides need the planet's size; the Earth's until it is told.
    void set_degree_metres(double metres) { degree_metres_ = metres; }
    double degree_metres() const { return degree_metres_; }
    int lat() const { return lat_; }
    int lon() const { return lon_; }
    double elevation_slack() const { return half_step(elevations_.scale); }

    // Half a step of a 16-bit plane, and a little for the decoder's own rounding.
    static double half_step(double scale) { return 0.51 * scale / 65535.0; }

private:
    struct scale_pair {
        float scale, offset;
    };
    // Points of one kind, as they are stored: raw values, point by point.
    struct pool_16 {
        std::vector<scale_pair> planes;
        std::vector<uint16_t> raw;
        size_t count() const { return raw.size() / planes.size(); }
    };
    struct placed {
        unsigned object;
        size_t pool, point;
        told_row meant;
    };

    size_t pool_with_room(int depth, size_t points);
    size_t new_pool(std::vector<scale_pair> planes);
    void select_pool(size_t pool);
    void select_definition(unsigned index);
    void primitive(int range_command, const std::vector<tile_point>& points);
    uint16_t store(size_t pool, const std::vector<double>& values);
    size_t object_pool(double lon, double lat);
    std::vector<const placed*> objects_in_order() const;
    std::vector<uint8_t> all_commands() const;
    std::vector<const told_row*> all_told() const;
    using numbers = std::initializer_list<double>;
    static told_row row_of(told what, numbers values, numbers slack);
    void tell(told what, numbers values, numbers slack = {}) { told_.push_back(row_of(what, values, slack)); }
    void tell_road(told what, const road_point& p, numbers values);
    void write_file(struct _IO_FILE* file, bool* failed) const;

    int lat_, lon_;
    double degree_metres_ = degree_metres_earth;
    scale_pair elevations_;
    std::vector<std::string> terrain_, objects_, polygons_, networks_;
    std::vector<pool_16> pools_;
    std::map<std::pair<int, int>, size_t> object_pools_;  // by eighths of a degree
    std::map<int, size_t> open_pools_;                    // by depth: the one that still has room
    std::vector<uint32_t> roads_;                         // raw points of the 32-bit pool
    std::vector<placed> placed_;
    std::vector<uint8_t> commands_;  // terrain and polygons
    std::vector<uint8_t> road_commands_;
    long selected_pool_ = -1, selected_definition_ = -1;
    int patch_depth_ = 5;
    std::vector<told_row> told_, told_roads_;  // of commands_ and of road_commands_
    std::string fault_;                        // of what was asked for
    friend class tile_check;
};
