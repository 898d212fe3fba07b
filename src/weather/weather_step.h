// The weather of a frame: trend, validity limits, main layer, precipitation, wind, local air, sea;
// and what the weather screen does to the settings.
// Role: runs in every state, paused or not; reads atm and the user's position, writes atm and con.
#pragma once

// Reports, trend, limits, main layer, precipitation, wind, in this order.
void weather_step();
// Local air and gravity at the user's aircraft, and the sea.
void local_air_step();

// Every rule of validity on atm, in order. Called by weather_step.
void limit_weather();
// For settings that come from a file, a packet or a plugin: what is not finite takes its default, what
// serves as an index or a divisor is held to its range. Good settings stay as they are.
void limit_atm_border();

// Eases the precipitation that reaches the aircraft towards what the cloud gives: mean density around
// it (0 to 1) and of the column above it (0 to 10). Called by weather_step.
void ease_precipitation(float wxr_local, float wxr_above);

// Moves the wind layers by newpart (0 to 1) towards new random values of strength atm.wind_tbl.
void assign_wind_tbl(float newpart);
// Weather of random strength at once.
void randomise_weather();
// Another pattern of cloud cells.
void new_weather_seed();

// What the weather screen holds from one pass to the next.
struct weather_screen_struct {
    float old_rain;  // rain_set of last pass
    int old_download_rwx, old_use_rwx;
};
// Applied to atm after the screen has run.
void weather_screen_rules(weather_screen_struct& last);
