// Commands of a tile, one after the other.
// A command whose operands are cut off by the end of the stream tells nothing, or ends what it had begun; one
// that names a pool, point or plane that is not there breaks the read off.
#include "scenery/decode/dsf_commands.h"

#include <array>
#include <cstdio>

namespace {
constexpr unsigned unset = 0xFFFFFFFFu;
constexpr int bad_index = dsf_ErrMisformattedCommandAtom;
constexpr int too_many = dsf_ErrOutOfMemory;
constexpr size_t planes_max = 255;  // a pool counts its planes in a byte

// A network point, decoded.
struct junction {
    double coordinates[6];
    unsigned node;  // 0: a shape point
};

class command_run {
public:
    command_run(const XAtomPackedData& commands, const dsf_pools& pools, const DSFCallbacks_t& callbacks,
                dsf_count* count, void* ref)
        : cmds_(commands), pools_(pools), tell_(callbacks), count_(*count), ref_(ref) {
        cmds_.Reset();
    }
    int run();

private:
    int step(int command);

    // False, with the cursor behind the end, when so many bytes do not follow.
    bool has(size_t bytes) {
        if (!cmds_.Overrun() && cmds_.Remaining() >= bytes) return true;
        cmds_.Advance(static_cast<int64_t>(bytes));
        return false;
    }
    template <class raw>
    const dsf_pool<raw>* pool_at(const std::vector<dsf_pool<raw>>& pools, size_t index, size_t planes) const {
        return index < pools.size() && pools[index].depth >= planes ? &pools[index] : nullptr;
    }
    const dsf_pool<uint16_t>* pool_of_16(size_t planes) const {
        return pool_at(pools_.of_16, current_pool_, planes);
    }

    // Vertices have as many coordinates as their patch was told, or more.
    const dsf_pool<uint16_t>* pool_of_vertices() const {
        return pool_of_16(patch_depth_ > 0 ? patch_depth_ : 1);
    }

    int add_object(size_t first, size_t last);
    int object_range();

    int junction_at(const dsf_pool<uint32_t>& pool, uint32_t point, bool is_curved, junction* to) const;
    template <class next_point>
    int chain(size_t count, next_point next);
    template <int width>
    int chain_list(uint32_t offset);
    int chain_range();

    int begin_polygon(unsigned short parameter);
    int begin_winding();
    int add_polygon_point(const dsf_pool<uint16_t>& pool, size_t point);
    int winding_list(const dsf_pool<uint16_t>& pool);
    int winding_range(const dsf_pool<uint16_t>& pool, size_t first, size_t last);
    int polygon();
    int polygon_range();
    int nested_polygon();
    int nested_polygon_range();

    void end_patch();
    int begin_patch();
    void read_projection(std::array<float, 6>* to);

    int begin_primitive(int type, size_t vertices);
    int add_vertex(const dsf_pool<uint16_t>& pool, size_t point, size_t width);
    int primitive(int type);
    int primitive_cross(int type);
    int primitive_range(int type);

    XAtomPackedData cmds_;
    const dsf_pools& pools_;
    const DSFCallbacks_t& tell_;
    dsf_count& count_;
    void* ref_;
    double vertex_[planes_max]{};

    // What commands set for those behind them. The pool's number counts in the list that a command reads.
    uint16_t current_pool_ = 0xFFFF;
    // The offset wraps: unset, it leads from point 1 on to the pool's beginning.
    uint32_t junction_offset_ = unset, definition_ = unset, road_subtype_ = unset;
    uint8_t patch_flags_ = 255;
    double lod_near_ = -1.0, lod_far_ = -1.0;
    std::array<float, 6> texture_projection_{}, mask_projection_{};
    size_t patch_depth_ = 0;  // 0 while none is open
};

size_t range_size(size_t first, size_t last) { return last > first ? last - first : 0; }

int command_run::add_object(size_t first, size_t last) {
    const dsf_pool<uint16_t>* pool = pool_of_16(dsf_planes_object);
    if (!pool) return bad_index;
    if (!count_.add(dsf_made_objects, range_size(first, last))) return too_many;
    double at[dsf_planes_object];
    for (size_t point = first; point < last; ++point) {
        if (point >= pool->count) return bad_index;
        pool->decode(point, 0, dsf_planes_object, at);
        tell_.AddObject_f(definition_, at, at[2], ref_);
    }
    return dsf_ErrOK;
}

int command_run::object_range() {
    if (!has(4)) return dsf_ErrOK;
    const size_t first = cmds_.ReadUInt16(), last = cmds_.ReadUInt16();
    return add_object(first, last);
}

// A node's identifier is a coordinate like the others, cut toward zero.
unsigned node_with_coordinate(double value) {
    if (value <= 0.0) return 0;
    return value >= unset ? unset : static_cast<unsigned>(value);
}

int command_run::junction_at(const dsf_pool<uint32_t>& pool, uint32_t point, bool is_curved,
                             junction* to) const {
    if (point >= pool.count) return bad_index;
    double node;
    pool.decode(point, 0, 3, to->coordinates);
    pool.decode(point, 3, 1, &node);
    if (is_curved) pool.decode(point, 4, 3, to->coordinates + 3);
    to->node = node_with_coordinate(node);
    return dsf_ErrOK;
}

// An inner junction ends one segment and begins the next.
template <class next_point>
int command_run::chain(size_t count, next_point next) {
    const dsf_pool<uint32_t>* pool = pool_at(pools_.of_32, current_pool_, dsf_planes_network);
    if (!pool) return bad_index;
    const bool is_curved = pool->depth >= dsf_planes_curved;
    if (!count_.add(dsf_made_junctions, count)) return too_many;
    junction at{};
    for (size_t i = 0; i < count; ++i) {
        if (const int error = junction_at(*pool, next(), is_curved, &at)) return error;
        if (at.node == 0) {
            tell_.AddSegmentShapePoint_f(at.coordinates, is_curved, ref_);
            continue;
        }
        if (i > 0) tell_.EndSegment_f(at.node, at.coordinates, is_curved, ref_);
        if (i + 1 < count)
            tell_.BeginSegment_f(definition_, road_subtype_, at.node, at.coordinates, is_curved, ref_);
    }
    return dsf_ErrOK;
}

template <int width>
int command_run::chain_list(uint32_t offset) {
    const size_t count = cmds_.ReadUInt8();
    if (!has(count * width)) return dsf_ErrOK;
    return chain(count, [this, offset]() -> uint32_t {
        return offset + (width == 2 ? cmds_.ReadUInt16() : cmds_.ReadUInt32());
    });
}

int command_run::chain_range() {
    if (!has(4)) return dsf_ErrOK;
    const size_t first = cmds_.ReadUInt16(), last = cmds_.ReadUInt16();
    uint32_t point = junction_offset_ + static_cast<uint32_t>(first);
    return chain(range_size(first, last), [&point] { return point++; });
}

int command_run::add_polygon_point(const dsf_pool<uint16_t>& pool, size_t point) {
    if (point >= pool.count) return bad_index;
    double at[dsf_planes_polygon];
    pool.decode(point, 0, dsf_planes_polygon, at);
    tell_.AddPolygonPoint_f(at, ref_);
    return dsf_ErrOK;
}

int command_run::begin_polygon(unsigned short parameter) {
    if (!count_.add(dsf_made_windings, 1)) return too_many;
    tell_.BeginPolygon_f(definition_, parameter, ref_);
    return dsf_ErrOK;
}

int command_run::begin_winding() {
    if (!count_.add(dsf_made_windings, 1)) return too_many;
    tell_.BeginPolygonWinding_f(ref_);
    return dsf_ErrOK;
}

int command_run::winding_list(const dsf_pool<uint16_t>& pool) {
    if (const int error = begin_winding()) return error;
    const size_t count = cmds_.ReadUInt8();
    if (!count_.add(dsf_made_corners, count)) return too_many;
    if (has(count * 2))
        for (size_t i = 0; i < count; ++i)
            if (const int error = add_polygon_point(pool, cmds_.ReadUInt16())) return error;
    tell_.EndPolygonWinding_f(ref_);
    return dsf_ErrOK;
}

int command_run::winding_range(const dsf_pool<uint16_t>& pool, size_t first, size_t last) {
    if (!count_.add(dsf_made_corners, range_size(first, last))) return too_many;
    for (size_t point = first; point < last; ++point)
        if (const int error = add_polygon_point(pool, point)) return error;
    tell_.EndPolygonWinding_f(ref_);
    return dsf_ErrOK;
}

int command_run::polygon() {
    if (!has(3)) return dsf_ErrOK;
    const unsigned short parameter = cmds_.ReadUInt16();
    const dsf_pool<uint16_t>* pool = pool_of_16(dsf_planes_polygon);
    if (!pool) return bad_index;
    if (const int error = begin_polygon(parameter)) return error;
    if (const int error = winding_list(*pool)) return error;
    tell_.EndPolygon_f(ref_);
    return dsf_ErrOK;
}

int command_run::polygon_range() {
    if (!has(6)) return dsf_ErrOK;
    const unsigned short parameter = cmds_.ReadUInt16();
    const size_t first = cmds_.ReadUInt16(), last = cmds_.ReadUInt16();
    const dsf_pool<uint16_t>* pool = pool_of_16(dsf_planes_polygon);
    if (!pool) return bad_index;
    if (const int error = begin_polygon(parameter)) return error;
    if (const int error = begin_winding()) return error;
    if (const int error = winding_range(*pool, first, last)) return error;
    tell_.EndPolygon_f(ref_);
    return dsf_ErrOK;
}

int command_run::nested_polygon() {
    if (!has(3)) return dsf_ErrOK;
    const unsigned short parameter = cmds_.ReadUInt16();
    const int windings = cmds_.ReadUInt8();
    const dsf_pool<uint16_t>* pool = pool_of_16(dsf_planes_polygon);
    if (!pool) return bad_index;
    if (const int error = begin_polygon(parameter)) return error;
    for (int i = 0; i < windings && has(1); ++i)
        if (const int error = winding_list(*pool)) return error;
    tell_.EndPolygon_f(ref_);
    return dsf_ErrOK;
}

int command_run::nested_polygon_range() {
    if (!has(5)) return dsf_ErrOK;
    const unsigned short parameter = cmds_.ReadUInt16();
    const int windings = cmds_.ReadUInt8();
    size_t first = cmds_.ReadUInt16();
    const dsf_pool<uint16_t>* pool = pool_of_16(dsf_planes_polygon);
    if (!pool) return bad_index;
    if (const int error = begin_polygon(parameter)) return error;
    for (int i = 0; i < windings && has(2); ++i) {
        if (const int error = begin_winding()) return error;
        const size_t last = cmds_.ReadUInt16();
        if (const int error = winding_range(*pool, first, last)) return error;
        first = last;
    }
    tell_.EndPolygon_f(ref_);
    return dsf_ErrOK;
}

void command_run::end_patch() {
    if (patch_depth_ > 0) tell_.EndPatch_f(ref_);
    patch_depth_ = 0;
}

int command_run::begin_patch() {
    const dsf_pool<uint16_t>* pool = pool_of_16(1);
    if (!pool) return bad_index;
    if (!count_.add(dsf_made_patches, 1)) return too_many;
    tell_.BeginPatch_f(definition_, lod_near_, lod_far_, patch_flags_, texture_projection_.data(),
                       mask_projection_.data(), static_cast<int>(pool->depth), ref_);
    patch_depth_ = pool->depth;
    return dsf_ErrOK;
}

void command_run::read_projection(std::array<float, 6>* to) {
    if (!has(6 * sizeof(float))) return;
    for (float& value : *to) value = cmds_.ReadFloat32();
}

int command_run::begin_primitive(int type, size_t vertices) {
    if (!count_.add(dsf_made_primitives, 1) || !count_.add(dsf_made_vertices, vertices)) return too_many;
    tell_.BeginPrimitive_f(type, ref_);
    return dsf_ErrOK;
}

int command_run::add_vertex(const dsf_pool<uint16_t>& pool, size_t point, size_t width) {
    if (point >= pool.count) return bad_index;
    pool.decode(point, 0, width, vertex_);
    tell_.AddPatchVertex_f(vertex_, ref_);
    return dsf_ErrOK;
}

int command_run::primitive(int type) {
    const size_t count = cmds_.ReadUInt8();
    if (!has(count * 2)) return dsf_ErrOK;
    const dsf_pool<uint16_t>* pool = pool_of_vertices();
    if (!pool) return bad_index;
    if (const int error = begin_primitive(type, count)) return error;
    for (size_t i = 0; i < count; ++i)
        if (const int error = add_vertex(*pool, cmds_.ReadUInt16(), pool->depth)) return error;
    tell_.EndPrimitive_f(ref_);
    return dsf_ErrOK;
}

// The current pool gives the width, each vertex names a pool that has at least that many planes.
int command_run::primitive_cross(int type) {
    const size_t count = cmds_.ReadUInt8();
    if (!has(count * 4)) return dsf_ErrOK;
    const dsf_pool<uint16_t>* current = pool_of_vertices();
    if (!current) return bad_index;
    if (const int error = begin_primitive(type, count)) return error;
    for (size_t i = 0; i < count; ++i) {
        const dsf_pool<uint16_t>* pool = pool_at(pools_.of_16, cmds_.ReadUInt16(), current->depth);
        if (!pool) return bad_index;
        if (const int error = add_vertex(*pool, cmds_.ReadUInt16(), current->depth)) return error;
    }
    tell_.EndPrimitive_f(ref_);
    return dsf_ErrOK;
}

int command_run::primitive_range(int type) {
    if (!has(4)) return dsf_ErrOK;
    const size_t first = cmds_.ReadUInt16(), last = cmds_.ReadUInt16();
    const dsf_pool<uint16_t>* pool = pool_of_vertices();
    if (!pool) return bad_index;
    if (const int error = begin_primitive(type, range_size(first, last))) return error;
    for (size_t point = first; point < last; ++point)
        if (const int error = add_vertex(*pool, point, pool->depth)) return error;
    tell_.EndPrimitive_f(ref_);
    return dsf_ErrOK;
}

int command_run::step(int command) {
    switch (command) {
        case dsf_cmd_reserved:
            printf("DSF ERROR: We hit the reserved command.\n");
            return dsf_ErrBadCommand;
        case dsf_cmd_pool:
            current_pool_ = cmds_.ReadUInt16();
            break;
        case dsf_cmd_junction_offset:
            junction_offset_ = cmds_.ReadUInt32();
            break;
        case dsf_cmd_definition_8:
            definition_ = cmds_.ReadUInt8();
            break;
        case dsf_cmd_definition_16:
            definition_ = cmds_.ReadUInt16();
            break;
        case dsf_cmd_definition_32:
            definition_ = cmds_.ReadUInt32();
            break;
        case dsf_cmd_road_subtype:
            road_subtype_ = cmds_.ReadUInt8();
            break;
        case dsf_cmd_object: {
            if (!has(2)) break;
            const size_t point = cmds_.ReadUInt16();
            return add_object(point, point + 1);
        }
        case dsf_cmd_object_range:
            return object_range();
        case dsf_cmd_chain:
            return chain_list<2>(junction_offset_);
        case dsf_cmd_chain_range:
            return chain_range();
        case dsf_cmd_chain_32:
            return chain_list<4>(0);
        case dsf_cmd_polygon:
            return polygon();
        case dsf_cmd_polygon_range:
            return polygon_range();
        case dsf_cmd_nested_polygon:
            return nested_polygon();
        case dsf_cmd_nested_polygon_range:
            return nested_polygon_range();
        case dsf_cmd_patch:
            end_patch();
            return begin_patch();
        case dsf_cmd_patch_flags:
            end_patch();
            if (!has(1)) break;
            patch_flags_ = cmds_.ReadUInt8();
            return begin_patch();
        case dsf_cmd_patch_flags_lod:
            end_patch();
            if (!has(9)) break;
            patch_flags_ = cmds_.ReadUInt8();
            lod_near_ = cmds_.ReadFloat32();
            lod_far_ = cmds_.ReadFloat32();
            return begin_patch();
        case dsf_cmd_texture_projection:
            read_projection(&texture_projection_);
            break;
        case dsf_cmd_mask_projection:
            read_projection(&mask_projection_);
            break;
        case dsf_cmd_none_21:
        case dsf_cmd_none_22:
            break;
        case dsf_cmd_triangles:
        case dsf_cmd_strip:
        case dsf_cmd_fan:
            return primitive((command - dsf_cmd_triangles) / 3);
        case dsf_cmd_triangles_cross:
        case dsf_cmd_strip_cross:
        case dsf_cmd_fan_cross:
            return primitive_cross((command - dsf_cmd_triangles) / 3);
        case dsf_cmd_triangles_range:
        case dsf_cmd_strip_range:
        case dsf_cmd_fan_range:
            return primitive_range((command - dsf_cmd_triangles) / 3);
        case dsf_cmd_comment_8:
            cmds_.Advance(cmds_.ReadUInt8());
            break;
        case dsf_cmd_comment_16:
            cmds_.Advance(cmds_.ReadUInt16());
            break;
        case dsf_cmd_comment_32:
            cmds_.Advance(cmds_.ReadUInt32());
            break;
        default:
            printf("DSF ERROR: We have an unknown command 0x%02X\n", static_cast<unsigned>(command));
            return dsf_ErrBadCommand;
    }
    return dsf_ErrOK;
}

int command_run::run() {
    while (!cmds_.Done()) {
        const size_t at = cmds_.position;
        const int command = cmds_.ReadUInt8();
        const int error = step(command);
        if (error == bad_index)
            printf(
                "DSF ERROR: We have a command 0x%02X at byte %zu of the command atom that uses a pool or "
                "point that is not there.\n",
                static_cast<unsigned>(command), at);
        if (error) return error;
    }
    end_patch();
    if (!cmds_.Overrun()) return dsf_ErrOK;
    printf("DSF ERROR: We overran the command atom.\n");
    return dsf_ErrMisformattedCommandAtom;
}
}  // namespace

bool dsf_count::add(dsf_made kind, size_t count) {
    made[kind] += static_cast<long>(count);
    if (made[kind] <= dsf_limits[kind].most) return true;
    printf("DSF ERROR: We have more %s than the %ld a tile may have.\n", dsf_limits[kind].what,
           dsf_limits[kind].most);
    return false;
}

int run_dsf_commands(const XAtomPackedData& commands, const dsf_pools& pools, const DSFCallbacks_t& callbacks,
                     dsf_count* count, void* ref) {
    return command_run(commands, pools, callbacks, count, ref).run();
}
