// The chunked container of tiles: a tree of atoms, walked where it lies.
// Role: views over bytes that the caller keeps. Nothing is copied or allocated, and no read leaves the span,
// whatever the bytes say. It must not know what the atoms mean.
// An atom is its identifier, its length with these eight bytes of header, and contents; numbers stand least
// significant byte first and unaligned.
#pragma once
#include <cstddef>
#include <cstdint>

struct XSpan {
    const char* begin = nullptr;
    const char* end = nullptr;  // behind the last byte

    size_t size() const { return static_cast<size_t>(end - begin); }
};

#pragma pack(push, 1)
struct XAtomHeader_t {
    uint32_t id;      // four letters, the first in the highest byte
    uint32_t length;  // bytes of the whole atom
};
#pragma pack(pop)
static_assert(sizeof(XAtomHeader_t) == 8);

// Covers one atom, header included.
struct XAtom : XSpan {
    // 0 when the span is null.
    uint32_t GetID() const;
    uint32_t GetContentLength() const;
    uint32_t GetContentLengthWithHeader() const;
    // Serves as a container when the atom holds atoms.
    void GetContents(XSpan& outContents) const;
    // False at the end, and where the next atom is shorter than its header or leaves the container.
    bool GetNext(const XSpan& inContainer, XAtom& outNext) const;
};

// Covers atoms end to end, no header. Every call walks from the first one.
struct XAtomContainer : XSpan {
    bool GetFirst(XAtom& outAtom) const;
    int CountAtoms() const;
    int CountAtomsOfID(uint32_t inID) const;
    // Indexes from 0; the second counts only atoms of that identifier. False when there is none.
    bool GetNthAtom(int inIndex, XAtom& outAtom) const;
    bool GetNthAtomOfID(uint32_t inID, int inIndex, XAtom& outAtom) const;
};

// Zero-terminated strings end to end. They point into the atom; null at the end. A last string without its
// zero is not handed out.
struct XAtomStringTable : XAtom {
    const char* GetFirstString() const;
    const char* GetNextString(const char* inString) const;
    const char* GetNthString(int inIndex) const;
};

// Planes of numbers of one width, which the caller knows: see planar.h.
struct XAtomPlanerNumericTable : XAtom {
    int GetArraySize() const;  // values in each plane, as the file claims: it may be negative
    int GetPlaneCount() const;

    // Whether these bytes could ever yield so many values of that width. To be asked before the buffer is
    // made: five bytes can claim 2^31 values.
    bool CanYield(int inPlaneCount, int inPlaneSize, int inWidth) const;

    // Fill inPlaneCount * inPlaneSize values: value i of a plane at i * inPlaneCount + plane if interleaved,
    // else at plane * inPlaneSize + i. They give the number of whole planes decoded, which is less where the
    // bytes end or a run is empty; the slots of the plane that broke off are undefined, those behind it stay
    // as they were.
    int DecompressShort(int inPlaneCount, int inPlaneSize, int inInterleaved, short* outBuffer) const;
    int DecompressInt(int inPlaneCount, int inPlaneSize, int inInterleaved, int* outBuffer) const;
    int DecompressFloat(int inPlaneCount, int inPlaneSize, int inInterleaved, float* outBuffer) const;
    int DecompressDouble(int inPlaneCount, int inPlaneSize, int inInterleaved, double* outBuffer) const;
};

// Values packed end to end. A read that leaves the atom gives 0 and still moves the cursor.
struct XAtomPackedData : XAtom {
    size_t position = sizeof(XAtomHeader_t);  // bytes from the start of the atom; it may stand behind the end

    void Reset() { position = sizeof(XAtomHeader_t); }
    bool Done() const { return position >= size(); }
    bool Overrun() const { return position > size(); }
    size_t Remaining() const { return Done() ? 0 : size() - position; }

    uint8_t ReadUInt8();
    int8_t ReadSInt8();
    uint16_t ReadUInt16();
    int16_t ReadSInt16();
    uint32_t ReadUInt32();
    int32_t ReadSInt32();
    float ReadFloat32();
    double ReadFloat64();
    // Only forward: a negative count is none.
    void Advance(int64_t bytes);
};
