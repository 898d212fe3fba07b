#pragma once
void windshield_step(float hail_rat); void OGL_windshield_effects(float hail_rat, float ice_rat); void reset_windshield();
