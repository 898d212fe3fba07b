// Names and numbers of the tile format, shared by the decoder and the programs that write tiles.
#pragma once
#include <cstdint>

// A file is this header, atoms, and the footer, whose bytes no reader looks at.
constexpr char dsf_cookie[] = "TARVEDSF";
constexpr int dsf_cookie_size = 8;  // no terminator
constexpr int32_t dsf_version = 1;

#pragma pack(push, 1)
struct DSFHeader_t {
    char cookie[dsf_cookie_size];
    int32_t version;
};
struct DSFFooter_t {
    char signature[16];
};
#pragma pack(pop)
static_assert(sizeof(DSFHeader_t) == 12 && sizeof(DSFFooter_t) == 16);

// Atoms. The second level stands inside HEAD, DEFN and GEOD.
enum dsf_atom_id : uint32_t {
    dsf_HEAD = 0x48454144,
    dsf_PROP = 0x50524F50,  // strings: name, value, name, value ...
    dsf_DEFN = 0x4445464E,
    dsf_TERT = 0x54455254,  // strings: terrain definitions
    dsf_OBJT = 0x4F424A54,  // strings: object definitions
    dsf_POLY = 0x504F4C59,  // strings: polygon definitions
    dsf_NETW = 0x4E455457,  // strings: network definitions
    dsf_GEOD = 0x47454F44,
    dsf_POOL = 0x504F4F4C,  // 16-bit points, planar
    dsf_SCAL = 0x5343414C,  // scale and offset of each plane of the POOL of the same ordinal
    dsf_PO32 = 0x504F3332,  // 32-bit points
    dsf_SC32 = 0x53433332,
    dsf_CMDS = 0x434D4453,
};

// Commands, one byte each, with their operands behind them. A range is half open: first, and one behind the
// last. "cross" forms name a pool with every point.
enum dsf_command : int {
    dsf_cmd_reserved = 0,
    dsf_cmd_pool = 1,
    dsf_cmd_junction_offset = 2,
    dsf_cmd_definition_8 = 3,
    dsf_cmd_definition_16 = 4,
    dsf_cmd_definition_32 = 5,
    dsf_cmd_road_subtype = 6,
    dsf_cmd_object = 7,
    dsf_cmd_object_range = 8,
    dsf_cmd_chain = 9,
    dsf_cmd_chain_range = 10,
    dsf_cmd_chain_32 = 11,
    dsf_cmd_polygon = 12,
    dsf_cmd_polygon_range = 13,
    dsf_cmd_nested_polygon = 14,
    dsf_cmd_nested_polygon_range = 15,
    dsf_cmd_patch = 16,
    dsf_cmd_patch_flags = 17,
    dsf_cmd_patch_flags_lod = 18,
    dsf_cmd_texture_projection = 19,
    dsf_cmd_mask_projection = 20,
    dsf_cmd_none_21 = 21,
    dsf_cmd_none_22 = 22,
    dsf_cmd_triangles = 23,
    dsf_cmd_triangles_cross = 24,
    dsf_cmd_triangles_range = 25,
    dsf_cmd_strip = 26,
    dsf_cmd_strip_cross = 27,
    dsf_cmd_strip_range = 28,
    dsf_cmd_fan = 29,
    dsf_cmd_fan_cross = 30,
    dsf_cmd_fan_range = 31,
    dsf_cmd_comment_8 = 32,
    dsf_cmd_comment_16 = 33,
    dsf_cmd_comment_32 = 34,
};

enum dsf_primitive : int { dsf_triangles = 0, dsf_strip = 1, dsf_fan = 2 };

// Planes of a point that each kind reads: longitude, latitude, and then
constexpr int dsf_planes_polygon = 2;
constexpr int dsf_planes_object = 3;   // heading
constexpr int dsf_planes_network = 4;  // elevation, node identifier
constexpr int dsf_planes_curved = 7;   // and the three of the curve's control point; this many make a curve

// A raw value of all ones decodes to offset + scale.
constexpr double dsf_unit_16 = 1.0 / 65535.0, dsf_unit_32 = 1.0 / 4294967295.0;
