// Writes the table of magnetic variation as a source file of the library: sea level, at the model's epoch.
// Three decimals, so that the last bits of a compiler's mathematics cannot reach a flight; where they could
// turn the third one the table is refused.
#include <math.h>
#include <stdio.h>

#include <exception>
#include <stdexcept>

#include "scenery/nav/magnetic.h"
#include "wmm.h"

namespace {
constexpr double step_deg = 5.0, nearest_to_pole = 89.99;
constexpr double per_unit = 1000.0, tie_zone = 1e-5;  // thousandths of a degree

// Thousandths of a degree, west positive.
long variation_at(const wmm_struct& model, int row, int column) {
    const double lat = fmax(-nearest_to_pole, fmin(nearest_to_pole, -90.0 + step_deg * row));
    const double lon = -180.0 + step_deg * (column % (mag_lons - 1));  // the last column is the first again
    const double exact = -wmm_at(model, lat, lon, 0.0, model.epoch).declination * per_unit;
    if (fabs(exact - floor(exact) - 0.5) < tie_zone)
        throw std::runtime_error("a value stands between two roundings: change the number of decimals");
    return lround(exact);
}

void write_table(const wmm_struct& model, FILE* out) {
    fprintf(out,
            "// Written by magvar_make.\n#include \"scenery/nav/magnetic.h\"\n\n"
            "const float raw_mag_var[mag_lats][mag_lons] = {\n");
    for (int row = 0; row < mag_lats; ++row) {
        fputs("    {", out);
        for (int column = 0; column < mag_lons; ++column)
            fprintf(out, "%.3ff%s", static_cast<double>(variation_at(model, row, column)) / per_unit,
                    column + 1 < mag_lons ? ", " : "},\n");
    }
    fputs("};\n", out);
}
}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        fputs("usage: magvar_make MODEL.cof TABLE.cpp\nWrites the magnetic variation of the world.\n",
              stderr);
        return 2;
    }
    try {
        const wmm_struct model = read_wmm(argv[1]);
        FILE* out = fopen(argv[2], "w");
        if (!out) throw std::runtime_error(std::string(argv[2]) + ": cannot be written");
        write_table(model, out);
        const bool failed = ferror(out);
        if (fclose(out) || failed) throw std::runtime_error(std::string(argv[2]) + ": writing failed");
    } catch (const std::exception& e) {
        fprintf(stderr, "magvar_make: %s\n", e.what());
        remove(argv[2]);
        return 1;
    }
    return 0;
}
