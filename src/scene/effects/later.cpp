// placeholder until fx is merged
#include "scene/effects/balloons.h"
#include "scene/effects/fires.h"
#include "scene/effects/ils_picture.h"
#include "scene/effects/lines.h"
#include "scene/effects/rain.h"
#include "scene/effects/refuelling.h"
#include "scene/effects/wind_vectors.h"
#include "scene/effects/windshield.h"
void rain_step() {}
void OGL_rain() {}
void reset_rain() {}
void windshield_step(float) {}
void OGL_windshield_effects(float, float) {}
void reset_windshield() {}
void balloons_step() {}
void draw_balloons() {}
void reset_balloons() {}
void fires_step() {}
void plot_fires() {}
void reset_fires() {}
void draw_wind_vectors() {}
void draw_lines() {}
void refuelling_step() {}
void draw_refuelling() {}
void draw_ils_picture() {}
