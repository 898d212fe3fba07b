// The pictures of the land classes.
#pragma once
#include "ground_picture.h"
#include "land_classes.h"

void draw_day(land_class which, ground_picture* p);
// For a class that has a night: what shines, on black.
void draw_night(land_class which, ground_picture* p);

// Each for the classes of its kind: settled.cpp, farmed.cpp, grown.cpp, bare.cpp.
void draw_settled(land_class which, bool night, ground_picture* p);
void draw_farmed(land_class which, ground_picture* p);
void draw_grown(land_class which, ground_picture* p);
void draw_bare(land_class which, ground_picture* p);
