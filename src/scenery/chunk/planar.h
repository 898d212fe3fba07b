// The planes of a numeric table: their encodings, read and written.
// Role: shared by the atom reader and writer. A plane is one byte, its mode, and its data; a run-length
// stream is groups of a control byte and values: a high bit tells one value that stands for as many as the
// low bits say, else that many values follow.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <type_traits>
#include <vector>

static_assert(std::endian::native == std::endian::little, "files are least significant byte first");

enum plane_mode : int { plane_flat = 0, plane_differenced = 1, plane_rle = 2, plane_rle_differenced = 3 };

constexpr int rle_run_bit = 0x80, rle_group_max = 127;
constexpr size_t planar_head_size = 5;  // array size and plane count

// Whole numbers wrap at their width.
template <class T>
T planar_sum(T a, T b) {
    if constexpr (std::is_integral_v<T>) {
        using wrapping = std::make_unsigned_t<T>;
        return static_cast<T>(static_cast<wrapping>(static_cast<wrapping>(a) + static_cast<wrapping>(b)));
    } else {
        return a + b;
    }
}

template <class T>
T planar_difference(T a, T b) {
    if constexpr (std::is_integral_v<T>) {
        using wrapping = std::make_unsigned_t<T>;
        return static_cast<T>(static_cast<wrapping>(static_cast<wrapping>(a) - static_cast<wrapping>(b)));
    } else {
        return a - b;
    }
}

// Fetch gives the next value, false where the bytes do not hold one; EndPos what stands behind those taken.
template <class T>
struct FlatDecoder {
    const char* p;
    const char* end;

    bool Fetch(T* out) {
        if (end - p < static_cast<ptrdiff_t>(sizeof(T))) return false;
        memcpy(out, p, sizeof(T));
        p += sizeof(T);
        return true;
    }
    const char* EndPos() const { return p; }
};

template <class T>
struct RLEDecoder {
    const char* p;
    const char* end;
    bool is_run = false, is_individual = false;
    int32_t run_length = 0;  // values left in the group

    bool Fetch(T* out) {
        if (run_length == 0 && !open_group()) return false;
        memcpy(out, p, sizeof(T));
        const bool is_last = --run_length == 0;
        if (is_individual || is_last) p += sizeof(T);
        if (is_last) is_run = is_individual = false;
        return true;
    }
    const char* EndPos() const { return is_run ? p + sizeof(T) : p; }

private:
    // The whole group must lie before the end, so that Fetch need not look again. A count of 0 is never
    // written.
    bool open_group() {
        if (p >= end) return false;
        const int control = static_cast<unsigned char>(*p);
        const int count = control & ~rle_run_bit;
        const ptrdiff_t values = control & rle_run_bit ? 1 : count;
        if (count == 0 || end - p - 1 < values * static_cast<ptrdiff_t>(sizeof(T))) return false;
        ++p;
        is_run = (control & rle_run_bit) != 0;
        is_individual = !is_run;
        run_length = count;
        return true;
    }
};

// Where the values of a plane stand in the buffer: value i at first + i * apart.
struct plane_slots {
    ptrdiff_t first, apart;
};

// One plane's values. Gives the first byte behind them, or null where the
// bytes end first.
template <bool is_differenced, class T, class decoder>
const char* decode_values(decoder from, int count, T* to, const plane_slots& at) {
    T last = 0, value;
    for (int i = 0; i < count; ++i) {
        if (!from.Fetch(&value)) return nullptr;
        if constexpr (is_differenced) value = last = planar_sum(last, value);
        to[at.first + i * at.apart] = value;
    }
    return from.EndPos();
}

// A mode of another number is a plane without data, whose slots stay as they are.
template <class T>
const char* decode_plane(int mode, const char* p, const char* end, int count, T* to, const plane_slots& at) {
    switch (mode) {
        case plane_flat:
            return decode_values<false>(FlatDecoder<T>{p, end}, count, to, at);
        case plane_differenced:
            return decode_values<true>(FlatDecoder<T>{p, end}, count, to, at);
        case plane_rle:
            return decode_values<false>(RLEDecoder<T>{p, end}, count, to, at);
        case plane_rle_differenced:
            return decode_values<true>(RLEDecoder<T>{p, end}, count, to, at);
    }
    return p;
}

// From the first plane's mode to the end of the atom. Gives the number of whole planes.
template <class T>
int DecodeNumericPlane(int inPlaneCount, int inPlaneSize, int inInterleaved, const char* p, const char* end,
                       T* outBuffer) {
    if (inPlaneSize < 0) return 0;
    for (int plane = 0; plane < inPlaneCount; ++plane) {
        if (p >= end) return plane;
        const int mode = static_cast<unsigned char>(*p++);
        const plane_slots at = inInterleaved ? plane_slots{plane, inPlaneCount}
                                             : plane_slots{static_cast<ptrdiff_t>(plane) * inPlaneSize, 1};
        p = decode_plane(mode, p, end, inPlaneSize, outBuffer, at);
        if (!p) return plane;
    }
    return inPlaneCount > 0 ? inPlaneCount : 0;
}

// Takes values one at a time and writes groups; Done writes what is left. Values are the same when their bits
// are, so that a negative zero comes back as one.
template <class T>
class RLEEncoder {
public:
    explicit RLEEncoder(FILE* file) : file_(file) { pending_.reserve(rle_group_max); }

    void Accum(T value) {
        if (pending_.empty()) {
            pending_.push_back(value);
        } else if (is_run_) {
            accum_in_run(value);
        } else if (!is_same(pending_.back(), value)) {
            accum_literal(value);
        } else {
            pending_.pop_back();
            flush_literals();
            start_run(value);
        }
    }
    void Done() {
        if (is_run_) flush_run();
        flush_literals();
    }

private:
    // in its bits: a NaN repeats itself, -0 is not 0
    // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison)
    static bool is_same(T a, T b) { return memcmp(&a, &b, sizeof(T)) == 0; }

    void start_run(T value) {
        pending_.assign(1, value);
        is_run_ = true;
        run_length_ = 2;
    }
    void accum_in_run(T value) {
        if (is_same(pending_.back(), value) && run_length_ < rle_group_max) {
            ++run_length_;
            return;
        }
        flush_run();
        pending_.push_back(value);
    }
    void accum_literal(T value) {
        if (pending_.size() == rle_group_max) flush_literals();
        pending_.push_back(value);
    }
    void flush_run() {
        fputc(rle_run_bit | run_length_, file_);
        fwrite(pending_.data(), sizeof(T), 1, file_);
        pending_.clear();
        is_run_ = false;
    }
    void flush_literals() {
        if (pending_.empty()) return;
        fputc(static_cast<int>(pending_.size()), file_);
        fwrite(pending_.data(), sizeof(T), pending_.size(), file_);
        pending_.clear();
    }

    FILE* file_;
    std::vector<T> pending_;  // of a run its one value
    bool is_run_ = false;
    int run_length_ = 0;
};
