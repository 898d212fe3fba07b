// A tile's file as the simulator's decoder tells it, and what all parts of this program know of its marks.
#pragma once
#include <string>
#include <vector>

#include "core/disk/mapfile.h"
#include "scenery/decode/dsf.h"
#include "scenery/decode/dsf_format.h"

constexpr double earth_degree = 111319.0, mars_degree = 59275.0;  // metres along a meridian

enum patch_flag : unsigned char { patch_stood_on = 1, patch_overlay = 2 };

// Names that the loader knows by itself.
bool is_water(const std::string& terrain);
bool is_hidden(const std::string& terrain);

// Throws std::runtime_error, with the decoder's name for the fault, when the file is none of its tiles.
class tile_file {
public:
    explicit tile_file(const std::string& path);

    const std::string& path() const { return path_; }
    std::string name() const { return path_.substr(path_.rfind('/') + 1); }
    size_t size() const { return file_.size(); }
    const char* begin() const { return reinterpret_cast<const char*>(file_.begin()); }
    const char* end() const { return reinterpret_cast<const char*>(file_.end()); }

    // Once more from the start. Slots that are left null are passed over.
    void tell(DSFCallbacks_t callbacks, void* ref) const;

private:
    std::string path_;
    XMappedFile file_;
};

// The triangles of one primitive as its vertices arrive.
template <class vertex>
class triangle_feed {
public:
    void begin(int type) {
        type_ = type;
        count_ = 0;
    }
    // each(a, b, c) when the vertex completes a triangle.
    template <class function>
    void add(const vertex& v, function each) {
        const int n = count_++;
        if (type_ == dsf_triangles ? n % 3 == 2 : n >= 2) each(kept_[0], kept_[1], v);
        if (n == 0 || (type_ == dsf_triangles && n % 3 == 0))
            kept_[0] = v;
        else if (n == 1 || type_ != dsf_strip)
            kept_[1] = v;
        else
            kept_[n % 2] = v;
    }

private:
    int type_ = dsf_triangles, count_ = 0;
    vertex kept_[2] = {};
};
