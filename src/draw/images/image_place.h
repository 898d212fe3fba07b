// Images of PNG and BMP files read into one buffer, and the work on their pixels.
// Role: below the texture manager. Knows no OpenGL. One image at a time, main thread only.
// The first row of every buffer is the image's bottom: t of a texture runs up.
#pragma once
#include <string>

constexpr int image_max = 1024;  // pixels a side, of files and of textures
constexpr int scratch_size = image_max * image_max * 4;

// All image work goes through these two. Rows follow each other without padding, at the width of the
// texture in the first (image_max when images are blended over one another), of the file in the second.
alignas(16) extern unsigned char scratch_array[scratch_size];
extern unsigned char scratch_array_temp[scratch_size];

// Size of the caller's own pixels in scratch_array, whose rows are a power of two wide. Set before a load
// of a name that starts with scratch_name; each such load sets them back to image_max.
extern int scratch_dx, scratch_dy;
inline constexpr char scratch_name[] = "scratch_array";
bool is_scratch_name(const std::string& path);

enum load_type : int {
    load_background = -103,  // blends into scratch_array at the origin
    load_instrument = -102,  // blends into scratch_array where instrument (reference - 629) has its middle
    load_scratch = -101,     // reads into scratch_array only
    load_ogl = -100,         // an OpenGL texture
    load_free = -104,        // no load: marks a free slot of the table
};

struct image_place {
    float scale;
    int dx_off, dy_off;  // in scratch_array, pixels
    int dx_vis, dy_vis;  // the image in the texture, pixels
    int dx_tot, dy_tot;  // the texture: powers of two
};

struct image_struct {
    int load_type;
    int index;            // reference asked for
    int bytes;            // a pixel: 1, 3 or 4
    int depth_change_ok;  // the file may make it 3 or 4
    image_place place;    // found by the read
};

// Ratio for the user's texture resolution, 0 to 5.
float texture_scale(int tex_res);

// Sizes, offsets and ratio of a file's picture; 0 when one is out of its limits, which is told.
int get_scale(const std::string& path, int index, int load_type, int dx_file, int dy_file,
              image_place* place);

// The caller's pixels: finds only the sizes.
int load_buf_into_scratch(const std::string& path, image_struct* image);

// Brings a picture from scratch_array_temp, where it stands at the size of its file, to its place in
// scratch_array.
void settle_temp(const image_struct& image, int dx_file, int dy_file);

// Gives each RGBA pixel of alpha 0 the mean colour of those with alpha in the 5 by 5 block around it, so
// that filtering bleeds no colourless rim.
void clean_edges(unsigned char* pixels, int dx, int dy);
// Halves a picture in place, the mean of each block truncated; a side of 1 stays.
void shrink_half(unsigned char* pixels, int dx, int dy, int bytes);

// The path with its last four characters replaced; empty when it has no four.
std::string with_ending(const std::string& path, const char* ending);

// Tells a fault that the load lives with, each one once: a texture may be asked for in every frame. To show
// it may draw a window, which uses scratch_array: its content comes back.
void image_fault(const std::string& s1, const std::string& s2, const std::string& s3, const char* file,
                 int line);
#define IMAGE_FAULT(s1, s2, s3) image_fault(s1, s2, s3, __FILE__, __LINE__)
