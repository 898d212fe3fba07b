// The beam of the tuned instrument approach, drawn in the world: frames along the slope, boxes over markers.
#pragma once

void draw_ils_picture();
