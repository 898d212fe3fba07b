// What load, thin air and the sun do to the pilot's sight.
// Role: followed once a drawn frame; drawn over everything. Knows no OpenGL but for the drawing.
#pragma once

// 0 clear to 1 gone.
struct blackout_struct {
    float g_redout, g_blackout, o2_blackout;
};
const blackout_struct& blackouts();

void blackouts_step();
// Colour and alpha of the cover, from the blackouts and the sun's glare; each 0 to 1.
struct cover_struct {
    float red, others, alpha;
};
cover_struct cover_of(const blackout_struct& blackout, float glare_rat);
void draw_blackouts();
void reset_blackouts();
