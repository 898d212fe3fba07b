// Tiles: the first byte tells a whole file from atoms behind a good header, and from the contents of each
// atom of a tree that is whole. Or the commands alone, over good pools of several depths, the first of each
// kind larger than a byte can count. The callbacks hold the decoder to their order and to numbers that can be
// used.

#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_format.h"
#include "support.h"

namespace {
using fuzzing::input;
using fuzzing::must;

// Thrown when an input has told more than there is time for: a few bytes can ask for 65535 points.
struct told_enough {};

struct tile_state {
    bool in_patch = false, in_primitive = false, in_polygon = false, in_winding = false, has_drawn = false;
    int depth = 0, points = 0;
    size_t characters = 0;
};

tile_state& self(void* ref) { return *static_cast<tile_state*>(ref); }

void enter(void* ref, bool tile_state::*part) {
    must(!(self(ref).*part));
    self(ref).*part = self(ref).has_drawn = true;
}
void leave(void* ref, bool tile_state::*part) {
    must(self(ref).*part);
    self(ref).*part = false;
}
void take(void* ref, const double* c, int count) {
    for (int i = 0; i < count; ++i) must(std::isfinite(c[i]));
    self(ref).has_drawn = true;
    if (++self(ref).points > 20000) throw told_enough();
}
void take_node(unsigned node, void* ref, const double* c, bool curved) {
    must(node != 0);
    take(ref, c, curved ? 6 : 3);
}
void take_name(const char* name, void* ref) {
    self(ref).characters += strlen(name);
    must(!self(ref).has_drawn);
}

DSFCallbacks_t callbacks() {
    DSFCallbacks_t t;
    t.AcceptTerrainDef_f = t.AcceptObjectDef_f = t.AcceptPolygonDef_f = t.AcceptNetworkDef_f = take_name;
    t.AcceptProperty_f = [](const char* name, const char* value, void* r) {
        take_name(name, r);
        take_name(value, r);
    };
    t.BeginPatch_f = [](unsigned, double, double, unsigned char, float* st, float* mask, int depth, void* r) {
        float projections[12];
        memcpy(projections, st, 24);
        memcpy(projections + 6, mask, 24);
        must(depth > 0 && depth < 256);
        enter(r, &tile_state::in_patch);
        self(r).depth = depth;
    };
    t.EndPatch_f = [](void* r) { leave(r, &tile_state::in_patch); };
    t.BeginPrimitive_f = [](int type, void* r) {
        must(type >= 0 && type < 3);
        enter(r, &tile_state::in_primitive);
    };
    t.AddPatchVertex_f = [](double* c, void* r) {
        must(self(r).in_primitive);
        take(r, c, self(r).in_patch ? self(r).depth : 1);
    };
    t.EndPrimitive_f = [](void* r) { leave(r, &tile_state::in_primitive); };
    t.AddObject_f = [](unsigned, double* c, double psi, void* r) {
        take(r, c, 2);
        take(r, &psi, 1);
    };
    t.BeginSegment_f = [](unsigned, unsigned, unsigned node, double* c, bool curved, void* r) {
        take_node(node, r, c, curved);
    };
    t.AddSegmentShapePoint_f = [](double* c, bool curved, void* r) { take(r, c, curved ? 6 : 3); };
    t.EndSegment_f = [](unsigned node, double* c, bool curved, void* r) { take_node(node, r, c, curved); };
    t.BeginPolygon_f = [](unsigned, unsigned short, void* r) { enter(r, &tile_state::in_polygon); };
    t.BeginPolygonWinding_f = [](void* r) {
        must(self(r).in_polygon);
        enter(r, &tile_state::in_winding);
    };
    t.AddPolygonPoint_f = [](double* c, void* r) {
        must(self(r).in_winding);
        take(r, c, 2);
    };
    t.EndPolygonWinding_f = [](void* r) { leave(r, &tile_state::in_winding); };
    t.EndPolygon_f = [](void* r) { leave(r, &tile_state::in_polygon); };
    return t;
}

// The bytes stand in a heap block of exactly their size. The decoder prints what is wrong, which nobody reads
// here.
void decode(const std::vector<char>& bytes) {
    static const bool is_silent = freopen("/dev/null", "w", stdout) != nullptr;
    must(is_silent);
    const std::vector<char> exact(bytes);
    tile_state state;
    DSFCallbacks_t tell = callbacks();
    try {
        const int error = DSFReadMem(exact.data(), exact.data() + exact.size(), &tell, &state);
        must(error >= 0 && error < dsf_error_DIM && dsfErrorMessages[error]);
        must(error || (!state.in_patch && !state.in_primitive && !state.in_polygon && !state.in_winding));
    } catch (const told_enough&) {
    }
}

// Atoms for inputs that start from something sound.
struct tile_bytes {
    std::vector<char> bytes;

    void add(const void* data, size_t size) {
        const char* first = static_cast<const char*>(data);
        bytes.insert(bytes.end(), first, first + size);
    }
    template <class T>
    void add(T value) {
        add(&value, sizeof value);
    }
    void add_atom(uint32_t id, const std::vector<char>& contents) {
        add(id);
        add(static_cast<uint32_t>(contents.size() + 8));
        add(contents.data(), contents.size());
    }
};

std::vector<char> file_of(const std::vector<char>& atoms) {
    tile_bytes file;
    file.add("TARVEDSF", 8);
    file.add(int32_t{1});
    file.add(atoms.data(), atoms.size());
    file.add("................", 16);
    return file.bytes;
}

// lists: the property and the names of the four kinds.
std::vector<char> tile_of(const std::vector<char> (&lists)[5], const std::vector<char>& pools,
                          const std::vector<char>& commands) {
    static constexpr uint32_t kinds[] = {dsf_TERT, dsf_OBJT, dsf_POLY, dsf_NETW};
    tile_bytes properties, definitions, atoms;
    properties.add_atom(dsf_PROP, lists[0]);
    for (int i = 0; i < 4; ++i) definitions.add_atom(kinds[i], lists[i + 1]);
    atoms.add_atom(dsf_HEAD, properties.bytes);
    atoms.add_atom(dsf_DEFN, definitions.bytes);
    atoms.add_atom(dsf_GEOD, pools);
    atoms.add_atom(dsf_CMDS, commands);
    return file_of(atoms.bytes);
}

// Contents are cut from the input in turn, each behind two bytes that tell how long it is.
std::vector<char> tree(input& in) {
    const auto next = [&] { return in.bytes(in.word() & 0xfff); };
    const std::vector<char> lists[5] = {next(), next(), next(), next(), next()}, commands = next();
    tile_bytes pools;
    while (!in.done())
        for (const uint32_t id : {dsf_POOL, dsf_SCAL, dsf_PO32, dsf_SC32}) pools.add_atom(id, next());
    return tile_of(lists, pools.bytes, commands);
}

template <class raw>
void add_pool(tile_bytes* to, uint32_t id, uint32_t id_scale, int32_t points, uint8_t planes) {
    tile_bytes table, scales;
    table.add(points);
    table.add(planes);
    for (int plane = 0; plane < planes; ++plane) {
        table.add(uint8_t{0});
        // every third point of a chain is a node
        for (int i = 0; i < points; ++i)
            table.add(static_cast<raw>(plane == 3 && i % 3 ? 0 : i * 257 + plane));
        scales.add(plane == 3 ? 0.0f : 1.0f);
        scales.add(static_cast<float>(plane) - 118.0f);
    }
    to->add_atom(id, table.bytes);
    to->add_atom(id_scale, scales.bytes);
}

std::vector<char> good_pools() {
    tile_bytes pools;
    for (const uint8_t planes : {5, 3, 2, 7, 1, 0, 4})
        add_pool<uint16_t>(&pools, dsf_POOL, dsf_SCAL, planes == 5 ? 300 : 10 * planes, planes);
    for (const uint8_t planes : {4, 7, 6, 3})
        add_pool<uint32_t>(&pools, dsf_PO32, dsf_SC32, planes == 4 ? 300 : 10 * planes, planes);
    return pools.bytes;
}
}  // namespace

void fuzz_dsf(input& in) {
    const unsigned kind = in.byte() % 3;
    decode(kind == 0 ? in.bytes() : kind == 1 ? file_of(in.bytes()) : tree(in));
}

void fuzz_dsf_cmds(input& in) {
    static const std::vector<char> pools = good_pools();
    decode(tile_of({}, pools, in.bytes()));
}
