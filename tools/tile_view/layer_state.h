// The state in which a layer of ground is drawn, by day.
#pragma once
#include "scenery/ground/tile.h"

// Texture units, their textures, combiners and projections; light, blending, depth and offset.
void begin_layer(const xlay_struct& layer);
void end_layer(const xlay_struct& layer);
