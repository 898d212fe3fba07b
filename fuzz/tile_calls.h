// A decoder's callbacks that hold it to their order and to numbers that can be used.
#pragma once
#include <string.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "scenery/decode/dsf.h"
#include "support.h"

namespace fuzzing {

// Thrown when an input has told more than there is time for: a few bytes can ask for 65535 points.
struct told_enough {};

class tile_calls {
public:
    // Decodes the bytes from a heap block of exactly their size.
    static void decode(const std::vector<char>& bytes) {
        tile_calls self;
        DSFCallbacks_t tell = callbacks();
        const std::unique_ptr<char[]> block(new char[bytes.size()]);
        std::copy(bytes.begin(), bytes.end(), block.get());
        try {
            const int error = DSFReadMem(block.get(), block.get() + bytes.size(), &tell, &self);
            must(error >= 0 && error < dsf_error_DIM && dsfErrorMessages[error]);
            must(error || (!self.in_patch_ && !self.in_primitive_ && !self.in_polygon_ && !self.in_winding_));
        } catch (const told_enough&) {
        }
    }

private:
    static DSFCallbacks_t callbacks() {
        DSFCallbacks_t t;
        t.AcceptTerrainDef_f = t.AcceptObjectDef_f = t.AcceptPolygonDef_f =
            t.AcceptNetworkDef_f = [](const char* name, void* r) {
                self(r).characters_ += strlen(name);
                must(!self(r).has_drawn_);
            };
        t.AcceptProperty_f = [](const char* name, const char* value, void* r) {
            self(r).characters_ += strlen(name) + strlen(value);
            must(!self(r).has_drawn_);
        };
        t.BeginPatch_f = [](unsigned, double, double, unsigned char, float* st, float* mask, int depth,
                            void* r) {
            float projections[12];
            memcpy(projections, st, 24);
            memcpy(projections + 6, mask, 24);
            must(depth > 0 && depth < 256);
            enter(r, &tile_calls::in_patch_);
            self(r).depth_ = depth;
        };
        t.EndPatch_f = [](void* r) { leave(r, &tile_calls::in_patch_); };
        t.BeginPrimitive_f = [](int type, void* r) {
            must(type >= 0 && type < 3);
            enter(r, &tile_calls::in_primitive_);
        };
        t.AddPatchVertex_f = [](double* c, void* r) {
            must(self(r).in_primitive_);
            take(r, c, self(r).in_patch_ ? self(r).depth_ : 1);
        };
        t.EndPrimitive_f = [](void* r) { leave(r, &tile_calls::in_primitive_); };
        t.AddObject_f = [](unsigned, double* c, double psi, void* r) {
            take(r, c, 2);
            take(r, &psi, 1);
        };
        t.BeginSegment_f = [](unsigned, unsigned, unsigned node, double* c, bool curved, void* r) {
            must(node != 0);
            take(r, c, curved ? 6 : 3);
        };
        t.AddSegmentShapePoint_f = [](double* c, bool curved, void* r) { take(r, c, curved ? 6 : 3); };
        t.EndSegment_f = [](unsigned node, double* c, bool curved, void* r) {
            must(node != 0);
            take(r, c, curved ? 6 : 3);
        };
        t.BeginPolygon_f = [](unsigned, unsigned short, void* r) { enter(r, &tile_calls::in_polygon_); };
        t.BeginPolygonWinding_f = [](void* r) {
            must(self(r).in_polygon_);
            enter(r, &tile_calls::in_winding_);
        };
        t.AddPolygonPoint_f = [](double* c, void* r) {
            must(self(r).in_winding_);
            take(r, c, 2);
        };
        t.EndPolygonWinding_f = [](void* r) { leave(r, &tile_calls::in_winding_); };
        t.EndPolygon_f = [](void* r) { leave(r, &tile_calls::in_polygon_); };
        return t;
    }

    static tile_calls& self(void* ref) { return *static_cast<tile_calls*>(ref); }
    static void enter(void* ref, bool tile_calls::*part) {
        must(!(self(ref).*part));
        self(ref).*part = self(ref).has_drawn_ = true;
    }
    static void leave(void* ref, bool tile_calls::*part) {
        must(self(ref).*part);
        self(ref).*part = false;
    }
    static void take(void* ref, const double* c, int count) {
        for (int i = 0; i < count; ++i) must(std::isfinite(c[i]));
        self(ref).has_drawn_ = true;
        if (++self(ref).points_ > 20000) throw told_enough();
    }

    bool in_patch_ = false, in_primitive_ = false, in_polygon_ = false, in_winding_ = false,
         has_drawn_ = false;
    int depth_ = 0, points_ = 0;
    size_t characters_ = 0;
};

// Quiet: the decoder prints what is wrong, which nobody reads here.
inline void silence_stdout() {
    static const bool is_silent = freopen("/dev/null", "w", stdout) != nullptr;
    must(is_silent);
}

// Atoms for inputs that start from something sound.
class tile_bytes {
public:
    std::vector<char> bytes;

    void add(const void* data, size_t size) {
        const char* first = static_cast<const char*>(data);
        bytes.insert(bytes.end(), first, first + size);
    }
    template <class T>
    void add(T value) {
        add(&value, sizeof value);
    }
    void add_atom(uint32_t id, const std::vector<char>& contents) {
        add(id);
        add(static_cast<uint32_t>(contents.size() + 8));
        add(contents.data(), contents.size());
    }
    void add_file_head() {
        add("TARVEDSF", 8);
        add(int32_t{1});
    }
    void add_footer() { add("................", 16); }
};

}  // namespace fuzzing
