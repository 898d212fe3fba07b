// Tiles: decoding of planes against a copy and zlib's inflate of the same values, a walk over a million
// atoms, and a tile of 130,000 triangles told to callbacks that do nothing.
#include <benchmark/benchmark.h>
#include <zlib.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "scenery/chunk/atom_writer.h"
#include "scenery/chunk/atoms.h"
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_format.h"

namespace {
size_t allocations = 0;
}
// not inlined, or the compiler takes the pair for a mismatched one
[[gnu::noinline]] void* operator new(size_t size) {
    ++allocations;
    if (void* p = malloc(size)) return p;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* p) noexcept { free(p); }
[[gnu::noinline]] void operator delete(void* p, size_t) noexcept { free(p); }

namespace {
constexpr int cells = 255, row_vertices = 2 * (cells + 1), rows_a_pool = 127, planes = 5;

// A vertex of the strip of a row: its raw longitude, latitude, height and normal. Hills a few cells wide.
void put_vertex(int row, int i, short* to) {
    const int x = i / 2, y = row + i % 2;
    const double hill = std::sin(x * 0.11) * std::cos(y * 0.07), slope = std::cos(x * 0.11);
    const double values[planes] = {x * 257.0, y * 257.0, 20000 + 12000 * hill, 32767 + 9000 * slope,
                                   32767 - 9000 * hill};
    for (int plane = 0; plane < planes; ++plane)
        to[plane] = static_cast<short>(static_cast<unsigned short>(values[plane]));
}

std::vector<short> pool_points(int first_row, int rows) {
    std::vector<short> points(static_cast<size_t>(rows * row_vertices * planes));
    for (int row = 0; row < rows; ++row)
        for (int i = 0; i < row_vertices; ++i)
            put_vertex(first_row + row, i, points.data() + (row * row_vertices + i) * planes);
    return points;
}

template <class write>
std::string written(write w) {
    char* bytes = nullptr;
    size_t size = 0;
    FILE* file = open_memstream(&bytes, &size);
    w(file);
    fclose(file);
    const std::string result(bytes, size);
    free(bytes);
    return result;
}

void put_commands(FILE* f) {
    const StAtomWriter commands(f, dsf_CMDS);
    for (int row = 0; row < cells; ++row) {
        if (row % rows_a_pool == 0) {
            WriteUInt8(f, dsf_cmd_pool);
            WriteUInt16(f, static_cast<uint16_t>(row / rows_a_pool));
        }
        if (row % 32 == 0) {
            WriteUInt8(f, dsf_cmd_patch_flags);
            WriteUInt8(f, 1);
        }
        const int first = row % rows_a_pool * row_vertices;
        WriteUInt8(f, dsf_cmd_strip_range);
        WriteUInt16(f, static_cast<uint16_t>(first));
        WriteUInt16(f, static_cast<uint16_t>(first + row_vertices));
    }
}

void put_pools(FILE* f, int mode) {
    const StAtomWriter geodata(f, dsf_GEOD);
    for (int row = 0; row < cells; row += rows_a_pool) {
        const int rows = std::min(rows_a_pool, cells - row);
        {
            const StAtomWriter pool(f, dsf_POOL);
            WritePlanarNumericAtomShort(f, planes, rows * row_vertices, mode, 1,
                                        pool_points(row, rows).data());
        }
        const StAtomWriter scales(f, dsf_SCAL);
        for (const float value : {1.0f, -118.0f, 1.0f, 34.0f, 4096.0f, 0.0f, 2.0f, -1.0f, 2.0f, -1.0f})
            WriteFloat32(f, value);
    }
}

std::string tile_with_mode(int mode) {
    return written([mode](FILE* f) {
        fwrite(dsf_cookie, dsf_cookie_size, 1, f);
        WriteSInt32(f, dsf_version);
        {
            const StAtomWriter head(f, dsf_HEAD);
            const StAtomWriter properties(f, dsf_PROP);
        }
        {
            const StAtomWriter definitions(f, dsf_DEFN);
            for (const int id : {dsf_TERT, dsf_OBJT, dsf_POLY, dsf_NETW}) StAtomWriter(f, id);
        }
        put_pools(f, mode);
        put_commands(f);
        fwrite("0123456789abcdef", sizeof(DSFFooter_t), 1, f);
    });
}

DSFCallbacks_t counting_callbacks() {
    DSFCallbacks_t t{};
    t.BeginPatch_f = [](unsigned, double, double, unsigned char, float*, float*, int, void*) {};
    t.BeginPrimitive_f = [](int, void*) {};
    t.AddPatchVertex_f = [](double* c, void* r) {
        benchmark::DoNotOptimize(*c);
        ++*static_cast<int64_t*>(r);
    };
    t.EndPrimitive_f = t.EndPatch_f = [](void*) {};
    return t;
}

void decode_tile(benchmark::State& state, int mode) {
    const std::string tile = tile_with_mode(mode);
    DSFCallbacks_t tell = counting_callbacks();
    int64_t vertices = 0;
    size_t before = allocations;
    for (auto _ : state)
        if (DSFReadMem(tile.data(), tile.data() + tile.size(), &tell, &vertices) != dsf_ErrOK)
            state.SkipWithError("the tile is bad");
    state.counters["allocations"] =
        static_cast<double>(allocations - before) / static_cast<double>(state.iterations());
    state.counters["file_KB"] = static_cast<double>(tile.size()) / 1000.0;
    state.SetItemsProcessed(vertices);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(tile.size()));
}
BENCHMARK_CAPTURE(decode_tile, flat, 0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_tile, differenced, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_tile, runs, 2)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_tile, differenced_runs, 3)->Unit(benchmark::kMicrosecond);

// One pool of the tile.
const std::vector<short>& values() {
    static const std::vector<short> points = pool_points(0, rows_a_pool);
    return points;
}
int64_t value_bytes() { return static_cast<int64_t>(values().size() * sizeof(short)); }

void copy(benchmark::State& state) {
    std::vector<short> to(values().size());
    for (auto _ : state) {
        memcpy(to.data(), values().data(), static_cast<size_t>(value_bytes()));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * value_bytes());
}
BENCHMARK(copy)->Name("planes/reference_memcpy")->Unit(benchmark::kMicrosecond);

void inflate_values(benchmark::State& state) {
    uLongf packed_size = compressBound(static_cast<uLong>(value_bytes()));
    std::vector<Bytef> packed(packed_size);
    compress(packed.data(), &packed_size, reinterpret_cast<const Bytef*>(values().data()),
             static_cast<uLong>(value_bytes()));
    std::vector<short> to(values().size());
    for (auto _ : state) {
        uLongf size = static_cast<uLongf>(value_bytes());
        uncompress(reinterpret_cast<Bytef*>(to.data()), &size, packed.data(), packed_size);
    }
    state.counters["packed_KB"] = static_cast<double>(packed_size) / 1000.0;
    state.SetBytesProcessed(state.iterations() * value_bytes());
}
BENCHMARK(inflate_values)->Name("planes/reference_inflate")->Unit(benchmark::kMicrosecond);

void decode_planes(benchmark::State& state, int mode, int interleaved) {
    const int size = static_cast<int>(values().size()) / planes;
    const std::string bytes = written([&](FILE* f) {
        const StAtomWriter pool(f, dsf_POOL);
        WritePlanarNumericAtomShort(f, planes, size, mode, 1, values().data());
    });
    XAtomPlanerNumericTable table;
    table.begin = bytes.data();
    table.end = bytes.data() + bytes.size();
    std::vector<short> to(values().size());
    for (auto _ : state) {
        if (table.DecompressShort(planes, size, interleaved, to.data()) != planes)
            state.SkipWithError("the planes are bad");
        benchmark::ClobberMemory();
    }
    state.counters["packed_KB"] = static_cast<double>(bytes.size()) / 1000.0;
    state.SetBytesProcessed(state.iterations() * value_bytes());
}
BENCHMARK_CAPTURE(decode_planes, flat, 0, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_planes, differenced, 1, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_planes, runs, 2, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_planes, differenced_runs, 3, 1)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_planes, flat_planes_apart, 0, 0)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(decode_planes, differenced_runs_planes_apart, 3, 0)->Unit(benchmark::kMicrosecond);

// 64 bytes an atom: one cache line each.
void walk_atoms(benchmark::State& state) {
    constexpr int atoms = 1000000;
    std::string bytes;
    for (int i = 0; i < atoms; ++i) {
        const XAtomHeader_t header{dsf_POOL, 64};
        bytes.append(reinterpret_cast<const char*>(&header), sizeof header).append(64 - sizeof header, 'x');
    }
    XAtomContainer container;
    container.begin = bytes.data();
    container.end = bytes.data() + bytes.size();
    for (auto _ : state)
        if (container.CountAtomsOfID(dsf_POOL) != atoms) state.SkipWithError("atoms are missing");
    state.SetItemsProcessed(state.iterations() * atoms);
}
BENCHMARK(walk_atoms)->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
