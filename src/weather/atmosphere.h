// The standard air of the two planets, today's departure from it, and the rules that tie cloud layers
// to precipitation.
// Role: pure functions of con (today's sea level), env.planet and atm; no OpenGL, no frame.
#pragma once

// Puts env.planet, the planet's constants, its sea-level air and the altimeter setting in place.
// 1 is Mars, anything else Earth.
void set_planet_specs(int planet);
// The constants of env.planet alone, without the sea-level weather: for records that come from a file
// with their own copies of them.
void set_planet_constants();
// The weather that a planet starts with when the user travels there; after set_planet_specs.
void set_planet_weather(int planet);

// Standard density, kg/m3, at h metres: linear between the points of a table, held beyond its ends.
float find_standard_rho(int planet, float h);
// Temperature, Celsius, at h metres on the current planet and day; extrapolates below 0 m.
float find_temp_cel(float h);
// Today's density over the standard one, the same at all heights.
float find_current_rho_rat();

// Thickness that a layer needs by its type, m.
float ret_min_layer_thick_mtrs(int layer);
// Reconciles precipitation with cloud: hard_clouds 1 cuts rain to what the clouds can give, 0 raises
// the lower layer's type by one for each of rain and thunderstorm that it cannot give.
void limit_cloud_typ_rat(int hard_clouds);

// The weather of a first start.
void init_weather_defaults();
