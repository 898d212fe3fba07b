// Routines of this folder that do not exist yet: each call stands in its place in the frame and gets its neutral
// answer here. The file shrinks as they are built.
#include "sound/chatter.h"

// No chatter of other pilots.
void load_radio_chatter() {}
