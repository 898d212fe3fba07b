// Pools and scales out of the geodata of a tile.
#include "scenery/decode/dsf_pools.h"

#include <cmath>
#include <cstdio>
#include <new>

#include "scenery/decode/dsf.h"

namespace {
int decompress(const XAtomPlanerNumericTable& table, int planes, int size, uint16_t* to) {
    return table.DecompressShort(planes, size, 1, reinterpret_cast<short*>(to));
}
int decompress(const XAtomPlanerNumericTable& table, int planes, int size, uint32_t* to) {
    return table.DecompressInt(planes, size, 1, reinterpret_cast<int*>(to));
}

// What an atom claims costs nothing until its bytes are known to be able to yield it.
template <class raw>
int read_pool(const XAtomPlanerNumericTable& table, dsf_pool<raw>* pool, long* bytes_left) {
    const int planes = table.GetPlaneCount(), size = table.GetArraySize();
    if (!table.CanYield(planes, size, sizeof(raw))) return dsf_ErrCouldNotReadFile;
    const long bytes = static_cast<long>(planes) * size * static_cast<long>(sizeof(raw));
    if (bytes > *bytes_left) return dsf_ErrOutOfMemory;
    *bytes_left -= bytes;
    pool->depth = static_cast<size_t>(planes);
    pool->count = static_cast<size_t>(size);
    pool->values.resize(pool->depth * pool->count);
    return decompress(table, planes, size, pool->values.data()) == planes ? dsf_ErrOK
                                                                          : dsf_ErrCouldNotReadFile;
}

template <class raw>
int read_pools(const XAtomContainer& geodata, uint32_t id, std::vector<dsf_pool<raw>>* pools,
               long* bytes_left) {
    XAtomPlanerNumericTable table;
    for (bool is_there = geodata.GetFirst(table); is_there; is_there = table.GetNext(geodata, table)) {
        if (table.GetID() != id) continue;
        const int error = read_pool(table, &pools->emplace_back(), bytes_left);
        if (error == dsf_ErrCouldNotReadFile)
            printf("DSF ERROR: We have a %d-bit pool that is cut short.\n",
                   static_cast<int>(sizeof(raw)) * 8);
        if (error) return error;
    }
    return dsf_ErrOK;
}

// Pairs up to the end of the atom; those of planes that the pool does not have are passed over. False when
// the atom does not end with a pair.
bool read_scaling(XAtomPackedData atom, size_t depth, std::vector<dsf_scaling>* to) {
    to->reserve(depth);
    atom.Reset();
    while (!atom.Done()) {
        const double scale = atom.ReadFloat32(), offset = atom.ReadFloat32();
        if (to->size() < depth) to->push_back({scale, offset});
    }
    return !atom.Overrun();
}

template <class raw>
int read_scalings(const XAtomContainer& geodata, uint32_t id, std::vector<dsf_pool<raw>>* pools) {
    XAtomPackedData atom;
    std::vector<dsf_scaling> of_no_pool;
    size_t pool = 0;
    for (bool is_there = geodata.GetFirst(atom); is_there; is_there = atom.GetNext(geodata, atom)) {
        if (atom.GetID() != id) continue;
        const bool has_pool = pool < pools->size();
        if (!read_scaling(atom, has_pool ? (*pools)[pool].depth : 0,
                          has_pool ? &(*pools)[pool].scaling : &of_no_pool)) {
            printf("DSF ERROR: We overran our %d-bit scaling atom.\n", static_cast<int>(sizeof(raw)) * 8);
            return dsf_ErrMisformattedScalingAtom;
        }
        ++pool;
    }
    return dsf_ErrOK;
}

template <class raw>
int check_scalings(const std::vector<dsf_pool<raw>>& pools) {
    constexpr int bits = static_cast<int>(sizeof(raw)) * 8;
    for (size_t n = 0; n < pools.size(); ++n) {
        if (pools[n].scaling.size() < pools[n].depth) {
            printf("DSF ERROR: We have %d scales for the %d planes of %d-bit pool %d.\n",
                   static_cast<int>(pools[n].scaling.size()), static_cast<int>(pools[n].depth), bits,
                   static_cast<int>(n));
            return dsf_ErrMisformattedScalingAtom;
        }
        for (const dsf_scaling& s : pools[n].scaling) {
            if (std::isfinite(s.scale) && std::isfinite(s.offset)) continue;
            printf("DSF ERROR: We have a scale of %d-bit pool %d that is not a number.\n", bits,
                   static_cast<int>(n));
            return dsf_ErrMisformattedScalingAtom;
        }
    }
    return dsf_ErrOK;
}

int read_all_pools(const XAtomContainer& geodata, dsf_pools* to) {
    long bytes_left = dsf_pool_bytes_max;
    int error;
    try {
        error = read_pools(geodata, dsf_POOL, &to->of_16, &bytes_left);
        if (!error) error = read_pools(geodata, dsf_PO32, &to->of_32, &bytes_left);
    } catch (const std::bad_alloc&) {
        error = dsf_ErrOutOfMemory;
    }
    if (error == dsf_ErrOutOfMemory) printf("DSF ERROR: We do not have the memory for the pools.\n");
    return error;
}
}  // namespace

int read_dsf_pools(const XAtomContainer& geodata, dsf_pools* to) {
    int error = read_all_pools(geodata, to);
    if (!error) error = read_scalings(geodata, dsf_SCAL, &to->of_16);
    if (!error) error = read_scalings(geodata, dsf_SC32, &to->of_32);
    if (!error) error = check_scalings(to->of_16);
    if (!error) error = check_scalings(to->of_32);
    return error;
}
