// Walks over atoms and their payloads.
#include "scenery/chunk/atoms.h"

#include <cstring>

#include "scenery/chunk/planar.h"

namespace {
// Numbers of a file are not aligned.
template <class T>
T number_at(const char* at) {
    T value;
    memcpy(&value, at, sizeof(T));
    return value;
}

bool has_header(const XSpan& atom) { return atom.begin && atom.size() >= sizeof(XAtomHeader_t); }

// The atom that begins there, unless it leaves the end.
bool atom_at(const char* begin, const char* end, XAtom& outAtom) {
    if (end - begin < static_cast<ptrdiff_t>(sizeof(XAtomHeader_t))) return false;
    const size_t length = number_at<XAtomHeader_t>(begin).length;
    if (length < sizeof(XAtomHeader_t) || length > static_cast<size_t>(end - begin)) return false;
    outAtom.begin = begin;
    outAtom.end = begin + length;
    return true;
}

// Null where no zero byte ends it.
const char* whole_string(const char* at, const char* end) {
    if (at >= end || !memchr(at, 0, static_cast<size_t>(end - at))) return nullptr;
    return at;
}

template <class T>
T read(XAtomPackedData& from) {
    const T value =
        from.Remaining() >= sizeof(T) ? number_at<T>(from.begin + from.position) : static_cast<T>(0);
    from.position += sizeof(T);
    return value;
}

template <class T>
int decompress(const XAtom& table, int inPlaneCount, int inPlaneSize, int inInterleaved, T* outBuffer) {
    XSpan contents;
    table.GetContents(contents);
    if (contents.size() < planar_head_size) return 0;
    return DecodeNumericPlane(inPlaneCount, inPlaneSize, inInterleaved, contents.begin + planar_head_size,
                              contents.end, outBuffer);
}
}  // namespace

uint32_t XAtom::GetID() const { return has_header(*this) ? number_at<XAtomHeader_t>(begin).id : 0; }

uint32_t XAtom::GetContentLengthWithHeader() const {
    return has_header(*this) ? number_at<XAtomHeader_t>(begin).length : 0;
}

uint32_t XAtom::GetContentLength() const {
    const uint32_t length = GetContentLengthWithHeader();
    return length < sizeof(XAtomHeader_t) ? 0 : length - static_cast<uint32_t>(sizeof(XAtomHeader_t));
}

void XAtom::GetContents(XSpan& outContents) const {
    outContents.begin = has_header(*this) ? begin + sizeof(XAtomHeader_t) : end;
    outContents.end = end;
}

bool XAtom::GetNext(const XSpan& inContainer, XAtom& outNext) const {
    if (end >= inContainer.end) return false;
    return atom_at(end, inContainer.end, outNext);
}

bool XAtomContainer::GetFirst(XAtom& outAtom) const {
    if (begin >= end) return false;
    return atom_at(begin, end, outAtom);
}

int XAtomContainer::CountAtoms() const {
    int count = 0;
    XAtom atom;
    for (bool is_there = GetFirst(atom); is_there; is_there = atom.GetNext(*this, atom)) ++count;
    return count;
}

int XAtomContainer::CountAtomsOfID(uint32_t inID) const {
    int count = 0;
    XAtom atom;
    for (bool is_there = GetFirst(atom); is_there; is_there = atom.GetNext(*this, atom))
        count += atom.GetID() == inID;
    return count;
}

bool XAtomContainer::GetNthAtom(int inIndex, XAtom& outAtom) const {
    if (inIndex < 0) return false;
    XAtom atom;
    for (bool is_there = GetFirst(atom); is_there; is_there = atom.GetNext(*this, atom)) {
        if (inIndex-- != 0) continue;
        outAtom = atom;
        return true;
    }
    return false;
}

bool XAtomContainer::GetNthAtomOfID(uint32_t inID, int inIndex, XAtom& outAtom) const {
    if (inIndex < 0) return false;
    XAtom atom;
    for (bool is_there = GetFirst(atom); is_there; is_there = atom.GetNext(*this, atom)) {
        if (atom.GetID() != inID || inIndex-- != 0) continue;
        outAtom = atom;
        return true;
    }
    return false;
}

const char* XAtomStringTable::GetFirstString() const {
    XSpan contents;
    GetContents(contents);
    return whole_string(contents.begin, contents.end);
}

const char* XAtomStringTable::GetNextString(const char* inString) const {
    if (!inString || inString < begin || !whole_string(inString, end)) return nullptr;
    return whole_string(inString + strlen(inString) + 1, end);
}

const char* XAtomStringTable::GetNthString(int inIndex) const {
    if (inIndex < 0) return nullptr;
    const char* string = GetFirstString();
    while (string && inIndex-- > 0) string = GetNextString(string);
    return string;
}

int XAtomPlanerNumericTable::GetArraySize() const {
    XSpan contents;
    GetContents(contents);
    return contents.size() < planar_head_size ? 0 : number_at<int32_t>(contents.begin);
}

int XAtomPlanerNumericTable::GetPlaneCount() const {
    XSpan contents;
    GetContents(contents);
    return contents.size() < planar_head_size ? 0 : number_at<uint8_t>(contents.begin + 4);
}

bool XAtomPlanerNumericTable::CanYield(int inPlaneCount, int inPlaneSize, int inWidth) const {
    XSpan contents;
    GetContents(contents);
    if (inPlaneCount < 0 || inPlaneSize < 0 || contents.size() < planar_head_size) return false;
    const int64_t size = inPlaneSize, flat = size * inWidth;
    const int64_t runs = (size + rle_group_max - 1) / rle_group_max * (1 + inWidth);
    const int64_t least = 1 + (flat < runs ? flat : runs);
    return static_cast<int64_t>(contents.size() - planar_head_size) >= least * inPlaneCount;
}

int XAtomPlanerNumericTable::DecompressShort(int inPlaneCount, int inPlaneSize, int inInterleaved,
                                             short* outBuffer) const {
    return decompress(*this, inPlaneCount, inPlaneSize, inInterleaved, outBuffer);
}
int XAtomPlanerNumericTable::DecompressInt(int inPlaneCount, int inPlaneSize, int inInterleaved,
                                           int* outBuffer) const {
    return decompress(*this, inPlaneCount, inPlaneSize, inInterleaved, outBuffer);
}
int XAtomPlanerNumericTable::DecompressFloat(int inPlaneCount, int inPlaneSize, int inInterleaved,
                                             float* outBuffer) const {
    return decompress(*this, inPlaneCount, inPlaneSize, inInterleaved, outBuffer);
}
int XAtomPlanerNumericTable::DecompressDouble(int inPlaneCount, int inPlaneSize, int inInterleaved,
                                              double* outBuffer) const {
    return decompress(*this, inPlaneCount, inPlaneSize, inInterleaved, outBuffer);
}

uint8_t XAtomPackedData::ReadUInt8() { return read<uint8_t>(*this); }
int8_t XAtomPackedData::ReadSInt8() { return read<int8_t>(*this); }
uint16_t XAtomPackedData::ReadUInt16() { return read<uint16_t>(*this); }
int16_t XAtomPackedData::ReadSInt16() { return read<int16_t>(*this); }
uint32_t XAtomPackedData::ReadUInt32() { return read<uint32_t>(*this); }
int32_t XAtomPackedData::ReadSInt32() { return read<int32_t>(*this); }
float XAtomPackedData::ReadFloat32() { return read<float>(*this); }
double XAtomPackedData::ReadFloat64() { return read<double>(*this); }

void XAtomPackedData::Advance(int64_t bytes) {
    if (bytes > 0) position += static_cast<size_t>(bytes);
}
