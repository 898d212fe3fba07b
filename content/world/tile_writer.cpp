// Encoding of tiles.
#include "tile_writer.h"

#include <errno.h>
#include <fcntl.h>
#include <math.h>
#include <stdio.h>
#include <string.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "scenery/chunk/atom_writer.h"
#include "scenery/decode/dsf_format.h"
#include "tile_check.h"

namespace {
constexpr double raw_max_16 = 65535.0, raw_max_32 = 4294967295.0;
constexpr size_t pool_points_max = 65535;  // a range's end is one behind its last point, in 16 bits
constexpr int eighths = 8;                 // objects stand to 0.2 m in pools an eighth of a degree wide

void put_8(std::vector<uint8_t>& to, unsigned value) { to.push_back(static_cast<uint8_t>(value)); }
void put_16(std::vector<uint8_t>& to, unsigned value) {
    put_8(to, value & 0xff);
    put_8(to, value >> 8 & 0xff);
}
void put_32(std::vector<uint8_t>& to, uint32_t value) {
    put_16(to, value & 0xffff);
    put_16(to, value >> 16);
}
void put_float(std::vector<uint8_t>& to, double value) {
    const float narrow = static_cast<float>(value);
    uint32_t word;
    static_assert(sizeof word == sizeof narrow);
    __builtin_memcpy(&word, &narrow, sizeof word);
    put_32(to, word);
}

uint16_t raw_16(double value, float scale, float offset) {
    const double raw = round((value - offset) / scale * raw_max_16);
    return static_cast<uint16_t>(std::clamp(raw, 0.0, raw_max_16));
}

unsigned index_of(std::vector<std::string>& names, const std::string& name) {
    const auto found = std::find(names.begin(), names.end(), name);
    if (found == names.end()) {
        names.push_back(name);
        return static_cast<unsigned>(names.size() - 1);
    }
    return static_cast<unsigned>(found - names.begin());
}

}  // namespace

tile_writer::tile_writer(int lat, int lon, double ele_min, double ele_max)
    : lat_(lat), lon_(lon), terrain_{"terrain_Water"} {
    // a power of two and a whole multiple of its 65535th would be no help: elevations need not be exact
    const double scale = exp2(ceil(log2(std::max(ele_max - ele_min, 1.0))));
    elevations_ = {static_cast<float>(scale), static_cast<float>(floor(ele_min))};
}

unsigned tile_writer::terrain(const std::string& name) { return index_of(terrain_, name); }
unsigned tile_writer::object(const std::string& name) { return index_of(objects_, name); }
unsigned tile_writer::polygon(const std::string& name) { return index_of(polygons_, name); }
unsigned tile_writer::network(const std::string& name) { return index_of(networks_, name); }

// -- pools

size_t tile_writer::new_pool(std::vector<scale_pair> planes) {
    pools_.push_back({std::move(planes), {}});
    return pools_.size() - 1;
}

// Whole degrees have the scale 1, so that a tile's edge decodes to whole degrees.
size_t tile_writer::pool_with_room(int depth, size_t points) {
    const auto open = open_pools_.find(depth);
    if (open != open_pools_.end() && pools_[open->second].count() + points <= pool_points_max)
        return open->second;
    std::vector<scale_pair> planes = {{1.0f, static_cast<float>(lon_)}, {1.0f, static_cast<float>(lat_)}};
    if (depth > dsf_planes_polygon) {
        planes.push_back(elevations_);
        planes.insert(planes.end(), 2, {2.0f, -1.0f});  // normals
    }
    while (static_cast<int>(planes.size()) < depth) planes.push_back({1.0f, 0.0f});
    return open_pools_[depth] = new_pool(std::move(planes));
}

size_t tile_writer::object_pool(double lon, double lat) {
    const auto cell = [](double at, int from) {
        return std::clamp(static_cast<int>(floor((at - from) * eighths)), 0, eighths - 1);
    };
    const std::pair<int, int> place = {cell(lon, lon_), cell(lat, lat_)};
    const auto known = object_pools_.find(place);
    if (known != object_pools_.end() && pools_[known->second].count() < pool_points_max) return known->second;
    constexpr float side = 1.0f / eighths;
    return object_pools_[place] =
               new_pool({{side, static_cast<float>(lon_) + side * static_cast<float>(place.first)},
                         {side, static_cast<float>(lat_) + side * static_cast<float>(place.second)},
                         {360.0f, 0.0f}});
}

uint16_t tile_writer::store(size_t pool, const std::vector<double>& values) {
    pool_16& to = pools_[pool];
    const size_t point = to.count();
    for (size_t plane = 0; plane < values.size(); ++plane)
        to.raw.push_back(raw_16(values[plane], to.planes[plane].scale, to.planes[plane].offset));
    return static_cast<uint16_t>(point);
}

// -- what is asked for

// Numbers without slack must come back as they are.
told_row tile_writer::row_of(told what, numbers values, numbers slack) {
    told_row row{what, values.size(), {}, {}};
    std::copy(values.begin(), values.end(), row.values.begin());
    std::copy(slack.begin(), slack.end(), row.slack.begin());
    return row;
}

void tile_writer::tell_road(told what, const road_point& p, numbers values) {
    constexpr double step = 1.0e-9;  // some steps of 32 bits
    told_row row = row_of(what, {p.lon, p.lat, p.ele}, {step, step, elevations_.scale * step});
    std::copy(values.begin(), values.end(), row.values.begin() + 3);
    row.count += values.size();
    told_roads_.push_back(row);
}

// -- commands

void tile_writer::select_pool(size_t pool) {
    if (selected_pool_ == static_cast<long>(pool)) return;
    selected_pool_ = static_cast<long>(pool);
    put_8(commands_, dsf_cmd_pool);
    put_16(commands_, static_cast<unsigned>(pool));
}

void tile_writer::select_definition(unsigned index) {
    if (selected_definition_ == static_cast<long>(index)) return;
    selected_definition_ = static_cast<long>(index);
    put_8(commands_, dsf_cmd_definition_16);
    put_16(commands_, index);
}

void tile_writer::begin_patch(unsigned terrain, unsigned char flags, double lod_near, double lod_far,
                              bool with_st) {
    patch_depth_ = with_st ? 7 : 5;
    select_definition(terrain);
    select_pool(pool_with_room(patch_depth_, 1));  // gives the patch its depth
    put_8(commands_, dsf_cmd_patch_flags_lod);
    put_8(commands_, flags);
    put_float(commands_, lod_near);
    put_float(commands_, lod_far);
    tell(told::patch, {1.0 * terrain, 1.0 * flags, lod_near, lod_far, 1.0 * patch_depth_});
}

void tile_writer::primitive(int range_command, const std::vector<tile_point>& points) {
    if (points.size() < 3) return;
    if (points.size() > pool_points_max) {
        fault_ = "a primitive has more points than a pool";
        return;
    }
    const size_t pool = pool_with_room(patch_depth_, points.size());
    select_pool(pool);
    const int type = range_command == dsf_cmd_triangles_range ? dsf_triangles
                     : range_command == dsf_cmd_fan_range     ? dsf_fan
                                                              : dsf_strip;
    tell(told::primitive, {1.0 * type});
    const double place = half_step(1.0), normal = half_step(2.0);
    uint16_t first = 0;
    for (size_t n = 0; n < points.size(); ++n) {
        const tile_point& p = points[n];
        std::vector<double> values = {p.lon, p.lat, p.ele, p.nx, p.nz};
        if (patch_depth_ == 7) values.insert(values.end(), {p.s, p.t});
        const uint16_t at = store(pool, values);
        if (n == 0) first = at;
        told_row row =
            row_of(told::vertex, {}, {place, place, elevation_slack(), normal, normal, place, place});
        row.count = values.size();
        std::copy(values.begin(), values.end(), row.values.begin());
        told_.push_back(row);
    }
    put_8(commands_, static_cast<unsigned>(range_command));
    put_16(commands_, first);
    put_16(commands_, first + static_cast<unsigned>(points.size()));
}

void tile_writer::triangles(const std::vector<tile_point>& points) {
    primitive(dsf_cmd_triangles_range, points);
}
void tile_writer::strip(const std::vector<tile_point>& points) { primitive(dsf_cmd_strip_range, points); }
void tile_writer::fan(const std::vector<tile_point>& points) { primitive(dsf_cmd_fan_range, points); }

void tile_writer::place(unsigned object, double lon, double lat, double heading) {
    const size_t pool = object_pool(lon, lat);
    const double turned = heading - 360.0 * floor(heading / 360.0);
    const double place = half_step(1.0 / eighths);
    const told_row meant =
        row_of(told::object, {1.0 * object, lon, lat, turned}, {0.0, place, place, half_step(360.0)});
    placed_.push_back({object, pool, store(pool, {lon, lat, turned}), meant});
}

void tile_writer::add_polygon(unsigned polygon, uint16_t parameter, const std::vector<winding>& windings) {
    size_t points = 0;
    for (const winding& w : windings) points += w.size();
    if (points == 0 || points > pool_points_max || windings.size() > 255) {
        fault_ = "a polygon has no point or too many";
        return;
    }
    const size_t pool = pool_with_room(dsf_planes_polygon, points);
    select_definition(polygon);
    select_pool(pool);
    put_8(commands_, dsf_cmd_nested_polygon_range);
    put_16(commands_, parameter);
    put_8(commands_, static_cast<unsigned>(windings.size()));
    tell(told::polygon, {1.0 * polygon, 1.0 * parameter});
    unsigned end = static_cast<unsigned>(pools_[pool].count());
    put_16(commands_, end);
    for (const winding& w : windings) {
        tell(told::winding, {});
        for (const tile_point& p : w) {
            store(pool, {p.lon, p.lat});
            tell(told::corner, {p.lon, p.lat}, {half_step(1.0), half_step(1.0)});
        }
        put_16(commands_, end += static_cast<unsigned>(w.size()));
    }
}

void tile_writer::add_road(unsigned network, uint8_t subtype, const std::vector<road_point>& chain) {
    if (chain.size() < 2 || chain.size() > 255 || chain.front().node == 0 || chain.back().node == 0) {
        fault_ = "a road does not lead from junction to junction";
        return;
    }
    put_8(road_commands_, dsf_cmd_definition_16);
    put_16(road_commands_, network);
    put_8(road_commands_, dsf_cmd_road_subtype);
    put_8(road_commands_, subtype);
    put_8(road_commands_, dsf_cmd_chain_32);
    put_8(road_commands_, static_cast<unsigned>(chain.size()));
    const auto raw = [](double value, double scale, double offset) {
        return static_cast<uint32_t>(
            std::clamp(round((value - offset) / scale * raw_max_32), 0.0, raw_max_32));
    };
    for (const road_point& p : chain) {
        if (p.node == 0)
            tell_road(told::shape, p, {});
        else if (&p != &chain.front())
            tell_road(told::road_end, p, {1.0 * p.node});
        if (p.node != 0 && &p != &chain.back())  // a junction on the way ends one segment and begins another
            tell_road(told::road, p, {1.0 * p.node, 1.0 * network, 1.0 * subtype});
        put_32(road_commands_, static_cast<uint32_t>(roads_.size() / dsf_planes_network));
        roads_.insert(roads_.end(), {raw(p.lon, 1.0, lon_), raw(p.lat, 1.0, lat_),
                                     raw(p.ele, elevations_.scale, elevations_.offset), p.node});
    }
}

// By pool and kind, so that they are named once.
std::vector<const tile_writer::placed*> tile_writer::objects_in_order() const {
    std::vector<const placed*> sorted;
    for (const placed& p : placed_) sorted.push_back(&p);
    std::stable_sort(sorted.begin(), sorted.end(), [](const placed* a, const placed* b) {
        return std::pair(a->pool, a->object) < std::pair(b->pool, b->object);
    });
    return sorted;
}

std::vector<const told_row*> tile_writer::all_told() const {
    std::vector<const told_row*> all;
    for (const told_row& row : told_) all.push_back(&row);
    for (const placed* p : objects_in_order()) all.push_back(&p->meant);
    for (const told_row& row : told_roads_) all.push_back(&row);
    return all;
}

// Terrain and polygons, then objects, then roads from the 32-bit pool.
std::vector<uint8_t> tile_writer::all_commands() const {
    std::vector<uint8_t> all = commands_;
    long pool = -1, object = -1;
    for (const placed* p : objects_in_order()) {
        if (pool != static_cast<long>(p->pool)) {
            put_8(all, dsf_cmd_pool);
            put_16(all, static_cast<unsigned>(p->pool));
        }
        if (object != static_cast<long>(p->object)) {
            put_8(all, dsf_cmd_definition_16);
            put_16(all, p->object);
        }
        pool = static_cast<long>(p->pool);
        object = static_cast<long>(p->object);
        put_8(all, dsf_cmd_object);
        put_16(all, static_cast<unsigned>(p->point));
    }
    if (roads_.empty()) return all;
    put_8(all, dsf_cmd_pool);
    put_16(all, 0);
    put_8(all, dsf_cmd_junction_offset);
    put_32(all, 0);
    all.insert(all.end(), road_commands_.begin(), road_commands_.end());
    return all;
}

// -- the file

namespace {
void write_strings(FILE* file, int id, const std::vector<std::string>& strings, bool* failed) {
    const StAtomWriter atom(file, id, failed);
    for (const std::string& s : strings)
        if (fwrite(s.c_str(), 1, s.size() + 1, file) != s.size() + 1) *failed = true;
}

void expect(bool good, bool* failed) {
    if (!good) *failed = true;
}
}  // namespace

void tile_writer::write_file(FILE* file, bool* failed) const {
    expect(fwrite(dsf_cookie, 1, dsf_cookie_size, file) == dsf_cookie_size && WriteSInt32(file, dsf_version),
           failed);
    {
        const StAtomWriter head(file, dsf_HEAD, failed);
        write_strings(file, dsf_PROP,
                      {"sim/west", std::to_string(lon_), "sim/east", std::to_string(lon_ + 1), "sim/south",
                       std::to_string(lat_), "sim/north", std::to_string(lat_ + 1)},
                      failed);
    }
    {
        const StAtomWriter defn(file, dsf_DEFN, failed);
        write_strings(file, dsf_TERT, terrain_, failed);
        write_strings(file, dsf_OBJT, objects_, failed);
        write_strings(file, dsf_POLY, polygons_, failed);
        write_strings(file, dsf_NETW, networks_, failed);
    }
    {
        constexpr int run_length_differenced = 3, interleaved = 1;
        const StAtomWriter geod(file, dsf_GEOD, failed);
        for (const pool_16& pool : pools_) {
            const StAtomWriter atom(file, dsf_POOL, failed);
            expect(WritePlanarNumericAtomShort(file, static_cast<int>(pool.planes.size()),
                                               static_cast<int>(pool.count()), run_length_differenced,
                                               interleaved, reinterpret_cast<const short*>(pool.raw.data())),
                   failed);
        }
        for (const pool_16& pool : pools_) {
            const StAtomWriter atom(file, dsf_SCAL, failed);
            for (const scale_pair& plane : pool.planes)
                expect(WriteFloat32(file, plane.scale) && WriteFloat32(file, plane.offset), failed);
        }
        if (!roads_.empty()) {
            {
                const StAtomWriter atom(file, dsf_PO32, failed);
                expect(WritePlanarNumericAtomInt(
                           file, dsf_planes_network, static_cast<int>(roads_.size() / dsf_planes_network),
                           run_length_differenced, interleaved, reinterpret_cast<const int*>(roads_.data())),
                       failed);
            }
            const StAtomWriter atom(file, dsf_SC32, failed);
            for (const float v :
                 {1.0f, static_cast<float>(lon_), 1.0f, static_cast<float>(lat_), elevations_.scale,
                  elevations_.offset, 0.0f, 0.0f})  // scale 0: node numbers are raw
                expect(WriteFloat32(file, v), failed);
        }
    }
    {
        const StAtomWriter cmds(file, dsf_CMDS, failed);
        const std::vector<uint8_t> all = all_commands();
        expect(fwrite(all.data(), 1, all.size(), file) == all.size(), failed);
    }
    const DSFFooter_t footer{};
    expect(fwrite(&footer, 1, sizeof footer, file) == sizeof footer, failed);
}

// An empty file that this program alone writes: another that makes the same tile waits until this one has
// closed it. By then it may have its final name, and is not to be touched.
static FILE* open_alone(const std::string& path) {
    for (;;) {
        const int handle = open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
        if (handle < 0) return nullptr;
        struct stat opened, named;
        const bool locked = flock(handle, LOCK_EX) == 0;
        if (locked && fstat(handle, &opened) == 0 && stat(path.c_str(), &named) == 0 &&
            opened.st_ino == named.st_ino && opened.st_dev == named.st_dev && ftruncate(handle, 0) == 0)
            return fdopen(handle, "wb");
        close(handle);
        if (!locked) return nullptr;
    }
}

bool tile_writer::write(const std::string& path, std::string* error, tile_edges* edges) const {
    if (!fault_.empty()) {
        *error = fault_;
        return false;
    }
    const std::string beside = path + ".new";
    errno = 0;
    FILE* const file = open_alone(beside);
    bool failed = !file;
    if (file) {
        write_file(file, &failed);
        failed |= fflush(file) != 0 || ferror(file) != 0 || fsync(fileno(file)) != 0;
    }
    if (failed) *error = "cannot write " + beside + (errno ? std::string(": ") + strerror(errno) : "");
    if (!failed) *error = check_tile(beside, *this, edges);
    if (error->empty() && rename(beside.c_str(), path.c_str()) != 0) *error = "cannot rename " + beside;
    if (!error->empty() && file) unlink(beside.c_str());
    if (file) fclose(file);
    return error->empty();
}
