// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "weather/clouds.h"
#include "weather/puffs.h"
#include "weather/real_weather.h"

// No report, no cloud volume, no precipitation, no smoke.
clou_class clou;
puff_class puff;
void real_weather_step() {}
void clou_class::cloud_update() {}
int clou_class::shadow_picture() { return 0; }
void clou_class::blow_region_x(float) {}
void clou_class::blow_region_z(float) {}
float clou_class::ret_wxr_local(float, float, float) { return 0.0f; }
float clou_class::ret_wxr_above(float, float, float) { return 0.0f; }
void puff_class::spawn_puff(float, float, float, float, float, float, float, int, float) {}
void puff_class::shift_puffs(const double*) {}
