// Reading of sky and light pictures.
#include "weather/sky/sky_tables.h"

#include <string.h>

#include <string>

#include "core/disk/paths.h"
#include "core/math/num.h"
#include "core/program/alert.h"
#include "draw/images/image_place.h"
#include "draw/images/image_png.h"

namespace {
const char* const set_names[2][sky_setDIM] = {
    {"Earth:%s_earth_clean.png", "Earth:%s_earth_misty.png", "Earth:%s_earth_foggy.png",
     "Earth:%s_earth_hialt.png", "Earth:%s_earth_ocast.png"},
    {"Mars:%s_mars_clean.png", "Mars:%s_mars_clean.png", "Mars:%s_mars_clean.png", "Mars:%s_mars_hialt.png",
     "Mars:%s_mars_clean.png"},
};

std::string picture_path(int planet, int set, const char* kind) {
    std::string name = set_names[planet == 1][set];
    name.replace(name.find("%s"), 2, kind);
    return bmp_path + "skycolors:" + name;
}

// A picture in scratch_array with three bytes a pixel, at least so large; false when there is none, which is
// told once.
bool read_picture(const std::string& path, unsigned dx, unsigned dy, image_struct* image) {
    unsigned dx_file = 0, dy_file = 0;
    if (!png_size(path, &dx_file, &dy_file)) {
        IMAGE_FAULT("The colours of the sky are missing, it will be grey:", path, "");
        return false;
    }
    if (dx_file < dx || dy_file < dy) {
        IMAGE_FAULT("This picture of the colours of the sky is too small, it will be grey:", path, "");
        return false;
    }
    *image = {};
    image->load_type = load_scratch;
    image->bytes = 3;
    return load_png_into_scratch(path, image);  // which tells of damage inside
}

const unsigned char* pixel(const image_struct& image, int x, int y) {
    return scratch_array + 3 * (y * image.place.dx_tot + x);
}

// -- light

struct light_column {
    int x;
    light_table* table;
};

constexpr int light_columns = 9, light_width = 39;

// By how the sun stands: brightest at noon, in the middle of the rows.
float grey_of(int step, int steps) {
    constexpr float night = 0.1f;
    const float noon = 1.0f - flt_abs(static_cast<float>(2 * step - steps)) / static_cast<float>(steps);
    return night + (1.0f - night) * noon;
}

// image: null for grey.
void fill_light(skyc_class* sky, int set, const image_struct* image) {
    const light_column columns[light_columns] = {
        {3, &sky->raw_sun_amb},  {8, &sky->raw_sun_dir},  {13, &sky->raw_sun_col},
        {18, &sky->raw_mon_col}, {23, &sky->raw_wat_col}, {28, &sky->raw_cld_drk},
        {33, &sky->raw_cld_lgt}, {38, &sky->raw_mon_amb}, {38, &sky->raw_mon_dir},
    };
    for (const light_column& column : columns)
        for (int row = 0; row < light_rowDIM; ++row)
            for (int c = 0; c < 3; ++c)
                (*column.table)[set][row][c] =
                    image ? static_cast<float>(pixel(*image, column.x, row)[c]) / 255.0f
                          : grey_of(row, light_rowDIM);
}

// -- dome

void fill_dome(skyc_class* sky, int set, const image_struct* image) {
    constexpr float brightest = 200.0f;
    constexpr int per_row = 4;  // darker from the horizon up
    for (int t = 0; t < sky_frameDIM; ++t)
        for (int i = 0; i < sky_headingDIM; ++i)
            for (int j = 0; j < sky_heightDIM; ++j) {
                unsigned char* to = sky->raw_sky_256[set][t][i][j];
                if (image)
                    memcpy(to, pixel(*image, i, sky_heightDIM * t + j), 3);
                else
                    memset(to, intmax2(intcut(brightest * grey_of(t, sky_frameDIM)) - per_row * j, 0), 3);
            }
}
}  // namespace

void grey_sky_tables(skyc_class* sky) {
    for (int set = 0; set < sky_setDIM; ++set) {
        fill_light(sky, set, nullptr);
        fill_dome(sky, set, nullptr);
    }
}

void read_sky_tables(skyc_class* sky, int planet) {
    const faults_of_file told(below_install_folder(bmp_path + "skycolors:"));
    for (int set = 0; set < sky_setDIM; ++set) {
        image_struct image;
        const bool lit =
            read_picture(picture_path(planet, set, "light_colors"), light_width, light_rowDIM, &image);
        fill_light(sky, set, lit ? &image : nullptr);
        const bool dome = read_picture(picture_path(planet, set, "sky_colors"), sky_headingDIM,
                                       sky_frameDIM * sky_heightDIM, &image);
        fill_dome(sky, set, dome ? &image : nullptr);
    }
}
