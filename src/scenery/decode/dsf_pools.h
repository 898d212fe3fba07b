// The coordinate pools of a tile, expanded, and their scaling.
// Role: filled once by the decoder; its commands take points from it.
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

#include "scenery/chunk/atoms.h"
#include "scenery/decode/dsf_format.h"

struct dsf_scaling {
    double scale, offset;  // a scale of 0 passes the raw value through
};

// Points of 16 or 32 bits a coordinate, raw, [point * depth + plane].
template <class raw>
struct dsf_pool {
    size_t depth = 0, count = 0;
    std::vector<raw> values;
    std::vector<dsf_scaling> scaling;  // one a plane

    // The first planes of a point, or those from a plane on. The point and the planes must exist.
    void decode(size_t point, size_t from, size_t planes, double* to) const {
        constexpr double unit = sizeof(raw) == 2 ? dsf_unit_16 : dsf_unit_32;
        const raw* value = values.data() + point * depth + from;
        const dsf_scaling* s = scaling.data() + from;
        for (size_t i = 0; i < planes; ++i)
            to[i] = s[i].scale == 0.0 ? value[i] : value[i] * s[i].scale * unit + s[i].offset;
    }
};

struct dsf_pools {
    std::vector<dsf_pool<uint16_t>> of_16;
    std::vector<dsf_pool<uint32_t>> of_32;
};

// Expands every pool of the geodata and reads its scales. Returns a dsf_error and prints what is wrong.
int read_dsf_pools(const XAtomContainer& geodata, dsf_pools* to);
