// Containers: the tree walked down to any depth, and each atom taken for a string table, packed values and
// planes of every width, in heap blocks of exactly their size.
#include <memory>

#include "scenery/chunk/atoms.h"
#include "support.h"

namespace {
using fuzzing::must;

constexpr int depth_max = 12;
volatile uint64_t keep;  // what was read counts for something
constexpr int64_t values_max = 1 << 16;

bool lies_in(const XSpan& inner, const XSpan& outer) {
    return inner.begin >= outer.begin && inner.end <= outer.end && inner.begin <= inner.end;
}

void walk_strings(const XAtom& atom) {
    XAtomStringTable table;
    static_cast<XAtom&>(table) = atom;
    int count = 0;
    for (const char* s = table.GetFirstString(); s; s = table.GetNextString(s), ++count)
        must(s >= atom.begin + 8 && s + strlen(s) < atom.end);
    must(!table.GetNthString(count));
}

void read_packed(const XAtom& atom) {
    XAtomPackedData data;
    static_cast<XAtom&>(data) = atom;
    data.Reset();
    using reader = uint64_t (*)(XAtomPackedData&);
    static const reader readers[] = {
        [](XAtomPackedData& d) { return uint64_t{d.ReadUInt16()}; },
        [](XAtomPackedData& d) { return uint64_t{d.ReadUInt32()}; },
        [](XAtomPackedData& d) { return static_cast<uint64_t>(d.ReadSInt16() + d.ReadSInt8()); },
        [](XAtomPackedData& d) { return static_cast<uint64_t>(d.ReadSInt32()); },
        [](XAtomPackedData& d) { return uint64_t{d.ReadFloat32() > 0.0f}; },
        [](XAtomPackedData& d) { return uint64_t{d.ReadFloat64() > 0.0}; },
        [](XAtomPackedData& d) { return d.Advance(d.ReadSInt32()), uint64_t{0}; },
        [](XAtomPackedData& d) { return d.Advance(d.ReadUInt32()), uint64_t{0}; },
    };
    uint64_t sum = 0;
    while (!data.Done()) sum += readers[data.ReadUInt8() % std::size(readers)](data);
    must(data.Remaining() == 0 && data.ReadUInt32() == 0 && data.Overrun());
    keep = sum;
}

// Whole planes are filled, and where the bytes cannot yield what they claim no plane that claims it comes
// out.
template <class T>
void decode(const XAtomPlanerNumericTable& table,
            int (XAtomPlanerNumericTable::*decompress)(int, int, int, T*) const) {
    const int planes = table.GetPlaneCount(), size = table.GetArraySize();
    if (size < 0) must((table.*decompress)(planes, size, 1, nullptr) == 0);
    if (!table.CanYield(planes, size, sizeof(T)) || static_cast<int64_t>(planes) * size > values_max) return;
    const size_t count = static_cast<size_t>(planes) * static_cast<size_t>(size);
    std::unique_ptr<T[]> interleaved(new T[count]()), apart(new T[count]());
    const int whole = (table.*decompress)(planes, size, 1, interleaved.get());
    must(whole >= 0 && whole <= planes);
    must((table.*decompress)(planes, size, 0, apart.get()) == whole);
    for (int plane = 0; plane < whole; ++plane)
        for (int i = 0; i < size; ++i)
            must(memcmp(&interleaved[static_cast<size_t>(i * planes + plane)],
                        &apart[static_cast<size_t>(plane * size + i)], sizeof(T)) == 0);
}

void walk(const XSpan& span, int depth) {
    XAtomContainer container;
    static_cast<XSpan&>(container) = span;
    int count = 0;
    XAtom atom, same;
    for (bool is_there = container.GetFirst(atom); is_there; is_there = atom.GetNext(container, atom)) {
        must(lies_in(atom, container) && atom.GetContentLengthWithHeader() == atom.size());
        if (count < 20) must(container.GetNthAtom(count, same) && same.begin == atom.begin);
        must(container.CountAtomsOfID(atom.GetID()) >= 1 || depth > 0);
        ++count;
        XSpan contents;
        atom.GetContents(contents);
        must(contents.size() == atom.GetContentLength());
        if (depth < depth_max) walk(contents, depth + 1);
        if (depth > 2) continue;
        walk_strings(atom);
        read_packed(atom);
        XAtomPlanerNumericTable table;
        static_cast<XAtom&>(table) = atom;
        decode<short>(table, &XAtomPlanerNumericTable::DecompressShort);
        decode<int>(table, &XAtomPlanerNumericTable::DecompressInt);
        decode<float>(table, &XAtomPlanerNumericTable::DecompressFloat);
        decode<double>(table, &XAtomPlanerNumericTable::DecompressDouble);
    }
    must(container.CountAtoms() == count && !container.GetNthAtom(count, same));
}
}  // namespace

// The first byte tells a container from the contents of one atom.
void fuzz_atom(fuzzing::input& in) {
    if (in.size() > 1 << 14) return;
    const bool is_contents = in.byte() & 1;
    std::vector<char> bytes = in.bytes();
    if (is_contents) {
        const uint32_t header[2] = {0x504F4F4C, static_cast<uint32_t>(bytes.size() + 8)};
        const char* const first = reinterpret_cast<const char*>(header);
        bytes.insert(bytes.begin(), first, first + 8);
    }
    const std::vector<char> exact(bytes);
    XSpan span;
    span.begin = const_cast<char*>(exact.data());
    span.end = span.begin + exact.size();
    walk(span, 0);
}
