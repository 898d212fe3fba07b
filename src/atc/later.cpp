// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "atc/controllers.h"
#include "core/program/upward.h"

// No controllers, no plans.
void handle_plan() {}
void handle_vectors() {}
void LSO_respond() {}
int atc_is_talking() { return 0; }
int draw_atc_menu() { return 0; }
void clear_atc_and_plan() {}
void hand_over_plan() {}
