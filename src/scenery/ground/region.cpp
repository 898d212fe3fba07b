// Where the region lies.
#include "scenery/ground/region.h"

#include <math.h>

#include "core/math/num.h"
#include "core/records/env.h"

void centre_region_on(double lat, double lon) {
    env.lat_sou = fltlim(static_cast<float>(round(lat - lat_secs_os[env.planet])), -90.0f, 90.0f);
    env.lon_wes =
        static_cast<float>(intwrap(static_cast<int>(round(lon - lon_secs_os[env.planet])), -179, 180));
}
