// Pictures that the ground shows by fixed references.
#pragma once

// Those of the sea. One that is missing is plain, and how many are is told once. Nothing without a window.
void load_ground_pictures();
