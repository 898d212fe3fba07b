// Atoms, numeric tables and single values into a file.
#include "scenery/chunk/atom_writer.h"

#include <limits>

#include "scenery/chunk/atoms.h"

namespace {
template <class T>
bool put(FILE* file, const T& value) {
    return fwrite(&value, sizeof(T), 1, file) == 1;
}

template <class T>
void put_flat(FILE* file, const T* data, const plane_slots& at, int count, bool is_differenced) {
    T last = 0;
    for (int i = 0; i < count; ++i) {
        const T value = data[at.first + i * at.apart];
        put(file, is_differenced ? planar_difference(value, last) : value);
        last = value;
    }
}

template <class T>
void put_rle(FILE* file, const T* data, const plane_slots& at, int count, bool is_differenced) {
    RLEEncoder<T> encoder(file);
    T last = 0;
    for (int i = 0; i < count; ++i) {
        const T value = data[at.first + i * at.apart];
        encoder.Accum(is_differenced ? planar_difference(value, last) : value);
        last = value;
    }
    encoder.Done();
}

template <class T>
bool WritePlanarNumericAtom(FILE* file, int planes, int size, int mode, int is_interleaved, const T* data) {
    if (planes < 0 || planes > std::numeric_limits<uint8_t>::max() || size < 0) return false;
    if (mode < plane_flat || mode > plane_rle_differenced) return false;
    WriteSInt32(file, size);
    WriteUInt8(file, static_cast<uint8_t>(planes));
    const bool is_differenced = mode == plane_differenced || mode == plane_rle_differenced;
    for (int plane = 0; plane < planes; ++plane) {
        const plane_slots at = is_interleaved ? plane_slots{plane, planes}
                                              : plane_slots{static_cast<ptrdiff_t>(plane) * size, 1};
        WriteUInt8(file, static_cast<uint8_t>(mode));
        if (mode == plane_flat || mode == plane_differenced)
            put_flat(file, data, at, size, is_differenced);
        else
            put_rle(file, data, at, size, is_differenced);
    }
    return !ferror(file);
}
}  // namespace

StAtomWriter::StAtomWriter(FILE* inFile, int inID, bool* outFailed)
    : file_(inFile), id_(static_cast<uint32_t>(inID)), failed_(outFailed), at_(ftell(inFile)) {
    put(file_, XAtomHeader_t{id_, sizeof(XAtomHeader_t)});
}

StAtomWriter::~StAtomWriter() {
    if (!finish() && failed_) *failed_ = true;
}

bool StAtomWriter::finish() {
    const long end = ftell(file_);
    if (at_ < 0 || end < at_ || fseek(file_, at_, SEEK_SET) != 0) return false;
    const unsigned long length = static_cast<unsigned long>(end - at_);
    const bool fits = length <= std::numeric_limits<uint32_t>::max();
    if (fits) put(file_, XAtomHeader_t{id_, static_cast<uint32_t>(length)});
    return fseek(file_, end, SEEK_SET) == 0 && fits && !ferror(file_);
}

bool WritePlanarNumericAtomShort(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                 int inInterleaved, const short* inData) {
    return WritePlanarNumericAtom(inFile, inPlaneCount, inPlaneSize, inMode, inInterleaved, inData);
}
bool WritePlanarNumericAtomInt(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode, int inInterleaved,
                               const int* inData) {
    return WritePlanarNumericAtom(inFile, inPlaneCount, inPlaneSize, inMode, inInterleaved, inData);
}
bool WritePlanarNumericAtomFloat(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                 int inInterleaved, const float* inData) {
    return WritePlanarNumericAtom(inFile, inPlaneCount, inPlaneSize, inMode, inInterleaved, inData);
}
bool WritePlanarNumericAtomDouble(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                  int inInterleaved, const double* inData) {
    return WritePlanarNumericAtom(inFile, inPlaneCount, inPlaneSize, inMode, inInterleaved, inData);
}

bool WriteUInt8(FILE* inFile, uint8_t inValue) { return put(inFile, inValue); }
bool WriteSInt8(FILE* inFile, int8_t inValue) { return put(inFile, inValue); }
bool WriteUInt16(FILE* inFile, uint16_t inValue) { return put(inFile, inValue); }
bool WriteSInt16(FILE* inFile, int16_t inValue) { return put(inFile, inValue); }
bool WriteUInt32(FILE* inFile, uint32_t inValue) { return put(inFile, inValue); }
bool WriteSInt32(FILE* inFile, int32_t inValue) { return put(inFile, inValue); }
bool WriteFloat32(FILE* inFile, float inValue) { return put(inFile, inValue); }
bool WriteFloat64(FILE* inFile, double inValue) { return put(inFile, inValue); }
