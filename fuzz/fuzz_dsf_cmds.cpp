// The command stream of tiles: any commands over good pools of several depths, the first of each kind larger
// than a byte can count.
#include "scenery/decode/dsf_format.h"
#include "tile_calls.h"

namespace {
using fuzzing::tile_bytes;

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

std::vector<char> geodata() {
    tile_bytes pools;
    for (const uint8_t planes : {5, 3, 2, 7, 1, 0, 4})
        add_pool<uint16_t>(&pools, dsf_POOL, dsf_SCAL, planes == 5 ? 300 : 10 * planes, planes);
    for (const uint8_t planes : {4, 7, 6, 3})
        add_pool<uint32_t>(&pools, dsf_PO32, dsf_SC32, planes == 4 ? 300 : 10 * planes, planes);
    return pools.bytes;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::silence_stdout();
    static const std::vector<char> pools = geodata();
    tile_bytes properties, definitions, file;
    properties.add_atom(dsf_PROP, {});
    for (const uint32_t id : {dsf_TERT, dsf_OBJT, dsf_POLY, dsf_NETW}) definitions.add_atom(id, {});
    file.add_file_head();
    file.add_atom(dsf_HEAD, properties.bytes);
    file.add_atom(dsf_DEFN, definitions.bytes);
    file.add_atom(dsf_GEOD, pools);
    file.add_atom(dsf_CMDS, std::vector<char>(data, data + size));
    file.add_footer();
    fuzzing::tile_calls::decode(file.bytes);
    return 0;
}
