#pragma once
void rain_step(); void OGL_rain(); void reset_rain();
