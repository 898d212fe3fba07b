// Tiles: the first byte tells a whole file from atoms behind a good header, and from the contents of each
// atom of a tree that is whole.
#include "scenery/decode/dsf_format.h"
#include "tile_calls.h"

namespace {
using fuzzing::tile_bytes;

// Contents are cut from the input in turn, each behind two bytes that tell how long it is.
class cutter {
public:
    cutter(const uint8_t* data, size_t size) : at_(data), end_(data + size) {}
    std::vector<char> next() {
        if (end_ - at_ < 2) {
            at_ = end_;
            return {};
        }
        const size_t wanted = at_[0] + 256u * (at_[1] & 15u), left = static_cast<size_t>(end_ - at_ - 2);
        at_ += 2;
        const size_t size = std::min(wanted, left);
        at_ += size;
        return std::vector<char>(at_ - size, at_);
    }
    std::vector<char> rest() { return std::vector<char>(at_, end_); }
    bool done() const { return at_ >= end_; }

private:
    const uint8_t *at_, *end_;
};

std::vector<char> tree(cutter from) {
    tile_bytes properties, definitions, geodata, file;
    properties.add_atom(dsf_PROP, from.next());
    for (const uint32_t id : {dsf_TERT, dsf_OBJT, dsf_POLY, dsf_NETW}) definitions.add_atom(id, from.next());
    const std::vector<char> commands = from.next();
    while (!from.done())
        for (const uint32_t id : {dsf_POOL, dsf_SCAL, dsf_PO32, dsf_SC32}) geodata.add_atom(id, from.next());
    file.add_file_head();
    file.add_atom(dsf_HEAD, properties.bytes);
    file.add_atom(dsf_DEFN, definitions.bytes);
    file.add_atom(dsf_GEOD, geodata.bytes);
    file.add_atom(dsf_CMDS, commands);
    file.add_footer();
    return file.bytes;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzzing::silence_stdout();
    if (size < 1) return 0;
    const int kind = data[0] % 3;
    const cutter from(data + 1, size - 1);
    if (kind == 0) {
        fuzzing::tile_calls::decode(cutter(from).rest());
    } else if (kind == 1) {
        tile_bytes file;
        const std::vector<char> atoms = cutter(from).rest();
        file.add_file_head();
        file.add(atoms.data(), atoms.size());
        file.add_footer();
        fuzzing::tile_calls::decode(file.bytes);
    } else {
        fuzzing::tile_calls::decode(tree(from));
    }
    return 0;
}
