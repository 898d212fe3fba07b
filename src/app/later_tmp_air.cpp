// Routines that do not exist yet: neutral bodies.
#include "core/upward.h"
#include "weather/clouds.h"
#include "weather/real_weather.h"

clou_class clou;

void clou_class::cloud_update() {}
void clou_class::blow_region_x(float) {}
void clou_class::blow_region_z(float) {}
float clou_class::ret_wxr_local(float, float, float) { return 0.0f; }
float clou_class::ret_wxr_above(float, float, float) { return 0.0f; }

void real_weather_step() {}

void APP_handlekey(int, int) {}
void stop_fire() {}
void stop_starter() {}
