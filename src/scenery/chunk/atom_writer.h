// Writes what atoms.h reads.
// Role: for the programs that make tiles. A write that fails shows in ferror of the file, in the result of
// the call, and, for an atom, in outFailed of its writer; fclose still has to be looked at, for it writes the
// rest.
#pragma once
#include <cstdint>
#include <cstdio>

#include "scenery/chunk/planar.h"

// An atom from construction to destruction, around whatever is written meanwhile; writers nest. The length
// goes into the header at the end, so the file must be able to seek.
class StAtomWriter {
public:
    // outFailed, which may be null, is set when the atom could not be completed, a file that cannot seek and
    // an atom beyond 4 GB among the reasons: these ferror does not tell. It is never cleared, so that one
    // flag can serve a whole file.
    StAtomWriter(FILE* inFile, int inID, bool* outFailed = nullptr);
    ~StAtomWriter();
    StAtomWriter(const StAtomWriter&) = delete;
    StAtomWriter& operator=(const StAtomWriter&) = delete;

private:
    bool finish();

    FILE* file_;
    uint32_t id_;
    bool* failed_;
    long at_;  // of the header; negative when the file cannot tell
};

// One table whose planes all have that mode, without an atom header. The layout of inData is that of the
// Decompress calls. False, with nothing written, for a plane count above 255, a negative size or an unknown
// mode; false when a write fails.
bool WritePlanarNumericAtomShort(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                 int inInterleaved, const short* inData);
bool WritePlanarNumericAtomInt(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode, int inInterleaved,
                               const int* inData);
bool WritePlanarNumericAtomFloat(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                 int inInterleaved, const float* inData);
bool WritePlanarNumericAtomDouble(FILE* inFile, int inPlaneCount, int inPlaneSize, int inMode,
                                  int inInterleaved, const double* inData);

bool WriteUInt8(FILE* inFile, uint8_t inValue);
bool WriteSInt8(FILE* inFile, int8_t inValue);
bool WriteUInt16(FILE* inFile, uint16_t inValue);
bool WriteSInt16(FILE* inFile, int16_t inValue);
bool WriteUInt32(FILE* inFile, uint32_t inValue);
bool WriteSInt32(FILE* inFile, int32_t inValue);
bool WriteFloat32(FILE* inFile, float inValue);
bool WriteFloat64(FILE* inFile, double inValue);
