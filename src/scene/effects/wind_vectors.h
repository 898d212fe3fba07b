#pragma once
void draw_wind_vectors();
