// The star catalogue.
#include "weather/sky/stars.h"

#include <math.h>

#include "core/disk/files.h"
#include "core/disk/paths.h"
#include "core/disk/txtscan.h"
#include "core/math/globe.h"
#include "core/math/num.h"
#include "core/records/env.h"

star_class star;

star_place star_vertex(float ra_rad, float dec_rad) {
    constexpr float radius = 0.95f * min_dome_rad_mtrs;
    return {-cosf(dec_rad) * sinf(ra_rad) * radius, -cosf(dec_rad) * cosf(ra_rad) * radius,
            -sinf(dec_rad) * radius};
}

namespace {
int list_of(float magnitude) {
    constexpr float first[star_listDIM - 1] = {1.5f, 3.0f, 4.5f, 6.0f, 7.5f};
    int list = 0;
    while (list < star_listDIM - 1 && magnitude >= first[list]) ++list;
    return list;
}
}  // namespace

// Lines of right ascension, hours; declination, degrees; magnitude; label. The brightest come first, so that
// a file without end loses only what no eye sees.
void star_class::star_build() {
    constexpr float ra_of_hour = 15.0f * static_cast<float>(dob_degtorad);
    for (auto& list : places) list.clear();
    has_changed = true;
    map_bytes at = nullptr;
    const XMappedFile file(set_dir_chars((env.planet == 1 ? mar_path : ear_path) + "astro.dat").c_str(), &at);
    int c = 0, c_max = 0;
    if (!MAP_check_file(ftype_all, &file, at, &c, &c_max, "740")) return;
    for (int lines = 0; lines < star_max && TXT_MAP_continue(at, &c, c_max); ++lines) {
        const float ra = TXT_MAP_flt_scan(at, &c, c_max) * ra_of_hour;
        if (ra > con.pim2) break;
        const float dec = TXT_MAP_flt_scan(at, &c, c_max) * con.degtorad;
        const float magnitude = TXT_MAP_flt_scan(at, &c, c_max);
        TXT_MAP_str_scan_eoln(at, &c, c_max, nullptr);
        if (!check_nan(ra) && !check_nan(dec) && !check_nan(magnitude))
            places[list_of(magnitude)].push_back(star_vertex(ra, dec));
    }
}

void star_alphas(float brat_star, float view_sig_earth_rat, float (&alpha)[star_listDIM]) {
    constexpr float base[star_listDIM] = {1.0f, 1.0f, 0.7f, 0.4f, 0.1f, -0.2f};
    const float star_boost = 0.4f * sqrtf(fltmax2(1.0f - view_sig_earth_rat, 0.0f));
    for (int i = 0; i < star_listDIM; ++i) alpha[i] = fltlim(brat_star * (base[i] + star_boost), 0.0f, 1.0f);
}
