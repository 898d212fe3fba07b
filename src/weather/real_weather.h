// Weather from reports.
#pragma once

// Once a frame, before the weather trend: looks for a new report when one is due and eases the
// settings of atm towards the last one.
void real_weather_step();
